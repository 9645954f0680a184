#include "tests/e2e/support/Environment.h"

#include <string>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio::e2e {

unsigned NumberFromEnvironment(const wchar_t* name, unsigned otherwise) {
    wchar_t text[16]{};
    const DWORD length = GetEnvironmentVariableW(name, text, 16);
    return length > 0 && length < 16 ? static_cast<unsigned>(std::stoul(text)) : otherwise;
}

}  // namespace ambrio::e2e
