#pragma once

namespace ambrio::e2e {

// The number in an environment variable that asks for a test of another size or course than its
// own; `otherwise` when there is no such variable. What is no number throws std::logic_error.
[[nodiscard]] unsigned NumberFromEnvironment(const wchar_t* name, unsigned otherwise);

}  // namespace ambrio::e2e
