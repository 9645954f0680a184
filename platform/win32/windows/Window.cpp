#include "platform/win32/windows/Window.h"

#include <utility>

#include "platform/RuntimeError.h"
#include "platform/win32/windows/RuntimeErrorBox.h"

namespace ambrio {
namespace {

HINSTANCE Instance() {
    return GetModuleHandleW(nullptr);
}

// The object whose window this thread is making. Not taken from the message that says so, as other
// programs can send the same one.
thread_local Window* windowBeingMade = nullptr;

// Registering a class for the second time fails and changes nothing.
void RegisterWindowClass(const wchar_t* name, UINT style, WNDPROC procedure) {
    WNDCLASSEXW design{};
    design.cbSize = sizeof(design);
    design.style = style;
    design.lpfnWndProc = procedure;
    design.hInstance = Instance();
    design.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
    design.lpszClassName = name;
    RegisterClassExW(&design);
}

}  // namespace

WindowDesign ChildDesign(const wchar_t* className, HWND parent, int controlId, const RECT& place) {
    WindowDesign design;
    design.ClassName = className;
    design.Style = WS_CHILD | WS_VISIBLE;
    design.Left = place.left;
    design.Top = place.top;
    design.Width = place.right - place.left;
    design.Height = place.bottom - place.top;
    design.Parent = parent;
    design.ControlId = controlId;
    return design;
}

Window::~Window() {
    if (handle_ != nullptr) {
        // The derived part of the object is gone: it must hear of nothing any more.
        SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
        DestroyWindow(handle_);
    }
}

void Window::Create(const WindowDesign& design) {
    RegisterWindowClass(design.ClassName, design.ClassStyle, &Window::Procedure);
    const auto id = static_cast<INT_PTR>(design.ControlId);
    windowBeingMade = this;
    const HWND made =
        CreateWindowExW(design.ExtendedStyle, design.ClassName, design.Text, design.Style,
                        design.Left, design.Top, design.Width, design.Height, design.Parent,
                        reinterpret_cast<HMENU>(id), Instance(), nullptr);
    windowBeingMade = nullptr;
    if (made == nullptr) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
}

void Window::Destroy() {
    if (handle_ != nullptr) {
        DestroyWindow(handle_);
    }
}

LRESULT Window::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(handle_, message, wParam, lParam);
}

LRESULT CALLBACK Window::Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* window = reinterpret_cast<Window*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
    if (message == WM_NCCREATE) {
        if (window != nullptr) {
            return FALSE;  // the system makes a window only once
        }
        window = std::exchange(windowBeingMade, nullptr);
        SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(window));
        if (window != nullptr) {
            window->handle_ = handle;
        }
    }
    if (window == nullptr) {
        return DefWindowProcW(handle, message, wParam, lParam);
    }
    try {
        const LRESULT result = window->Receive(message, wParam, lParam);
        if (message == WM_NCDESTROY) {
            window->handle_ = nullptr;
        }
        return result;
    } catch (const RuntimeError& error) {
        EndWithRuntimeError(error);
    } catch (const std::exception&) {
        EndWithRuntimeError(RuntimeError(ErrorNumber::OutOfMemory));
    }
}

}  // namespace ambrio
