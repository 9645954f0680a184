#include <algorithm>

#include "app/model/CommandSwitch.h"
#include "platform/ProgramQuotes.h"
#include "platform/Rounding.h"
#include "platform/RuntimeError.h"
#include "platform/Val.h"
#include "tests/fuzz/Fuzzers.h"

namespace ambrio {
namespace {

void TrySwitch(const std::wstring& line) {
    const std::wstring name = SwitchOf(line);
    Require(line.empty() ? name == L"/C" : name.size() == std::min<std::size_t>(2, line.size()),
            "two characters");
    Require(SwitchOf(name) == name, "upper case stays");
    Require(SwitchOf(line + L"/S ?") == name || line.size() < 2, "what follows does not matter");
}

void TryHandle(const std::wstring& line) {
    const double value = line.size() > 2 ? Val(line.substr(2)) : 0;
    try {
        Require(WindowHandleOf(line) == RoundToInt32(value), "the number behind the switch");
    } catch (const RuntimeError& error) {
        Require(error.Number() == ErrorNumber::Overflow, "only the range is refused");
        Require(std::abs(value) > 2'147'483'647, "in the range");
    }
}

void TryQuotes(const std::wstring& line) {
    const std::wstring quoted = WithQuotedProgram(line);
    Require(WithQuotedProgram(quoted) == quoted, "quotes are put once");
    if (quoted == line) {
        return;
    }
    const std::size_t end = quoted.find(L'"', 1);
    Require(quoted.front() == L'"' && end != std::wstring::npos, "a pair of quotes");
    Require(quoted.substr(1, end - 1) + quoted.substr(end + 1) == line, "nothing else changes");
    std::wstring ending = quoted.substr(std::max<std::size_t>(end, 4) - 4, 4);
    std::transform(ending.begin(), ending.end(), ending.begin(), [](wchar_t letter) {
        return letter >= L'A' && letter <= L'Z' ? static_cast<wchar_t>(letter + 32) : letter;
    });
    Require(ending == L".scr" || ending == L".exe", "the program is in them");
}

}  // namespace

void FuzzCommandLine(FuzzInput input) {
    const std::wstring line = input.Text(300);
    TrySwitch(line);
    TryHandle(line);
    TryQuotes(line);
}

}  // namespace ambrio
