#pragma once

#include <vector>

#include "saver/animation/Colour.h"
#include "saver/animation/Line.h"
#include "saver/animation/Random.h"

namespace ambrio {

// A figure of strings: two hands run along two closed curves and span a string from one to the
// other again and again, until the strings close up to a figure. The hands go on, the whole
// turning slowly: each new string takes the place of one that has faded. After some rounds the
// hands rest, and the figure fades away.
class StringFigure {
  public:
    // Where a figure may lie, in twips.
    struct Place {
        double X;
        double Y;
        double Radius;
    };

    StringFigure(const Place& place, Random& random);

    // `pace` as in WindingDown; new strings take their colour from the frame's.
    void Step(Colour frame, double pace);

    // Weaves the strings anew at another place, as far as they are woven.
    void MoveTo(const Place& place);

    // True once the hands rest.
    [[nodiscard]] bool IsComplete() const { return progress_ >= laid_; }
    // True once every string has faded.
    [[nodiscard]] bool IsGone() const { return IsComplete() && strings_.empty(); }

    void AppendTo(std::vector<Line>& lines) const;

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
    struct String {
        Line Bright;  // at full strength
        double Laid;  // the progress at which it was spanned
    };
    struct Point {
        double X;
        double Y;
    };

    static const Pattern& AnyPattern(Random& random);
    [[nodiscard]] Point PointOf(const Hand& hand, double angle, double offset) const;
    void Span(Colour frame);
    [[nodiscard]] double Strength(double age) const;

    Place place_;
    Pattern pattern_;
    double direction_;
    double heading_;
    double turning_;  // radians a string
    double offset_;   // of the second hand
    double hueStart_;
    double round_;          // strings in one round
    double laid_;           // strings in the figure's whole life
    double progress_ = -1;  // the first step spans the first string
    double next_ = 0;
    std::vector<String> strings_;  // oldest first
};

}  // namespace ambrio
