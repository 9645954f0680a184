#include "saver/animation/LightBuffer.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace ambrio {
namespace {

constexpr int kTileShift = 5;
constexpr int kTile = 1 << kTileShift;
constexpr int kTileGap = 2;      // copying two unchanged tiles costs less than another copy call
constexpr int kCoverages = 32;   // steps from untouched to covered
constexpr int kOne = 1 << 16;    // of the walk's fixed point numbers
constexpr int kRasterShift = 8;  // from the raster's measure to the walk's
constexpr std::size_t kTones = 1024;

std::array<std::uint8_t, kTones> MakeTones() {
    std::array<std::uint8_t, kTones> tones{};
    for (std::size_t light = 0; light < kTones; ++light) {
        const double tone = 255 * (1 - std::exp(-static_cast<double>(light) / 210));
        tones[light] = static_cast<std::uint8_t>(std::lround(tone));
    }
    return tones;
}

std::uint32_t Tone(std::uint64_t component) {
    static const std::array<std::uint8_t, kTones> tones = MakeTones();
    return tones[std::min<std::size_t>(component & 0xFFFF, kTones - 1)];
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
    std::int64_t Across;         // where the middle of the line is at First
    std::int64_t AcrossPerStep;  // how much further at each next pixel
    std::int64_t Reach;          // how far from the middle the line still leaves light, across
    std::int64_t HalfWidth;      // the same measured at right angles to the line
    std::int64_t Cosine;         // from across to right angles
};

LightBuffer::LightBuffer(std::int32_t width, std::int32_t height, std::uint32_t* pixels)
    : width_(width),
      height_(height),
      pixels_(pixels),
      tileColumns_((width + kTile - 1) >> kTileShift),
      tileRows_((height + kTile - 1) >> kTileShift),
      sums_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)),
      tiles_(static_cast<std::size_t>(tileColumns_) * static_cast<std::size_t>(tileRows_)) {}

void LightBuffer::SetThickness(std::int32_t thickness) {
    thickness_ = std::max(thickness, 256);
}

void LightBuffer::MarkTile(std::int32_t x, std::int32_t y) {
    tiles_[static_cast<std::size_t>((y >> kTileShift) * tileColumns_ + (x >> kTileShift))] = 1;
}

void LightBuffer::Touch(std::int32_t x, std::int32_t y, Sum change) {
    const auto index = static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                       static_cast<std::size_t>(x);
    // Out and in are the same numbers, so that the wrapping arithmetic is exact.
    const Sum sum = sums_[index] += change;
    pixels_[index] = Tone(sum >> 32) << 16 | Tone(sum >> 16) << 8 | Tone(sum);
}

template <bool Steep>
void LightBuffer::Draw(const Walk& walk, std::span<const Sum> changes) {
    const std::int32_t lastAcross = (Steep ? width_ : height_) - 1;
    std::int64_t middle = walk.Across;
    for (std::int32_t along = walk.First; along <= walk.Last;
         ++along, middle += walk.AcrossPerStep) {
        const auto from =
            static_cast<std::int32_t>(std::max<std::int64_t>((middle - walk.Reach) / kOne, 0));
        const auto to = static_cast<std::int32_t>(
            std::min<std::int64_t>((middle + walk.Reach) / kOne, lastAcross));
        for (std::int32_t across = from; across <= to; ++across) {
            const std::int64_t centre = std::int64_t{across} * kOne + kOne / 2;
            const std::int64_t distance = std::abs(centre - middle) * walk.Cosine / kOne;
            const std::int64_t light = (walk.HalfWidth - distance) * kCoverages / kOne;
            if (light > 0) {
                const auto coverage = std::min<std::int64_t>(light, kCoverages);
                Touch(Steep ? across : along, Steep ? along : across,
                      changes[static_cast<std::size_t>(coverage)]);
            }
        }
        if (from <= to) {
            MarkTile(Steep ? from : along, Steep ? along : from);
            MarkTile(Steep ? to : along, Steep ? along : to);
        }
    }
}

void LightBuffer::Change(const RasterLine& line, Colour from, Colour to) {
    std::int64_t along = line.FromX;
    std::int64_t across = line.FromY;
    std::int64_t alongLength = line.ToX - along;
    std::int64_t acrossLength = line.ToY - across;
    const bool steep = std::abs(acrossLength) > std::abs(alongLength);
    if (steep) {
        std::swap(along, across);
        std::swap(alongLength, acrossLength);
    }
    if (alongLength == 0) {
        return;
    }
    if (alongLength < 0) {
        along += alongLength;
        across += acrossLength;
        alongLength = -alongLength;
        acrossLength = -acrossLength;
    }

    constexpr int kHalf = kOne >> (kRasterShift + 1);  // half a pixel of the raster's
    Walk walk{};
    const std::int32_t size = steep ? height_ : width_;
    walk.First =
        static_cast<std::int32_t>(std::max<std::int64_t>((along + kHalf - 1) >> kRasterShift, 0));
    walk.Last = static_cast<std::int32_t>(
        std::min<std::int64_t>(((along + alongLength - kHalf) >> kRasterShift), size - 1));
    walk.AcrossPerStep = acrossLength * kOne / alongLength;
    const std::int64_t toFirst = (std::int64_t{walk.First} << kRasterShift) + kHalf - along;
    walk.Across = (across << kRasterShift) + ((walk.AcrossPerStep * toFirst) >> kRasterShift);
    const double length =
        std::hypot(static_cast<double>(alongLength), static_cast<double>(acrossLength));
    walk.Cosine = std::lround(static_cast<double>(alongLength) * kOne / length);
    walk.HalfWidth = (std::int64_t{thickness_} << (kRasterShift - 1)) + kOne / 2;
    walk.Reach = walk.HalfWidth * kOne / walk.Cosine;

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

std::span<const PixelRect> LightBuffer::TakeChanges() {
    changes_.clear();
    for (std::int32_t row = 0; row < tileRows_; ++row) {
        const std::int32_t top = row << kTileShift;
        const std::int32_t bottom = std::min(top + kTile, height_);
        std::int32_t lastChanged = -kTileGap - 2;
        for (std::int32_t column = 0; column < tileColumns_; ++column) {
            std::uint8_t& tile = tiles_[static_cast<std::size_t>(row * tileColumns_ + column)];
            if (tile == 0) {
                continue;
            }
            tile = 0;
            const std::int32_t left = column << kTileShift;
            const std::int32_t right = std::min(left + kTile, width_);
            if (column - lastChanged <= kTileGap + 1) {
                changes_.back().Right = right;
            } else {
                changes_.push_back({left, top, right, bottom});
            }
            lastChanged = column;
        }
    }
    return changes_;
}

}  // namespace ambrio
