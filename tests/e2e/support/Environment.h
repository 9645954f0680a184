#pragma once

#include <string>

namespace ambrio::e2e {

// The text of an environment variable; empty when there is no such variable.
[[nodiscard]] std::wstring TextFromEnvironment(const wchar_t* name);

// The number in an environment variable that asks for a test of another size or course than its
// own; `otherwise` when there is no such variable. What is no number throws std::logic_error.
[[nodiscard]] unsigned NumberFromEnvironment(const wchar_t* name, unsigned otherwise);

}  // namespace ambrio::e2e
