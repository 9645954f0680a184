#pragma once

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// What a window is made of. Places are pixels: of the screen, or of the parent for a child.
struct WindowDesign {
    const wchar_t* ClassName = nullptr;  // registered by the first window of that class
    UINT ClassStyle = 0;                 // the same for every window of that class
    const wchar_t* Text = L"";
    DWORD Style = 0;
    DWORD ExtendedStyle = 0;
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
    HWND Parent = nullptr;
    int ControlId = 0;
};

// The design of a visible child at a place of its parent.
[[nodiscard]] WindowDesign ChildDesign(const wchar_t* className, HWND parent, int controlId,
                                       const RECT& place);

// A window of a class of our own. The object receives the messages of its window; when the window
// is gone, Handle() is null and the object goes on living. A failure that leaves Receive ends the
// program with its box, as no exception may pass through the system's code.
class Window {
  public:
    virtual ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    [[nodiscard]] HWND Handle() const { return handle_; }

  protected:
    Window() = default;

    // Throws RuntimeError OutOfMemory when the system refuses to make the window.
    void Create(const WindowDesign& design);
    // Destroys the window, if there still is one. A derived class whose Receive does anything
    // calls this in its own destructor.
    void Destroy();

    // The answer to WM_PAINT: has the part that needs it drawn.
    template <typename Drawing>
    void Paint(const Drawing& draw) {
        PAINTSTRUCT paint;
        if (const HDC target = BeginPaint(handle_, &paint); target != nullptr) {
            draw(target, paint.rcPaint);
        }
        EndPaint(handle_, &paint);
    }

    // Handles one message; what is not handled goes on to this one.
    virtual LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

    HWND handle_ = nullptr;
};

}  // namespace ambrio
