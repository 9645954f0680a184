#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "platform/win32/windows/PixelBuffer.h"
#include "platform/win32/windows/Window.h"

namespace ambrio {

// Animation1: the system's animation control, which opens and plays a clip. It takes the clip's
// size and lies below its parent's lower edge, where nobody sees it: it can only show a clip pixel
// by pixel, in colours settled when it opens it. Whoever shows the clip takes picture after picture
// from it. Without a clip that can be opened there are none.
class ClipControl {
  public:
    // The parent is not owned. The control goes with it.
    explicit ClipControl(const Window& parent);

    // To be called when the parent has become another size.
    void LieBelow();

    void Open(const std::wstring& path);
    void Play();
    void Stop();
    void Close();

    // The picture that the clip shows now. Null when there is none, or no memory for it; valid
    // until the next call.
    [[nodiscard]] const PixelBuffer* Picture();
    // The colour of the clip's first pixel, which marks what is to be seen through.
    [[nodiscard]] std::uint32_t ClearColour() const { return clearColour_; }

  private:
    [[nodiscard]] HWND Handle() const;

    const Window& parent_;
    std::unique_ptr<PixelBuffer> picture_;
    std::uint32_t clearColour_ = 0;
};

}  // namespace ambrio
