#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "saver/animation/LightBuffer.h"
#include "saver/animation/Line.h"

namespace ambrio {

// The lines that a buffer shows. Showing the next ones changes only what differs: a line that
// stays costs nothing.
class LineSet {
  public:
    // The thickness of lines in the raster's measure: a little more than a pixel of 96 dpi, at
    // every dpi. Less than 1 twip per pixel counts as 1.
    [[nodiscard]] static std::int32_t Thickness(double twipsPerPixel);

    // Twips per pixel turn the lines' places into the buffer's.
    LineSet(double twipsPerPixelX, double twipsPerPixelY);

    // The lines come in the order of their keys. The buffer has to be the same at every call.
    void Show(std::span<const Line> lines, LightBuffer& buffer);

  private:
    void Change(const Line& line, Glow from, Glow to, LightBuffer& buffer) const;

    float scaleX_;
    float scaleY_;
    std::vector<Line> shown_;
};

}  // namespace ambrio
