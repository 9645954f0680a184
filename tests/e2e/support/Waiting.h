#pragma once

#include <chrono>
#include <functional>

namespace ambrio::e2e {

using Milliseconds = std::chrono::milliseconds;

// How long a test waits for something that should come soon; it is only spent when a test fails.
constexpr Milliseconds kSoon{10000};
// The same for a whole run.
constexpr Milliseconds kWholeRun = std::chrono::minutes(2);
// How long a test looks on to see that something does not happen.
constexpr Milliseconds kWhile{250};

// How long WaitUntil rests between two looks; who waits for minutes rests longer, as every look
// takes time from the program that is looked at.
constexpr Milliseconds kBetweenLooks{4};
constexpr Milliseconds kBetweenRareLooks{100};

// Looks now and then until the condition holds; for what no event tells of. False when it did not
// within the limit.
[[nodiscard]] bool WaitUntil(const std::function<bool()>& condition, Milliseconds limit = kSoon,
                             Milliseconds betweenLooks = kBetweenLooks);

}  // namespace ambrio::e2e
