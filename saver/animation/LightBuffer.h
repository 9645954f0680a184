#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <tuple>
#include <vector>

#include "saver/animation/ColourFamily.h"
#include "saver/animation/Line.h"

namespace ambrio {

// A line in the raster's own measure: 256ths of a pixel, whole numbers throughout, so that taking
// a line out undoes putting it in to the last bit.
struct RasterLine {
    std::int32_t FromX;
    std::int32_t FromY;
    std::int32_t ToX;
    std::int32_t ToY;

    bool operator==(const RasterLine&) const = default;
    bool operator<(const RasterLine& other) const {
        return std::tie(FromX, FromY, ToX, ToY) <
               std::tie(other.FromX, other.FromY, other.ToX, other.ToY);
    }
};

// Pixels: right and bottom are the first ones outside.
struct PixelRect {
    std::int32_t Left;
    std::int32_t Top;
    std::int32_t Right;
    std::int32_t Bottom;

    bool operator==(const PixelRect&) const = default;
};

// Light on a dark ground. Lines add up where they cross, in any order; a pixel shows the sum
// through a curve that never quite reaches full white, so that crossings glow and none is a blot.
// Light is kept as amounts of the palette's two colours: with the pixels that is two pictures of
// the screen's size, where three colours of their own would take three.
class LightBuffer {
  public:
    // The thickness of lines, in the raster's measure: a pixel at least, 64 pixels at most; what
    // lies beyond counts as the nearer of the two.
    static constexpr std::int32_t kThinnest = 256;
    static constexpr std::int32_t kThickest = 64 * 256;

    // `pixels` holds width * height values 0x00RRGGBB, top row first, is black and not owned.
    LightBuffer(std::int32_t width, std::int32_t height, std::uint32_t* pixels,
                std::int32_t thickness);

    // The colours of what is drawn from now on. What is there keeps its own until another line
    // touches it: a palette that walks slowly is never seen to differ.
    void SetPalette(const Palette& palette);

    // Replaces the light of a line: from none puts it in, to none takes it out. A line with an end
    // more than 16,000 pixels away is not drawn.
    void Change(const RasterLine& line, Glow from, Glow to);

    // The parts of the picture that changed since the last call, without overlaps: every pixel that
    // has changed lies in one of them.
    [[nodiscard]] std::span<const PixelRect> TakeChanges();

  private:
    struct Walk;
    using Sum = std::uint32_t;  // of both colours in 16 bits each

    static constexpr std::size_t kLevels = 128;  // of each colour's light

    [[nodiscard]] Walk WalkAlong(std::int32_t along, std::int32_t across, std::int32_t alongLength,
                                 std::int32_t acrossLength, std::int32_t size) const;
    void MarkTile(std::int32_t x, std::int32_t y);
    template <bool Steep>
    void MarkTiles(std::int32_t along, std::int32_t from, std::int32_t to);
    void TakeChangesOf(std::int32_t row);
    template <bool Steep>
    void Draw(const Walk& walk, std::span<const Sum> changes);

    std::int32_t width_;
    std::int32_t height_;
    std::uint32_t* pixels_;
    std::int32_t thickness_;
    std::int32_t tileColumns_;
    std::int32_t tileRows_;
    // The pixel for each two levels, those with the same level of the first colour together.
    std::vector<std::uint32_t> shown_;
    std::vector<Sum> sums_;
    std::vector<std::uint8_t> tiles_;
    std::vector<PixelRect> changes_;
};

}  // namespace ambrio
