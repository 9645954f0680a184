#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "saver/animation/Area.h"
#include "saver/animation/Colour.h"
#include "saver/animation/ColourFamily.h"
#include "saver/animation/Line.h"

namespace ambrio {

// The colours of what is written on the frame. Every text stands on a plate of the plate's colour,
// also the frame's own caption; each of the two texts is readable there (7 : 1 or better).
struct LabelColours {
    Colour Text;     // what changes: names, folders, counts, and the frame's caption
    Colour Caption;  // what explains: "Source:", "Files copied:", the slogan
    Colour Plate;

    bool operator==(const LabelColours&) const = default;
};

// A frame on a form, as the animation sees it: fraStatus of the full-screen form or of the preview.
// Places and sizes are twips relative to the form. Nothing here fails. To be used on the form's
// thread.
class AnimatedFrame {
  public:
    virtual ~AnimatedFrame() = default;

    [[nodiscard]] virtual std::int32_t Left() const = 0;
    [[nodiscard]] virtual std::int32_t Top() const = 0;
    [[nodiscard]] virtual std::int32_t Width() const = 0;
    [[nodiscard]] virtual std::int32_t Height() const = 0;
    // The inner size of the form that holds the frame.
    [[nodiscard]] virtual std::int32_t ParentScaleWidth() const = 0;
    [[nodiscard]] virtual std::int32_t ParentScaleHeight() const = 0;

    // The parts of that form which somebody can see: one at least, and the form's top left corner
    // lies in it. All of the form, unless it reaches beyond the monitors.
    [[nodiscard]] virtual std::vector<Area> VisibleAreas() const {
        return {{0, 0, ParentScaleWidth(), ParentScaleHeight()}};
    }

    virtual void Move(std::int32_t left, std::int32_t top) = 0;
    // Both are called only when the colour is another one than before.
    virtual void SetBackColor(Colour colour) = 0;
    virtual void SetLabelColours(const LabelColours& colours) = 0;

    // Shows these lines on the form, behind the frame, and no others; what is new of them in the
    // colours of the palette. They come in the order of their keys. The span is valid during the
    // call only.
    virtual void DrawLines(std::span<const Line> lines, const Palette& palette) = 0;
};

}  // namespace ambrio
