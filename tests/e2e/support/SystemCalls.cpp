#include "tests/e2e/support/SystemCalls.h"

#include <sstream>

#include "tests/e2e/StandIn.h"
#include "tests/e2e/support/Files.h"

namespace ambrio::e2e {

SystemCalls::SystemCalls() : key_(kSystemCallsKey) {}

std::wstring SystemCalls::Module() {
    return TestProgramFolder() + L"\\StandInSystem.dll";
}

std::vector<std::wstring> SystemCalls::Of(const std::wstring& name) const {
    std::vector<std::wstring> calls;
    std::wistringstream lines(ReadText(key_.Path(), kCalls).value_or(L""));
    const std::wstring start = name + L" ";
    for (std::wstring line; std::getline(lines, line);) {
        if (line.starts_with(start)) {
            calls.push_back(line.substr(start.size()));
        }
    }
    return calls;
}

void SystemCalls::SlowTheAnimation(Milliseconds step) const {
    WriteNumber(key_.Path(), kDrawingTime, static_cast<DWORD>(step.count()));
}

}  // namespace ambrio::e2e
