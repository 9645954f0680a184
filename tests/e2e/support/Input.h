#pragma once

#include "platform/win32/WindowsHeaders.h"

// Input as a keyboard and a mouse give it: it goes through the system to whatever window has the
// focus or lies under the pointer.
namespace ambrio::e2e {

enum class MouseButton { Left, Right, Middle, Back, Forward };

// Presses and releases a key, given as a virtual key code.
void PressKey(WORD key);
void TypeText(const wchar_t* text);
// Presses and releases a button where the pointer is.
void Click(MouseButton button = MouseButton::Left);
// Turns the wheel of the mouse by one notch, away from the user or to the right.
void TurnWheel();
void TurnWheelToTheSide();
// Moves the pointer, in screen pixels.
void MovePointerTo(POINT place);
void MovePointerBy(int x, int y);
// Moves the pointer there and clicks.
void ClickAt(POINT place, MouseButton button = MouseButton::Left);

// Puts the pointer back to where it was.
class PointerGuard {
  public:
    PointerGuard() { GetCursorPos(&place_); }
    ~PointerGuard() { SetCursorPos(place_.x, place_.y); }
    PointerGuard(const PointerGuard&) = delete;
    PointerGuard& operator=(const PointerGuard&) = delete;

  private:
    POINT place_{};
};

}  // namespace ambrio::e2e
