#include "saver/animation/LightBuffer.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace ambrio {
namespace {

constexpr int kTileShift = 4;
constexpr int kTile = 1 << kTileShift;
constexpr int kTileGap = 1;  // copying an unchanged tile costs no more than another part
constexpr int kCoverageShift = 5;
constexpr int kCoverages = 1 << kCoverageShift;  // steps from untouched to covered
constexpr int kWalkShift = 16;                   // of the walk's fixed point numbers
constexpr int kOne = 1 << kWalkShift;
constexpr int kRasterShift = 8;  // of the lines' places; also from them to the walk's numbers
constexpr int kRasterUnit = 1 << kRasterShift;
constexpr int kFarthest = 16000 * kRasterUnit;  // what the walk's numbers can hold, and no screen
constexpr std::size_t kMostLight = 1024;        // more looks the same

// How bright so much light looks: 0 to 255.
double ToneOf(std::size_t light) {
    return 255 * (1 - std::exp(-static_cast<double>(light) / 210));
}

std::array<std::uint8_t, kMostLight> MakeTones() {
    std::array<std::uint8_t, kMostLight> tones{};
    for (std::size_t light = 0; light < kMostLight; ++light) {
        tones[light] = static_cast<std::uint8_t>(std::lround(ToneOf(light)));
    }
    return tones;
}

const std::array<std::uint8_t, kMostLight> kTones = MakeTones();

// Light in levels: from one to the next, the tone changes by two.
std::array<std::uint8_t, kMostLight> MakeLevels() {
    std::array<std::uint8_t, kMostLight> levels = MakeTones();
    for (std::uint8_t& level : levels) {
        level >>= 1U;
    }
    return levels;
}

const std::array<std::uint8_t, kMostLight> kLevelOf = MakeLevels();

std::uint32_t Packed(Glow light, std::uint32_t coverage) {
    const auto part = [=](std::uint8_t amount) { return amount * coverage / kCoverages; };
    return part(light.First) << 16 | part(light.Second);
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
      shown_(kLevels * kLevels),
      sums_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)),
      tiles_(static_cast<std::size_t>(tileColumns_) * static_cast<std::size_t>(tileRows_)) {}

void LightBuffer::MarkTile(std::int32_t x, std::int32_t y) {
    const std::int32_t tile = (y >> kTileShift) * tileColumns_ + (x >> kTileShift);
    tiles_[static_cast<std::size_t>(tile)] = 1;
}

void LightBuffer::SetPalette(const Palette& palette) {
    // The least light of each level.
    std::array<std::uint32_t, kLevels> lights{};
    for (std::uint32_t light = kMostLight; light-- > 0;) {
        lights[kLevelOf[light]] = light;
    }
    const auto& [one, other] = palette;
    for (std::size_t first = 0; first < kLevels; ++first) {
        for (std::size_t second = 0; second < kLevels; ++second) {
            const auto tone = [&](std::uint32_t ofOne, std::uint32_t ofOther) -> std::uint32_t {
                const std::uint32_t light =
                    (lights[first] * ofOne + lights[second] * ofOther) / 255;
                return kTones[std::min<std::size_t>(light, kMostLight - 1)];
            };
            shown_[first * kLevels + second] = tone(one.Red, other.Red) << 16U |
                                               tone(one.Green, other.Green) << 8U |
                                               tone(one.Blue, other.Blue);
        }
    }
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
    constexpr Sum kMost = kMostLight - 1;
    constexpr int kLightShift = kWalkShift - kCoverageShift;
    const std::ptrdiff_t next = Steep ? 1 : width_;
    const std::int32_t lastAcross = (Steep ? width_ : height_) - 1;
    const std::uint32_t* const shown = shown_.data();
    std::int32_t middle = walk.Across;
    std::int32_t lowest = lastAcross + 1;  // what has been touched of the present row of tiles
    std::int32_t highest = -1;
    // Nothing but 32 bits and no multiplication for a pixel: this loop is what the animation costs.
    for (std::int32_t along = walk.First; along <= walk.Last;
         ++along, middle += walk.AcrossPerStep) {
        const std::int32_t from = std::max((middle - walk.Reach) >> kWalkShift, 0);
        const std::int32_t to = std::min((middle + walk.Reach) >> kWalkShift, lastAcross);
        const std::ptrdiff_t place =
            Steep ? std::ptrdiff_t{along} * width_ + from : std::ptrdiff_t{from} * width_ + along;
        Sum* sum = sums_.data() + place;
        std::uint32_t* pixel = pixels_ + place;
        const std::int32_t apart = (from << kWalkShift) + kOne / 2 - middle;
        // A line beside the screen is farther away than 32 bits hold, and then has no pixel here.
        auto distance = static_cast<std::int32_t>(
            (std::int64_t{apart >> kRasterShift} * walk.Cosine) >> kRasterShift);
        for (std::int32_t across = from; across <= to; ++across) {
            const std::int32_t light = (walk.HalfWidth - std::abs(distance)) >> kLightShift;
            if (light > 0) {
                // Out and in are the same numbers, so that the wrapping arithmetic is exact.
                *sum += changes[static_cast<std::size_t>(std::min(light, kCoverages))];
                *pixel = shown[kLevelOf[std::min(*sum >> 16U, kMost)] * kLevels +
                               kLevelOf[std::min(*sum & 0xFFFFU, kMost)]];
            }
            sum += next;
            pixel += next;
            distance += walk.Cosine;
        }
        if (from <= to) {
            lowest = std::min(lowest, from);
            highest = std::max(highest, to);
        }
        if (lowest <= highest && (along & (kTile - 1)) == kTile - 1) {
            MarkTiles<Steep>(along, lowest, highest);
            lowest = lastAcross + 1;
            highest = -1;
        }
    }
    if (lowest <= highest) {
        MarkTiles<Steep>(walk.Last, lowest, highest);
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
    // Without the runtime's calls for length and rounding, which cost as much as a short line.
    const double length =
        std::sqrt(double{1} * alongLength * alongLength + double{1} * acrossLength * acrossLength);
    constexpr double kToNearest = 0.5;
    walk.Cosine = static_cast<std::int32_t>(alongLength * (kOne / length) + kToNearest);
    walk.HalfWidth = (thickness_ << (kRasterShift - 1)) + kOne / 2;
    walk.Reach = static_cast<std::int32_t>(std::int64_t{walk.HalfWidth} * kOne / walk.Cosine);
    return walk;
}

void LightBuffer::Change(const RasterLine& line, Glow from, Glow to) {
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
