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
    // every dpi. 0 twips per pixel count as 1.
    [[nodiscard]] static std::int32_t Thickness(std::int16_t pixelTwips);

    // Twips per pixel turn the lines' places into the buffer's.
    LineSet(std::int16_t pixelTwipsX, std::int16_t pixelTwipsY);

    // The buffer has to be the same at every call.
    void Show(std::span<const Line> lines, LightBuffer& buffer);

  private:
    struct Entry {
        RasterLine Place;
        Colour Light;
    };

    static bool Precedes(const Entry& one, const Entry& other);
    [[nodiscard]] Entry Rastered(const Line& line) const;

    float scaleX_;
    float scaleY_;
    std::vector<Entry> shown_;
    std::vector<Entry> next_;
};

}  // namespace ambrio
