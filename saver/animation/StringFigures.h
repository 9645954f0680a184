#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "saver/animation/Line.h"
#include "saver/animation/Random.h"
#include "saver/animation/StringFigure.h"

namespace ambrio {

// The picture on the form: one large, faint string figure that fills it, and smaller, brighter ones
// before it, as many as the form has room for. When one has had its time, another one grows in its
// place while it fades.
class StringFigures {
  public:
    // Width and height of the form in twips. The figures are half woven already.
    StringFigures(std::int32_t width, std::int32_t height, Random& random);

    // For a form of another size: the figures grow or shrink with it, and are as many as it has
    // room for.
    void Resize(std::int32_t width, std::int32_t height);

    // Weaves on; 1 is the way of a tenth of a second.
    void Step(double pace);

    // All strings, in the order of their keys; valid until the next step.
    [[nodiscard]] std::span<const Line> Lines() const { return lines_; }

  private:
    struct Placed {
        std::size_t Slot;
        StringFigure Figure;
    };

    [[nodiscard]] std::size_t SlotCount() const;
    [[nodiscard]] StringFigure::Design AnyDesign(std::size_t slot);
    void Begin(std::size_t slot);
    [[nodiscard]] bool IsBeingWoven(std::size_t slot) const;
    void CollectLines();

    double width_;
    double height_;
    Random& random_;
    std::uint32_t nextKey_ = 0;
    std::vector<Placed> figures_;  // in the order of their keys
    std::vector<Line> lines_;
};

}  // namespace ambrio
