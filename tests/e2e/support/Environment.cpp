#include "tests/e2e/support/Environment.h"

#include "platform/win32/WindowsHeaders.h"

namespace ambrio::e2e {

std::wstring TextFromEnvironment(const wchar_t* name) {
    // The size that is asked for counts the NUL, the length that is returned does not.
    std::wstring text(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    text.resize(GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size())));
    return text;
}

unsigned NumberFromEnvironment(const wchar_t* name, unsigned otherwise) {
    const std::wstring text = TextFromEnvironment(name);
    return text.empty() ? otherwise : static_cast<unsigned>(std::stoul(text));
}

}  // namespace ambrio::e2e
