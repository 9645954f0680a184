#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "platform/win32/windows/GdiHandles.h"

namespace ambrio {

// A picture in memory that the system draws into and whose pixels can be reached as well: 32 bits
// each, 0x00RRGGBB, the top row first.
class PixelBuffer {
  public:
    // A black picture of that many pixels; null without memory for it.
    [[nodiscard]] static std::unique_ptr<PixelBuffer> Make(const SIZE& size);

    [[nodiscard]] HDC DC() const { return dc_.get(); }
    [[nodiscard]] const SIZE& Size() const { return size_; }
    // Valid as long as the buffer. After the system has drawn, GdiFlush() has to come first.
    [[nodiscard]] std::span<std::uint32_t> Pixels() const { return pixels_; }

    // Copies a rectangle of the picture to the same place of another device context.
    void CopyTo(HDC target, const RECT& part) const;

    PixelBuffer(const SIZE& size, UniqueMemoryDC dc, UniqueBitmap bitmap, std::uint32_t* pixels);

  private:
    SIZE size_;
    // The order matters: the selection ends before bitmap and device context go away.
    UniqueMemoryDC dc_;
    UniqueBitmap bitmap_;
    SelectedObject selection_;
    std::span<std::uint32_t> pixels_;
};

}  // namespace ambrio
