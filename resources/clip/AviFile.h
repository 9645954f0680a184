#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Picture.h"

namespace clip {

// The whole file: the pictures, all of one size, as a silent clip of 256 colours in run-length
// compression, which is what the animation control plays. What is clear in a picture has the colour
// of the clip's first pixel, by which the control knows it; so that pixel must be clear.
[[nodiscard]] std::string AviFile(const std::vector<Picture>& pictures,
                                  std::uint32_t microsecondsPerPicture);

}  // namespace clip
