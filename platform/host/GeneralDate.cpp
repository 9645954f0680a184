// The en-US forms, for builds that have no automation.

#include "platform/GeneralDate.h"

#include <chrono>
#include <regex>

#include "platform/Trim.h"
#include "platform/host/LowerCase.h"

namespace ambrio {
namespace {

constexpr int kHoursOfHalfDay = 12;

std::wstring TwoDigits(int number) {
    return (number < 10 ? L"0" : L"") + std::to_wstring(number);
}

std::wstring TimeText(const DateTime& when) {
    const int hour = when.Hour % kHoursOfHalfDay;
    return std::to_wstring(hour == 0 ? kHoursOfHalfDay : hour) + L':' + TwoDigits(when.Minute) +
           L':' + TwoDigits(when.Second) + (when.Hour < kHoursOfHalfDay ? L" AM" : L" PM");
}

int NumberOf(const std::wssub_match& digits) {
    return digits.matched ? std::stoi(digits.str()) : 0;
}

bool ReadDate(const std::wstring& text, DateTime& when) {
    static const std::wregex form(LR"((\d{1,2})[/-](\d{1,2})[/-](\d{3,4}))");
    std::wsmatch parts;
    if (!std::regex_match(text, parts, form)) {
        return false;
    }
    when.Month = NumberOf(parts[1]);
    when.Day = NumberOf(parts[2]);
    when.Year = NumberOf(parts[3]);
    constexpr int kFirstYear = 100;
    const std::chrono::year_month_day date{std::chrono::year{when.Year},
                                           std::chrono::month{static_cast<unsigned>(when.Month)},
                                           std::chrono::day{static_cast<unsigned>(when.Day)}};
    return date.ok() && when.Year >= kFirstYear;
}

bool ReadTime(const std::wstring& text, DateTime& when) {
    static const std::wregex form(LR"((\d{1,2}):(\d{2})(?::(\d{2}))?(?: ?([ap])m)?)");
    std::wsmatch parts;
    if (!std::regex_match(text, parts, form)) {
        return false;
    }
    when.Hour = NumberOf(parts[1]);
    when.Minute = NumberOf(parts[2]);
    when.Second = NumberOf(parts[3]);
    if (parts[4].matched) {
        if (when.Hour < 1 || when.Hour > kHoursOfHalfDay) {
            return false;
        }
        when.Hour = when.Hour % kHoursOfHalfDay + (parts[4] == L"p" ? kHoursOfHalfDay : 0);
    }
    return when.Hour < 24 && when.Minute < 60 && when.Second < 60;
}

}  // namespace

std::wstring GeneralDateText(const DateTime& when) {
    std::wstring text;
    const bool isMidnight = when.Hour == 0 && when.Minute == 0 && when.Second == 0;
    const bool isDayZero = DayNumber(when) == 0;
    if (!isDayZero) {
        text = std::to_wstring(when.Month) + L'/' + std::to_wstring(when.Day) + L'/' +
               std::to_wstring(when.Year);
    }
    if (!isMidnight || isDayZero) {
        text += (text.empty() ? L"" : L" ") + TimeText(when);
    }
    return text;
}

std::optional<DateTime> DateFromText(const std::wstring& text) {
    const std::wstring plain = LowerCase(Trim(text));
    const std::size_t blank = plain.find(L' ');
    DateTime when;
    if (ReadTime(plain, when)) {
        return when;
    }
    when = DateTime{};
    if (!ReadDate(plain.substr(0, blank), when)) {
        return std::nullopt;
    }
    if (blank != std::wstring::npos && !ReadTime(Trim(plain.substr(blank)), when)) {
        return std::nullopt;
    }
    return when;
}

}  // namespace ambrio
