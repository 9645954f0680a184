#include "saver/animation/StringFigure.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "saver/animation/ColourFamily.h"

namespace ambrio {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kStringDistance = 190;  // twips between neighbours at the rim, if all is even
constexpr double kFewestStrings = 64;
constexpr double kMostStrings = 260;
constexpr double kStringsPerStep = 1;

constexpr double kStrength = 0.46;
constexpr double kFreshStrength = 0.90;  // of the newest string
constexpr double kFreshStrings = 2;      // how long it takes to calm down
constexpr double kFadeShare = 0.45;      // of a string's life that it spends fading
constexpr int kFadeLevels = 4;           // each level is one redrawing of the string

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

StringFigure::StringFigure(const Place& place, Random& random)
    : place_(place),
      pattern_(AnyPattern(random)),
      direction_(random.Sign()),
      heading_(random.Between(0, kTurn)),
      offset_(pattern_.First.Turns == pattern_.Second.Turns ? random.Between(1.6, 2.4) : 0),
      hueStart_(random.Between(0, kTurn)) {
    round_ = std::round(
        std::clamp(kTurn * place.Radius / kStringDistance, kFewestStrings, kMostStrings));
    laid_ = std::round(round_ * random.Between(2.2, 3.4));
    turning_ = random.Between(0.15, 0.45) / round_ * random.Sign();
}

StringFigure::Point StringFigure::PointOf(const Hand& hand, double angle, double offset) const {
    const double turn = hand.Turns * angle + offset;
    const double wave = hand.WaveTurns * angle + offset;
    const double across = (1 - hand.Wave) * std::cos(turn) + hand.Wave * std::cos(wave);
    const double down = (1 - hand.Wave) * std::sin(turn) + hand.Wave * std::sin(wave);
    const double cosine = std::cos(heading_ + turning_ * next_);
    const double sine = std::sin(heading_ + turning_ * next_);
    return {place_.X + place_.Radius * (across * cosine - down * sine),
            place_.Y + place_.Radius * (across * sine + down * cosine)};
}

void StringFigure::Span(Colour frame) {
    const double angle = direction_ * kTurn * next_ / round_;
    const Point from = PointOf(pattern_.First, angle, 0);
    const Point to = PointOf(pattern_.Second, angle, offset_);
    const Line line{static_cast<float>(from.X), static_cast<float>(from.Y),
                    static_cast<float>(to.X), static_cast<float>(to.Y),
                    LineColour(frame, std::sin(angle + hueStart_))};
    strings_.push_back({line, next_});
    next_ += 1;
}

void StringFigure::Step(Colour frame, double pace) {
    progress_ += kStringsPerStep * pace;
    while (next_ <= progress_ && next_ < laid_) {
        Span(frame);
    }
    const double oldest = progress_ - round_;
    std::erase_if(strings_, [=](const String& string) { return string.Laid <= oldest; });
}

void StringFigure::MoveTo(const Place& place) {
    const auto moved = [](float at, double from, double to, double scale) {
        return static_cast<float>(to + (at - from) * scale);
    };
    const double scale = place.Radius / place_.Radius;
    for (String& string : strings_) {
        Line& line = string.Bright;
        line.FromX = moved(line.FromX, place_.X, place.X, scale);
        line.ToX = moved(line.ToX, place_.X, place.X, scale);
        line.FromY = moved(line.FromY, place_.Y, place.Y, scale);
        line.ToY = moved(line.ToY, place_.Y, place.Y, scale);
    }
    place_ = place;
}

double StringFigure::Strength(double age) const {
    if (age < kFreshStrings) {
        return kFreshStrength + (kStrength - kFreshStrength) * std::floor(age) / kFreshStrings;
    }
    const double left = (1 - age / round_) / kFadeShare;
    // Fading goes in levels, or each string would have to be redrawn at every step.
    return kStrength * std::clamp(std::ceil(left * kFadeLevels) / kFadeLevels, 0.0, 1.0);
}

void StringFigure::AppendTo(std::vector<Line>& lines) const {
    for (const String& string : strings_) {
        Line line = string.Bright;
        line.Light = Dimmed(line.Light, Strength(progress_ - string.Laid));
        lines.push_back(line);
    }
}

}  // namespace ambrio
