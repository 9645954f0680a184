#pragma once

#include <memory>
#include <type_traits>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

struct GdiObjectDeleter {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
struct MemoryDCDeleter {
    void operator()(HDC dc) const { DeleteDC(dc); }
};

// Owners of GDI objects; an empty one owns nothing. An object must not be selected into a device
// context when its owner goes away.
using UniqueBrush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, GdiObjectDeleter>;
using UniquePen = std::unique_ptr<std::remove_pointer_t<HPEN>, GdiObjectDeleter>;
using UniqueFont = std::unique_ptr<std::remove_pointer_t<HFONT>, GdiObjectDeleter>;
using UniqueBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, GdiObjectDeleter>;
using UniqueRegion = std::unique_ptr<std::remove_pointer_t<HRGN>, GdiObjectDeleter>;
using UniqueMemoryDC = std::unique_ptr<std::remove_pointer_t<HDC>, MemoryDCDeleter>;

// The device context of a window, or of the whole screen for null, for as long as it lives.
class WindowDC {
  public:
    explicit WindowDC(HWND window) : window_(window), dc_(GetDC(window)) {}
    ~WindowDC() { ReleaseDC(window_, dc_); }
    WindowDC(const WindowDC&) = delete;
    WindowDC& operator=(const WindowDC&) = delete;

    // Null when the window is gone.
    [[nodiscard]] HDC get() const { return dc_; }

  private:
    HWND window_;
    HDC dc_;
};

// Selects an object into a device context for as long as it lives.
class SelectedObject {
  public:
    SelectedObject(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
    ~SelectedObject() { SelectObject(dc_, previous_); }
    SelectedObject(const SelectedObject&) = delete;
    SelectedObject& operator=(const SelectedObject&) = delete;

  private:
    HDC dc_;
    HGDIOBJ previous_;
};

}  // namespace ambrio
