#include "platform/GeneralDate.h"

#include <memory>

#include "platform/RuntimeError.h"
#include "platform/win32/text/Automation.h"

namespace ambrio {
namespace {

struct FreeBstr {
    void operator()(OLECHAR* text) const { SysFreeString(text); }
};
using Bstr = std::unique_ptr<OLECHAR, FreeBstr>;

DATE VariantTimeOf(const DateTime& when) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(when.Year);
    time.wMonth = static_cast<WORD>(when.Month);
    time.wDay = static_cast<WORD>(when.Day);
    time.wHour = static_cast<WORD>(when.Hour);
    time.wMinute = static_cast<WORD>(when.Minute);
    time.wSecond = static_cast<WORD>(when.Second);
    DATE date = 0;
    if (!SystemTimeToVariantTime(&time, &date)) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    return date;
}

}  // namespace

std::wstring GeneralDateText(const DateTime& when) {
    BSTR raw = nullptr;
    RequireConverted(VarBstrFromDate(VariantTimeOf(when), LOCALE_USER_DEFAULT, 0, &raw));
    const Bstr text(raw);
    return {text.get(), SysStringLen(text.get())};
}

std::optional<DateTime> DateFromText(const std::wstring& text) {
    DATE date = 0;
    SYSTEMTIME time{};
    if (FAILED(VarDateFromStr(AutomationText(text), LOCALE_USER_DEFAULT, 0, &date)) ||
        !VariantTimeToSystemTime(date, &time)) {
        return std::nullopt;
    }
    return DateTime{time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

}  // namespace ambrio
