#pragma once

#include <memory>

#include "platform/win32/windows/GdiHandles.h"

namespace ambrio {

// A picture in memory that windows paint themselves from, so that nothing is ever seen half drawn.
// When the system cannot make it, DC() is null and copying does nothing.
class BackBuffer {
  public:
    BackBuffer() = default;
    // Sizes in pixels; the picture starts black and has the screen's colours.
    BackBuffer(int width, int height);
    ~BackBuffer() = default;
    BackBuffer(BackBuffer&&) noexcept = default;
    BackBuffer& operator=(BackBuffer&& other) noexcept;

    [[nodiscard]] HDC DC() const { return dc_.get(); }
    [[nodiscard]] int Width() const { return width_; }
    [[nodiscard]] int Height() const { return height_; }

    // Copies a rectangle of the picture to (left, top) of another device context.
    void CopyTo(HDC target, int left, int top, const RECT& part) const;

  private:
    int width_ = 0;
    int height_ = 0;
    // The order matters: the selection ends before bitmap and device context go away.
    UniqueMemoryDC dc_;
    UniqueBitmap bitmap_;
    std::unique_ptr<SelectedObject> selection_;
};

}  // namespace ambrio
