#include "tests/e2e/support/PreviewHost.h"

#include <future>

#include "tests/e2e/support/Handles.h"

namespace ambrio::e2e {
namespace {

// A window of the system's own class, which destroys itself when it is closed.
HWND MakeWindow(int width, int height) {
    return CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"Preview host", WS_POPUP | WS_VISIBLE, 40,
                           40, width, height, nullptr, nullptr, nullptr, nullptr);
}

void HandleMessages(HWND window) {
    MSG message;
    while (IsWindow(window) != FALSE && GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
}

}  // namespace

PreviewHost::PreviewHost(int width, int height) {
    std::promise<HWND> made;
    std::future<HWND> window = made.get_future();
    thread_ = std::thread([=, made = std::move(made)]() mutable {
        const HWND own = MakeWindow(width, height);
        made.set_value(own);
        HandleMessages(own);
    });
    window_ = window.get();
    if (window_ == nullptr) {
        thread_.join();
        ThrowWin32Error("making the window of a preview");
    }
}

PreviewHost::~PreviewHost() {
    DestroyWindow();
}

void PreviewHost::DestroyWindow() {
    if (thread_.joinable()) {
        PostMessageW(window_, WM_CLOSE, 0, 0);
        thread_.join();
    }
}

}  // namespace ambrio::e2e
