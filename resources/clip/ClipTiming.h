#pragma once

#include <chrono>

namespace clip {

// How long the clip shows each of its pictures, and thus how often it is looked at while it plays.
inline constexpr std::chrono::milliseconds kPictureTime{50};

}  // namespace clip
