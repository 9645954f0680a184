#pragma once

#include <memory>
#include <span>

#include "platform/win32/windows/ScreenTwips.h"
#include "platform/win32/windows/Window.h"
#include "saver/animation/ColourFamily.h"
#include "saver/animation/Line.h"

namespace ambrio {

// The picture behind the frame: lines of light on black, kept in a buffer as large as the form, so
// that every repaint is one copy. To be used on the window's thread.
class LineCanvas {
  public:
    // The window is not owned and needs WS_CLIPCHILDREN. When the system has destroyed it, nothing
    // is shown any more.
    explicit LineCanvas(const Window& window);
    ~LineCanvas();
    LineCanvas(const LineCanvas&) = delete;
    LineCanvas& operator=(const LineCanvas&) = delete;

    // Shows these lines, in the order of their keys, and no others at once; only what changed since
    // the last call is drawn, in the palette's colours. Follows the window's size by itself.
    // Without memory for the buffer the window is black, and every hundredth call asks for memory
    // again. `twips` are those of the lines' places.
    void Draw(std::span<const Line> lines, const Palette& palette, const ScreenTwips& twips);

    // Shows this part of the picture again, at once: something that lay before it has moved.
    void Repaint(const RECT& part) const;

    // For WM_PAINT (WM_ERASEBKGND only returns 1): copies the part of the picture to the device
    // context of the window, black where there is none yet.
    void Paint(HDC target, const RECT& part) const;

  private:
    class Buffer;

    void MakeBuffer(const ScreenTwips& twips);

    const Window& window_;
    std::unique_ptr<Buffer> buffer_;
    SIZE refused_{};  // what there was no memory for
    int callsToNextTry_ = 0;
};

}  // namespace ambrio
