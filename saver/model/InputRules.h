#pragma once

#include <string>

namespace ambrio {

// Decides which mouse movements over the form ask for its end. Positions are in twips.
class MouseMoveRule {
  public:
    // Takes a new position and tells how many times the form is to be asked to end: once for each
    // coordinate that differs from the stored one. A coordinate stored as exactly 0 is never
    // compared; so the first movement after loading only records where the pointer is.
    int Move(float x, float y);

  private:
    float x_ = 0;
    float y_ = 0;
};

// True when the form stays an ordinary window: neither topmost nor spread over the screen.
[[nodiscard]] bool StaysOrdinaryWindow(const std::wstring& commandLine);

// True when the pointer is hidden while the form is up. Unlike StaysOrdinaryWindow this one
// distinguishes "/d" from "/D"; that "/d" is an ordinary window without a pointer is wanted.
[[nodiscard]] bool HidesPointer(const std::wstring& commandLine);

}  // namespace ambrio
