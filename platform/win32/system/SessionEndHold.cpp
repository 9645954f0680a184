#include "platform/win32/system/SessionEndHold.h"

namespace ambrio {
namespace {

constexpr const wchar_t* kClassName = L"AmbrioSessionEndHold";

}  // namespace

SessionEndHold::SessionEndHold(HWND window)
    : window_(window),
      isReady_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      released_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      thread_(CreateThread(nullptr, 0, &SessionEndHold::Run, this, 0, nullptr)) {
    if (thread_) {
        WaitForSingleObject(isReady_.get(), INFINITE);
    }
}

SessionEndHold::~SessionEndHold() {
    SetEvent(released_.get());
    if (thread_) {
        WaitForSingleObject(thread_.get(), INFINITE);
    }
}

void SessionEndHold::WaitUntilReleased() const {
    WaitForSingleObject(released_.get(), INFINITE);
}

DWORD WINAPI SessionEndHold::Run(LPVOID self) {
    const auto& hold = *static_cast<SessionEndHold*>(self);
    WNDCLASSEXW design{};
    design.cbSize = sizeof design;
    design.lpfnWndProc = &SessionEndHold::Procedure;
    design.hInstance = GetModuleHandleW(nullptr);
    design.lpszClassName = kClassName;
    RegisterClassExW(&design);
    const HWND window = CreateWindowExW(WS_EX_TOOLWINDOW, kClassName, nullptr, WS_POPUP, 0, 0, 0, 0,
                                        nullptr, nullptr, design.hInstance, nullptr);
    if (window != nullptr) {
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    SetEvent(hold.isReady_.get());
    if (window == nullptr) {
        return 0;
    }
    const HANDLE released = hold.released_.get();
    while (MsgWaitForMultipleObjects(1, &released, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            DispatchMessageW(&message);
        }
    }
    DestroyWindow(window);
    return 0;
}

LRESULT CALLBACK SessionEndHold::Procedure(HWND handle, UINT message, WPARAM wParam,
                                           LPARAM lParam) {
    const auto* hold =
        reinterpret_cast<const SessionEndHold*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
    if (hold != nullptr && message == WM_ENDSESSION && wParam != FALSE) {
        // The system may tell that window only when this one has answered.
        SendNotifyMessageW(hold->window_, message, wParam, lParam);
        hold->WaitUntilReleased();
        return 0;
    }
    if (message == WM_CLOSE) {
        return 0;  // the object's life is nobody else's business
    }
    if (hold != nullptr && message == WM_NCCREATE) {
        return FALSE;  // made up by another program, and so is the pointer that comes with it
    }
    return DefWindowProcW(handle, message, wParam, lParam);
}

}  // namespace ambrio
