#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "saver/animation/Colour.h"
#include "saver/animation/Line.h"
#include "saver/animation/Random.h"
#include "saver/animation/StringFigure.h"

namespace ambrio {

// The picture on the form: string figures beside each other, as many as the form has room for.
// When one has had its time, another one grows in its place while it fades.
class StringFigures {
  public:
    // Width and height of the form in twips.
    StringFigures(std::int32_t width, std::int32_t height, Random& random);

    // For a form of another size: the figures move to their places on it, grow or shrink with it,
    // and are as many as it has room for.
    void Resize(std::int32_t width, std::int32_t height);

    void Step(Colour frame, double pace);

    // All strings; valid until the next step.
    [[nodiscard]] std::span<const Line> Lines() const { return lines_; }

  private:
    // Where in its slot a figure lies, and how large it is, in shares of what the form has.
    struct Spot {
        double Along;
        double Across;
        double Radius;
    };
    struct Placed {
        Spot Where;
        StringFigure Figure;
    };
    struct Slot {
        double Wait;  // steps until the next figure begins
        std::vector<Placed> Figures;
    };

    [[nodiscard]] std::size_t SlotCount() const;
    [[nodiscard]] Spot AnySpot();
    [[nodiscard]] StringFigure::Place PlaceOf(std::size_t slot, const Spot& spot) const;

    double width_;
    double height_;
    Random& random_;
    std::vector<Slot> slots_;
    std::vector<Line> lines_;
};

}  // namespace ambrio
