#pragma once

#include <chrono>
#include <functional>

namespace ambrio::e2e {

using Milliseconds = std::chrono::milliseconds;

// How long a test waits for something that should come soon; it is only spent when a test fails.
constexpr Milliseconds kSoon{10000};
// How long a test looks on to see that something does not happen.
constexpr Milliseconds kWhile{250};

// Looks every few milliseconds until the condition holds; for what no event tells of. False when
// it did not within the limit.
[[nodiscard]] bool WaitUntil(const std::function<bool()>& condition, Milliseconds limit = kSoon);

}  // namespace ambrio::e2e
