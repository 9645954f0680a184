#include "app/model/CommandSwitch.h"

#include "platform/AsciiCase.h"
#include "platform/Rounding.h"
#include "platform/Val.h"

namespace ambrio {
namespace {

constexpr std::size_t kSwitchLength = 2;

}  // namespace

std::wstring SwitchOf(const std::wstring& commandLine) {
    std::wstring text = commandLine.substr(0, kSwitchLength);
    for (wchar_t& c : text) {
        c = AsciiUpperCase(c);
    }
    return text.empty() ? L"/C" : text;
}

std::int32_t WindowHandleOf(const std::wstring& commandLine) {
    if (commandLine.size() <= kSwitchLength) {
        return 0;
    }
    return RoundToInt32(Val(commandLine.substr(kSwitchLength)));
}

}  // namespace ambrio
