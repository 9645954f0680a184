#include "saver/animation/LightBuffer.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace ambrio {
namespace {

constexpr int kTileShift = 5;
constexpr int kTile = 1 << kTileShift;
constexpr int kTileGap = 2;  // copying two unchanged tiles costs less than another copy call
constexpr int kCoverageShift = 5;
constexpr int kCoverages = 1 << kCoverageShift;  // steps from untouched to covered
constexpr int kWalkShift = 16;                   // of the walk's fixed point numbers
constexpr int kOne = 1 << kWalkShift;
constexpr int kRasterShift = 8;  // of the lines' places; also from them to the walk's numbers
constexpr int kRasterUnit = 1 << kRasterShift;
constexpr int kFarthest = 16000 * kRasterUnit;  // what the walk's numbers can hold, and no screen
constexpr std::size_t kTones = 1024;

std::array<std::uint8_t, kTones> MakeTones() {
    std::array<std::uint8_t, kTones> tones{};
    for (std::size_t light = 0; light < kTones; ++light) {
        const double tone = 255 * (1 - std::exp(-static_cast<double>(light) / 210));
        tones[light] = static_cast<std::uint8_t>(std::lround(tone));
    }
    return tones;
}

const std::array<std::uint8_t, kTones> kToneOf = MakeTones();

std::uint32_t Tone(std::uint64_t component) {
    return kToneOf[std::min<std::size_t>(component & 0xFFFF, kTones - 1)];
}

std::uint64_t Packed(Colour colour, std::uint32_t coverage) {
    const auto part = [=](std::uint8_t component) -> std::uint64_t {
        return component * coverage / kCoverages;
    };
    return part(colour.Red) << 32 | part(colour.Green) << 16 | part(colour.Blue);
}

}  // namespace

// One line on its way along the axis on which it is longer; `Across` is the other axis.
struct LightBuffer::Walk {
    std::int32_t First;          // pixels along
    std::int32_t Last;           // including
    std::int32_t Across;         // where the middle of the line is at First
    std::int32_t AcrossPerStep;  // how much further at each next pixel
    std::int32_t Reach;          // how far from the middle the line still leaves light, across
    std::int32_t HalfWidth;      // the same measured at right angles to the line
    std::int32_t Cosine;         // from across to right angles
};

LightBuffer::LightBuffer(std::int32_t width, std::int32_t height, std::uint32_t* pixels,
                         std::int32_t thickness)
    : width_(width),
      height_(height),
      pixels_(pixels),
      thickness_(std::clamp(thickness, kThinnest, kThickest)),
      tileColumns_((width + kTile - 1) >> kTileShift),
      tileRows_((height + kTile - 1) >> kTileShift),
      sums_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)),
      tiles_(static_cast<std::size_t>(tileColumns_) * static_cast<std::size_t>(tileRows_)) {}

void LightBuffer::MarkTile(std::int32_t x, std::int32_t y) {
    const std::int32_t tile = (y >> kTileShift) * tileColumns_ + (x >> kTileShift);
    tiles_[static_cast<std::size_t>(tile)] = 1;
}

void LightBuffer::Touch(std::int32_t x, std::int32_t y, Sum change) {
    const auto index = static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                       static_cast<std::size_t>(x);
    // Out and in are the same numbers, so that the wrapping arithmetic is exact.
    const Sum sum = sums_[index] += change;
    pixels_[index] = Tone(sum >> 32) << 16 | Tone(sum >> 16) << 8 | Tone(sum);
}

// The tiles from end to end across the line, both included; a thick line has tiles in between.
template <bool Steep>
void LightBuffer::MarkTiles(std::int32_t along, std::int32_t from, std::int32_t to) {
    for (std::int32_t across = from; across < to; across += kTile) {
        MarkTile(Steep ? across : along, Steep ? along : across);
    }
    MarkTile(Steep ? to : along, Steep ? along : to);
}

