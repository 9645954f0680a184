#include "tests/e2e/support/Input.h"

#include <vector>

#include "tests/e2e/support/Handles.h"

namespace ambrio::e2e {

namespace {

void Send(std::vector<INPUT> events) {
    if (SendInput(static_cast<UINT>(events.size()), events.data(), sizeof(INPUT)) !=
        events.size()) {
        ThrowWin32Error("sending input");
    }
}

INPUT KeyEvent(WORD key, WORD scan, DWORD flags) {
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = key;
    event.ki.wScan = scan;
    event.ki.dwFlags = flags;
    return event;
}

INPUT MouseEvent(DWORD flags, DWORD data = 0) {
    INPUT event{};
    event.type = INPUT_MOUSE;
    event.mi.dwFlags = flags;
    event.mi.mouseData = data;
    return event;
}

struct ButtonEvents {
    INPUT Down;
    INPUT Up;
};

ButtonEvents EventsOf(MouseButton button) {
    switch (button) {
        case MouseButton::Right:
            return {MouseEvent(MOUSEEVENTF_RIGHTDOWN), MouseEvent(MOUSEEVENTF_RIGHTUP)};
        case MouseButton::Middle:
            return {MouseEvent(MOUSEEVENTF_MIDDLEDOWN), MouseEvent(MOUSEEVENTF_MIDDLEUP)};
        case MouseButton::Back:
            return {MouseEvent(MOUSEEVENTF_XDOWN, XBUTTON1), MouseEvent(MOUSEEVENTF_XUP, XBUTTON1)};
        case MouseButton::Forward:
            return {MouseEvent(MOUSEEVENTF_XDOWN, XBUTTON2), MouseEvent(MOUSEEVENTF_XUP, XBUTTON2)};
        default:
            return {MouseEvent(MOUSEEVENTF_LEFTDOWN), MouseEvent(MOUSEEVENTF_LEFTUP)};
    }
}

// A pixel as a fraction of 65536 of the whole desktop, half a pixel in, so that rounding leads
// back to it.
LONG Fraction(LONG pixel, LONG origin, LONG extent) {
    return ((pixel - origin) * 65536 + 32768) / extent;
}

// The event moves the pointer there first.
INPUT At(POINT place, INPUT event) {
    event.mi.dx = Fraction(place.x, GetSystemMetrics(SM_XVIRTUALSCREEN),
                           GetSystemMetrics(SM_CXVIRTUALSCREEN));
    event.mi.dy = Fraction(place.y, GetSystemMetrics(SM_YVIRTUALSCREEN),
                           GetSystemMetrics(SM_CYVIRTUALSCREEN));
    event.mi.dwFlags |= MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_VIRTUALDESK;
    return event;
}

}  // namespace

void PressKey(WORD key) {
    const auto scan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    Send({KeyEvent(key, scan, 0), KeyEvent(key, scan, KEYEVENTF_KEYUP)});
}

void TypeText(const wchar_t* text) {
    for (; *text != L'\0'; ++text) {
        const auto unit = static_cast<WORD>(*text);
        Send({KeyEvent(0, unit, KEYEVENTF_UNICODE),
              KeyEvent(0, unit, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP)});
    }
}

void Click(MouseButton button) {
    const ButtonEvents events = EventsOf(button);
    Send({events.Down, events.Up});
}

void TurnWheel() {
    Send({MouseEvent(MOUSEEVENTF_WHEEL, WHEEL_DELTA)});
}

void TurnWheelToTheSide() {
    Send({MouseEvent(MOUSEEVENTF_HWHEEL, WHEEL_DELTA)});
}

void MovePointerTo(POINT place) {
    Send({At(place, MouseEvent(0))});
}

void MovePointerBy(int x, int y) {
    POINT place{};
    GetCursorPos(&place);
    MovePointerTo({place.x + x, place.y + y});
}

// Each event carries the place: when a window has just gone from under the pointer, the window
// system tells of the pointer again, and that may arrive late and put it back between a move and a
// click.
void ClickAt(POINT place, MouseButton button) {
    const ButtonEvents events = EventsOf(button);
    Send({At(place, events.Down), At(place, events.Up)});
}

}  // namespace ambrio::e2e
