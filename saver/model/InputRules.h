#pragma once

#include <optional>
#include <string>
#include <utility>

namespace ambrio {

// Decides which mouse movements over the form ask for its end. Positions are in twips.
class MouseMoveRule {
  public:
    // Takes a new position and tells how many times the form is to be asked to end: once for each
    // coordinate that differs from the stored one. A coordinate stored as exactly 0 is never
    // compared; so the first movement after loading only records where the pointer is. So does one
    // without motion, which the system sends when windows come and go under the pointer.
    int Move(float x, float y, bool isMotion = true);
    // The next movement is the first again.
    void Forget();

  private:
    float x_ = 0;
    float y_ = 0;
};

// Tells the motion of the pointer, over whatever window, from messages without any. Places are
// pixels of the screen.
class PointerMotion {
  public:
    // True unless the pointer was there last.
    bool MovesTo(int x, int y);

  private:
    std::optional<std::pair<int, int>> last_;
};

// True when the form stays an ordinary window: neither topmost nor spread over the screen.
[[nodiscard]] bool StaysOrdinaryWindow(const std::wstring& commandLine);

// True when the pointer is hidden while the form is up. Unlike StaysOrdinaryWindow this one
// distinguishes "/d" from "/D"; that "/d" is an ordinary window without a pointer is wanted.
[[nodiscard]] bool HidesPointer(const std::wstring& commandLine);

}  // namespace ambrio
