#include <cmath>
#include <cstring>
#include <limits>

#include "platform/BooleanText.h"
#include "platform/GeneralDate.h"
#include "platform/RegistryValue.h"
#include "platform/Rounding.h"
#include "platform/RuntimeError.h"
#include "platform/Val.h"
#include "tests/fuzz/Fuzzers.h"

namespace ambrio {
namespace {

void TryVal(const std::wstring& text) {
    const double value = Val(text);
    Require(!std::isnan(value), "a number");
    Require(Val(L"  " + text) == value, "leading blanks are skipped");
    Require(Val(text + L"z") == value, "what is no number ends it");
}

template <typename Integer>
void TryRounding(double value, Integer (*round)(double)) {
    using Limits = std::numeric_limits<Integer>;
    try {
        const double whole = round(value);
        const double distance = std::abs(whole - value);
        Require(distance <= 0.5, "the nearest whole number");
        Require(distance < 0.5 || std::fmod(whole, 2.0) == 0.0, "a half goes to the even one");
    } catch (const RuntimeError& error) {
        Require(error.Number() == ErrorNumber::Overflow, "only the range is refused");
        Require(!(value > Limits::min() - 0.5 && value < Limits::max() + 0.5), "in the range");
    }
}

void TryBoolean(const std::wstring& text) {
    try {
        const bool value = BooleanFromText(text);
        Require(BooleanFromText(BooleanText(value)) == value, "a Boolean's text is read back");
    } catch (const RuntimeError& error) {
        Require(error.Number() == ErrorNumber::TypeMismatch, "only what is no Boolean is refused");
    }
}

void TryDate(const std::wstring& text) {
    if (const auto date = DateFromText(text)) {
        const std::wstring written = GeneralDateText(*date);
        const auto again = DateFromText(written);
        Require(again && GeneralDateText(*again) == written, "a date's text is read back");
    }
}

}  // namespace

void FuzzTextConversion(FuzzInput input) {
    const std::wstring text = input.Text(100);
    TryVal(text);
    TryBoolean(text);
    TryDate(text);
    const std::uint64_t bits = input.Number();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    for (const double number : {value, Val(text), std::fmod(value, 100'000) / 2}) {
        if (!std::isnan(number)) {
            TryRounding(number, RoundToInt32);
            TryRounding(number, RoundToInt16);
        }
    }
    const RegistryType type{input.Byte()};
    Require(RegistryValueText(type, input.Rest()).size() < kLongestRegistryValue,
            "a registry value is short");
}

}  // namespace ambrio
