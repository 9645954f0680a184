#include "saver/animation/StringFigure.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace ambrio {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;

// Strings change their light in groups: neighbours lie on the same tiles of the picture, so that a
// group costs little more than one string.
constexpr int kGroup = 4;
// Light goes in levels, or each string would have to be redrawn in every picture. In 256ths of a
// figure's strength.
constexpr std::uint32_t kCalm = 256;
constexpr std::uint32_t kFresh = 460;
constexpr int kFreshStrings = 16;  // how long a string stays fresh
constexpr std::array<std::uint32_t, 2> kFading{150, 64};
constexpr double kFadeShare = 0.62;  // of a string's life that it spends fading

constexpr double kMargin = 0.004;     // of the form, at each edge
constexpr double kShallowest = 0.70;  // of a figure's reach, where it has breathed out

}  // namespace

const StringFigure::Pattern& StringFigure::AnyPattern(Random& random) {
    static const Pattern kPatterns[] = {
        {{1, 0, 0}, {2, 0, 0}},          // one cusp
        {{1, 0, 0}, {3, 0, 0}},          // two cusps
        {{1, 0, 0}, {4, 0, 0}},          // three
        {{2, 0, 0}, {5, 0, 0}},          // three around a wide middle
        {{1, 0, 0}, {1, 5, 0.30}},       // a whirl
        {{1, 7, 0.12}, {1, -5, 0.30}},   // a ribbon
        {{1, -3, 0.25}, {2, 5, 0.15}},   // a blossom
        {{1, -4, 0.30}, {1, -4, 0.30}},  // a woven rose
        {{1, 0, 0}, {1, -5, 0.45}},      // a wheel with a flower inside
        {{1, -2, 0.33}, {1, -2, 0.33}},  // a star of three
        {{1, 0, 0}, {-1, 2, 0.40}},      // a sail
        {{2, 0, 0}, {3, 0, 0}},          // a snail
    };
    return kPatterns[random.Index(std::size(kPatterns))];
}

StringFigure::Axis StringFigure::AnyAxis(double reach, Random& random) {
    return {reach, random.Between(0.35, 0.60), random.Between(0, 1),
            random.Between(0.16, 0.30) * random.Sign(), random.Between(0, 1)};
}

StringFigure::StringFigure(const Design& design, std::uint32_t key, Random& random)
    : design_(design),
      key_(key),
      pattern_(AnyPattern(random)),
      x_(AnyAxis(design.Across, random)),
      y_(AnyAxis(design.Down, random)),
      direction_(random.Sign()),
      heading_(random.Between(0, kTurn)),
      offset_(pattern_.First.Turns == pattern_.Second.Turns ? random.Between(1.6, 2.4) : 0),
      hueStart_(random.Between(0, kTurn)),
      round_(design.Strings),
      plateau_(static_cast<int>(round_ * (1 - kFadeShare))),
      level_(static_cast<int>(round_ * (kFadeShare / kFading.size()))) {
    laid_ = std::round(round_ * random.Between(2.2, 3.4));
    turning_ = random.Between(0.5, 1.1) / round_ * random.Sign();
}

StringFigure::Extent StringFigure::ExtentOf(const Axis& axis, double rounds) {
    const double breath = (1 + std::sin(kTurn * (axis.Breath * rounds + axis.BreathStart))) / 2;
    constexpr double kFurthest = 0.5 - kMargin;
    const double reach =
        std::min(axis.Reach * (kShallowest + (1 - kShallowest) * breath), kFurthest);
    const double room = kFurthest - reach;
    return {0.5 + room * std::sin(kTurn * (axis.Drift * rounds + axis.DriftStart)), reach};
}

StringFigure::Point StringFigure::PointOf(const Hand& hand, double angle, double offset) {
    const double turn = hand.Turns * angle + offset;
    const double wave = hand.WaveTurns * angle + offset;
    return {(1 - hand.Wave) * std::cos(turn) + hand.Wave * std::cos(wave),
            (1 - hand.Wave) * std::sin(turn) + hand.Wave * std::sin(wave)};
}

void StringFigure::Span() {
    const double rounds = next_ / round_;
    const double angle = direction_ * kTurn * rounds;
    const Extent across = ExtentOf(x_, rounds);
    const Extent down = ExtentOf(y_, rounds);
    const double cosine = std::cos(heading_ + turning_ * next_);
    const double sine = std::sin(heading_ + turning_ * next_);
    const auto placed = [&](const Point& point) {
        const double x = across.Middle + across.Reach * (point.X * cosine - point.Y * sine);
        const double y = down.Middle + down.Reach * (point.X * sine + point.Y * cosine);
        return Spot{static_cast<float>(x), static_cast<float>(y)};
    };
    const double light = 255 * design_.Strength;
    const double second = light * (1 + std::sin(angle + hueStart_)) / 2;
    const auto part = [](double amount) { return static_cast<std::uint8_t>(amount); };
    strings_.push_back({placed(PointOf(pattern_.First, angle, 0)),
                        placed(PointOf(pattern_.Second, angle, offset_)),
                        {part(light - second), part(second)},
                        next_});
    ++next_;
}

void StringFigure::Weave(double strings) {
    progress_ += strings * design_.Pace;
    while (next_ <= progress_ && next_ < laid_) {
        Span();
    }
    const auto faded = std::find_if(strings_.begin(), strings_.end(), [this](const String& string) {
        return Strength(string.Number) > 0;
    });
    strings_.erase(strings_.begin(), faded);
}

// In 256ths.
std::uint32_t StringFigure::Strength(int number) const {
    const int age = static_cast<int>(progress_) - number / kGroup * kGroup;
    if (age < kFreshStrings) {
        return kFresh;
    }
    if (age < plateau_) {
        return kCalm;
    }
    const auto faded = static_cast<std::size_t>((age - plateau_) / level_);
    return faded < kFading.size() ? kFading[faded] : 0;
}

void StringFigure::AppendTo(std::vector<Line>& lines, double width, double height) const {
    const auto across = static_cast<float>(width);
    const auto down = static_cast<float>(height);
    for (const String& string : strings_) {
        const std::uint32_t strength = Strength(string.Number);
        const auto part = [strength](std::uint8_t amount) {
            return static_cast<std::uint8_t>(std::min(amount * strength / kCalm, 255U));
        };
        lines.push_back({string.From.X * across,
                         string.From.Y * down,
                         string.To.X * across,
                         string.To.Y * down,
                         {part(string.Light.First), part(string.Light.Second)},
                         key_ + static_cast<std::uint32_t>(string.Number)});
    }
}

}  // namespace ambrio
