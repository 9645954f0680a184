#pragma once

#include <cstdint>
#include <vector>

#include "saver/animation/Line.h"
#include "saver/animation/Random.h"

namespace ambrio {

// A figure of strings: two hands run along two closed curves and span a string from one to the
// other again and again, until the strings close up to a figure. The hands go on, the whole
// turning, breathing and wandering over the form: each new string takes the place of one that has
// faded. After some rounds the hands rest, and the figure fades away.
//
// Places are shares of the form's width and height, so that a figure fits a form of any size.
class StringFigure {
  public:
    // How a figure lies on the form.
    struct Design {
        double Across = 0.5;    // the largest reach of its curves from their middle, in shares
        double Down = 0.5;      // the same from top to bottom
        double Strength = 0.5;  // of its strings' light: 1 is all there is
        double Strings = 200;   // in one round
        double Pace = 1;        // how fast it is woven
    };

    // `key` is that of its first string; the others count on from there. A figure has less than
    // kKeys strings.
    StringFigure(const Design& design, std::uint32_t key, Random& random);

    static constexpr std::uint32_t kKeys = 1U << 11U;

    // Weaves on, by so many strings and parts of one at the usual pace.
    void Weave(double strings);
    // The same by so many rounds, whatever its pace.
    void WeaveRounds(double rounds) { Weave(rounds * round_ / design_.Pace); }

    // True once the hands rest.
    [[nodiscard]] bool IsComplete() const { return progress_ >= laid_; }
    // True once every string has faded.
    [[nodiscard]] bool IsGone() const { return IsComplete() && strings_.empty(); }
    // Its strings on a form of that size in twips, in the order of their keys.
    void AppendTo(std::vector<Line>& lines, double width, double height) const;

  private:
    // A circle that another circle may run on, in whole turns per round, so that the curve closes.
    struct Hand {
        double Turns;
        double WaveTurns;
        double Wave;  // the second circle's share of the radius
    };
    struct Pattern {
        Hand First;
        Hand Second;
    };
    // One of the form's axes: how the figure's middle and reach change along it while it is woven.
    struct Axis {
        double Reach;
        double Breath;  // turns per round
        double BreathStart;
        double Drift;  // the same for the middle
        double DriftStart;
    };
    struct Extent {
        double Middle;
        double Reach;
    };
    struct Point {
        double X;
        double Y;
    };
    struct Spot {
        float X;
        float Y;
    };
    struct String {
        Spot From;
        Spot To;
        Glow Light;  // at the figure's own strength
        int Number;
    };

    static const Pattern& AnyPattern(Random& random);
    static Axis AnyAxis(double reach, Random& random);
    [[nodiscard]] static Extent ExtentOf(const Axis& axis, double rounds);
    [[nodiscard]] static Point PointOf(const Hand& hand, double angle, double offset);
    void Span();
    [[nodiscard]] std::uint32_t Strength(int number) const;

    Design design_;
    std::uint32_t key_;
    Pattern pattern_;
    Axis x_;
    Axis y_;
    double direction_;
    double heading_;
    double turning_;  // radians a string
    double offset_;   // of the second hand
    double hueStart_;
    double round_;         // strings in one round
    double laid_;          // strings in the figure's whole life
    double progress_ = 0;  // strings woven so far
    int plateau_;          // strings from a string's first to where it begins to fade
    int level_;            // strings that it stays at each level of fading
    int next_ = 0;
    std::vector<String> strings_;  // oldest first
};

}  // namespace ambrio
