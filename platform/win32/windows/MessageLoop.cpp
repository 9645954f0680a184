#include "platform/win32/windows/MessageLoop.h"

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {
namespace {

void Handle(const MSG& message) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

}  // namespace

void DoEvents() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        Handle(message);
    }
}

void RunMessageLoop() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        Handle(message);
    }
}

}  // namespace ambrio
