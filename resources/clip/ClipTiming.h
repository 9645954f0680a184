#pragma once

#include <cstdint>

// How many pictures the clip has and how long each is shown. It is read by what draws the clip and
// by what plays it.
inline constexpr int kClipPictures = 30;
inline constexpr std::uint32_t kClipMicroseconds = 50000;
