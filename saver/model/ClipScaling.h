#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace ambrio {

// A picture in the size in which it is shown: colours that are already multiplied by how much of
// each pixel they cover, and that share, all from 0 to 1; the top row first.
class ScaledPicture {
  public:
    ScaledPicture() = default;

    // Scales a picture of `width` columns (0x00RRGGBB, the top row first) by `scale`, smoothly;
    // pixels of the colour `clear` are left out.
    ScaledPicture(std::span<const std::uint32_t> pixels, int width, std::uint32_t clear,
                  double scale);

    [[nodiscard]] int Width() const { return width_; }
    [[nodiscard]] int Height() const { return height_; }

    // Lays the picture into the middle of a target of `width` columns; what does not fit is cut.
    void DrawInto(std::span<std::uint32_t> target, int width) const;

  private:
    struct Pixel {
        float Red = 0;
        float Green = 0;
        float Blue = 0;
        float Share = 0;
    };

    [[nodiscard]] static Pixel PixelOf(std::uint32_t pixel, std::uint32_t clear);
    [[nodiscard]] static std::uint32_t Over(const Pixel& pixel, std::uint32_t below);

    int width_ = 0;
    int height_ = 0;
    std::vector<Pixel> pixels_;
};

// How large a clip is shown: each of its pixels as one of 96 dpi, of which there are `pixelSize` to
// a pixel of the screen, but never more than fits into the room. 0 for a clip without any size.
[[nodiscard]] double ClipScale(int width, int height, int roomAcross, int roomDown,
                               double pixelSize);

}  // namespace ambrio
