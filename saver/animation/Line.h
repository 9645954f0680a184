#pragma once

#include "saver/animation/Colour.h"

namespace ambrio {

// A thin straight line of light on the dark form. Ends are in twips on the form and may lie
// outside it.
struct Line {
    float FromX = 0;
    float FromY = 0;
    float ToX = 0;
    float ToY = 0;
    Colour Light;

    bool operator==(const Line&) const = default;
};

}  // namespace ambrio
