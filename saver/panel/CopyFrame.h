#pragma once

#include <memory>
#include <string>

#include "platform/win32/windows/FormTimer.h"
#include "platform/win32/windows/PixelBuffer.h"
#include "platform/win32/windows/Window.h"
#include "saver/panel/ClipControl.h"

namespace ambrio {

// fraAni: the frame inside the panel with the clip that plays while files are copied. It starts
// hidden and lets the pointer through to the panel. It draws the clip by itself, on its own colour
// and as large as pixels of 96 dpi are, or as its room allows. A clip that cannot be opened leaves
// it empty.
class CopyFrame : public Window {
  public:
    // Place in pixels of the parent; `pixelSize` is how many of them a pixel of 96 dpi takes.
    CopyFrame(HWND parent, const RECT& place, double pixelSize, COLORREF colour);
    ~CopyFrame() override;

    void OpenClip(const std::wstring& path);
    void PlayClip();
    void StopClip();
    void CloseClip();

    // Takes another place and size of pixels, as the constructor has them.
    void Resize(const RECT& place, double pixelSize);

    // Comes up in front of the labels that it covers. Painted with the next WM_PAINT, so that a
    // colour that is matched right after it is the first that is seen.
    void Show(bool visible);
    [[nodiscard]] bool IsShown() const { return isShown_; }
    // Shows all of it again, if it is shown at all: the panel has moved.
    void Repaint();
    // Seen at once.
    void SetBackColor(COLORREF colour);

  protected:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Redraw();
    void Draw();
    void DrawClip();

    double pixelSize_;
    FormTimer pictures_;  // ticks while the clip plays
    std::unique_ptr<ClipControl> clip_;
    std::unique_ptr<PixelBuffer> picture_;  // of the whole frame; null without memory for it
    COLORREF colour_;
    bool isShown_ = false;
    bool isStale_ = true;  // the picture shows another clip or colour
};

}  // namespace ambrio