template <bool Steep>
void LightBuffer::Draw(const Walk& walk, std::span<const Sum> changes) {
    // Nothing but 32 bits in here: this loop is what a step of the animation costs.
    constexpr int kLightShift = kWalkShift - kCoverageShift;
    const std::int32_t lastAcross = (Steep ? width_ : height_) - 1;
    std::int32_t middle = walk.Across;
    for (std::int32_t along = walk.First; along <= walk.Last;
         ++along, middle += walk.AcrossPerStep) {
        const std::int32_t from = std::max((middle - walk.Reach) >> kWalkShift, 0);
        const std::int32_t to = std::min((middle + walk.Reach) >> kWalkShift, lastAcross);
        for (std::int32_t across = from; across <= to; ++across) {
            const std::int32_t apart = std::abs((across << kWalkShift) + kOne / 2 - middle);
            const std::int32_t distance = (apart >> kRasterShift) * walk.Cosine >> kRasterShift;
            const std::int32_t light = (walk.HalfWidth - distance) >> kLightShift;
            if (light > 0) {
                Touch(Steep ? across : along, Steep ? along : across,
                      changes[static_cast<std::size_t>(std::min(light, kCoverages))]);
            }
        }
        if (from <= to) {
            MarkTiles<Steep>(along, from, to);
        }
    }
}

LightBuffer::Walk LightBuffer::WalkAlong(std::int32_t along, std::int32_t across,
                                         std::int32_t alongLength, std::int32_t acrossLength,
                                         std::int32_t size) const {
    constexpr int kHalf = kRasterUnit / 2;
    Walk walk{};
    walk.First = std::max((along + kHalf - 1) >> kRasterShift, 0);
    walk.Last = std::min((along + alongLength - kHalf) >> kRasterShift, size - 1);
    walk.AcrossPerStep = static_cast<std::int32_t>(std::int64_t{acrossLength} * kOne / alongLength);
    const std::int64_t toFirst = (walk.First << kRasterShift) + kHalf - along;
    walk.Across = (across << kRasterShift) +
                  static_cast<std::int32_t>((walk.AcrossPerStep * toFirst) >> kRasterShift);
    const double length = std::hypot(alongLength, acrossLength);
    walk.Cosine = static_cast<std::int32_t>(std::lround(alongLength * (kOne / length)));
    walk.HalfWidth = (thickness_ << (kRasterShift - 1)) + kOne / 2;
    walk.Reach = static_cast<std::int32_t>(std::int64_t{walk.HalfWidth} * kOne / walk.Cosine);
    return walk;
}

void LightBuffer::Change(const RasterLine& line, Colour from, Colour to) {
    for (const std::int32_t place : {line.FromX, line.FromY, line.ToX, line.ToY}) {
        if (std::abs(place) > kFarthest) {
            return;
        }
    }
    const bool steep = std::abs(line.ToY - line.FromY) > std::abs(line.ToX - line.FromX);
    std::int32_t along = steep ? line.FromY : line.FromX;
    std::int32_t across = steep ? line.FromX : line.FromY;
    std::int32_t alongLength = (steep ? line.ToY : line.ToX) - along;
    std::int32_t acrossLength = (steep ? line.ToX : line.ToY) - across;
    if (alongLength == 0) {
        return;
    }
    if (alongLength < 0) {
        along += alongLength;
        across += acrossLength;
        alongLength = -alongLength;
        acrossLength = -acrossLength;
    }
    const Walk walk = WalkAlong(along, across, alongLength, acrossLength, steep ? height_ : width_);

    std::array<Sum, kCoverages + 1> changes{};
    for (std::uint32_t coverage = 0; coverage <= kCoverages; ++coverage) {
        changes[coverage] = Packed(to, coverage) - Packed(from, coverage);
    }
    if (steep) {
        Draw<true>(walk, changes);
    } else {
        Draw<false>(walk, changes);
    }
}

void LightBuffer::TakeChangesOf(std::int32_t row) {
    const auto first = tiles_.begin() + std::ptrdiff_t{row} * tileColumns_;
    const auto end = first + tileColumns_;
    const std::int32_t top = row << kTileShift;
    const std::int32_t bottom = std::min(top + kTile, height_);
    std::ptrdiff_t lastChanged = -kTileGap - 2;
    for (auto tile = std::find(first, end, 1); tile != end; tile = std::find(tile, end, 1)) {
        *tile = 0;
        const std::ptrdiff_t column = tile - first;
        const auto left = static_cast<std::int32_t>(column << kTileShift);
        const std::int32_t right = std::min(left + kTile, width_);
        if (column - lastChanged <= kTileGap + 1) {
            changes_.back().Right = right;
        } else {
            changes_.push_back({left, top, right, bottom});
        }
        lastChanged = column;
    }
}

std::span<const PixelRect> LightBuffer::TakeChanges() {
    changes_.clear();
    for (std::int32_t row = 0; row < tileRows_; ++row) {
        TakeChangesOf(row);
    }
    return changes_;
}

}  // namespace ambrio
