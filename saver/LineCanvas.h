#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "platform/win32/WindowsHeaders.h"
#include "saver/animation/Line.h"

namespace ambrio {

// The picture behind the frame: lines of light on black, kept in a buffer as large as the form, so
// that every repaint is one copy. The window is not owned and needs WS_CLIPCHILDREN. To be used on
// the window's thread.
class LineCanvas {
  public:
    explicit LineCanvas(HWND window);
    ~LineCanvas();
    LineCanvas(const LineCanvas&) = delete;
    LineCanvas& operator=(const LineCanvas&) = delete;

    // Shows these lines and no others at once; only what changed since the last call is drawn.
    // Follows the window's size by itself. Without memory for the buffer nothing is shown.
    void Draw(std::span<const Line> lines, std::int16_t pixelTwipsX, std::int16_t pixelTwipsY);

    // For WM_PAINT (WM_ERASEBKGND only returns 1): copies the part of the picture to the device
    // context of the window, black where there is none yet.
    void Paint(HDC target, const RECT& part) const;

  private:
    class Buffer;

    HWND window_;
    std::unique_ptr<Buffer> buffer_;
};

}  // namespace ambrio
