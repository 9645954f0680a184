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

INPUT MouseEvent(DWORD flags, LONG x = 0, LONG y = 0, DWORD button = 0) {
    INPUT event{};
    event.type = INPUT_MOUSE;
    event.mi.dx = x;
    event.mi.dy = y;
    event.mi.dwFlags = flags;
    event.mi.mouseData = button;
    return event;
}

void ClickSideButton(DWORD button) {
    Send({MouseEvent(MOUSEEVENTF_XDOWN, 0, 0, button), MouseEvent(MOUSEEVENTF_XUP, 0, 0, button)});
}

// A pixel as a fraction of 65536 of the whole desktop, half a pixel in, so that rounding leads
// back to it.
LONG Fraction(LONG pixel, LONG origin, LONG extent) {
    return ((pixel - origin) * 65536 + 32768) / extent;
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
    switch (button) {
        case MouseButton::Left:
            Send({MouseEvent(MOUSEEVENTF_LEFTDOWN), MouseEvent(MOUSEEVENTF_LEFTUP)});
            break;
        case MouseButton::Right:
            Send({MouseEvent(MOUSEEVENTF_RIGHTDOWN), MouseEvent(MOUSEEVENTF_RIGHTUP)});
            break;
        case MouseButton::Middle:
            Send({MouseEvent(MOUSEEVENTF_MIDDLEDOWN), MouseEvent(MOUSEEVENTF_MIDDLEUP)});
            break;
        case MouseButton::Back:
            ClickSideButton(XBUTTON1);
            break;
        case MouseButton::Forward:
            ClickSideButton(XBUTTON2);
            break;
    }
}

void TurnWheel() {
    Send({MouseEvent(MOUSEEVENTF_WHEEL, 0, 0, WHEEL_DELTA)});
}

void TurnWheelToTheSide() {
    Send({MouseEvent(MOUSEEVENTF_HWHEEL, 0, 0, WHEEL_DELTA)});
}

void MovePointerTo(POINT place) {
    const LONG x = Fraction(place.x, GetSystemMetrics(SM_XVIRTUALSCREEN),
                            GetSystemMetrics(SM_CXVIRTUALSCREEN));
    const LONG y = Fraction(place.y, GetSystemMetrics(SM_YVIRTUALSCREEN),
                            GetSystemMetrics(SM_CYVIRTUALSCREEN));
    Send({MouseEvent(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_VIRTUALDESK, x, y)});
}

void MovePointerBy(int x, int y) {
    POINT place{};
    GetCursorPos(&place);
    MovePointerTo({place.x + x, place.y + y});
}

void ClickAt(POINT place, MouseButton button) {
    MovePointerTo(place);
    Click(button);
}

}  // namespace ambrio::e2e
