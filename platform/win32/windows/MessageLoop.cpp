#include "platform/win32/windows/MessageLoop.h"

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {
namespace {

void Dispatch(const MSG& message) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

}  // namespace

void HandleWaitingMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        Dispatch(message);
    }
}

void RunMessageLoop() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        Dispatch(message);
    }
}

}  // namespace ambrio
