#include "tests/e2e/support/Handles.h"

#include <string>
#include <system_error>

namespace ambrio::e2e {

void ThrowWin32Error(const char* doing, DWORD code) {
    throw std::system_error(static_cast<int>(code), std::system_category(), doing);
}

}  // namespace ambrio::e2e
