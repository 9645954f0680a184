#pragma once

#include <string>
#include <vector>

#include "tests/e2e/support/Registry.h"
#include "tests/e2e/support/Waiting.h"

namespace ambrio::e2e {

// What the program asks of the system without anything to be seen of it, and how long the system
// takes, for programs into which the test has loaded the module StandInSystem. Such a call is one
// line: its name and what was passed, with blanks between.
class SystemCalls {
  public:
    // Nothing has been called yet.
    SystemCalls();

    // The path of the module.
    [[nodiscard]] static std::wstring Module();

    // The calls of that name so far, without it, in their order.
    [[nodiscard]] std::vector<std::wstring> Of(const std::wstring& name) const;
    // Lets each step of the animation take at least that long.
    void SlowTheAnimation(Milliseconds step) const;

  private:
    RegistryTreeGuard key_;
};

}  // namespace ambrio::e2e
