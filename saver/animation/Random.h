#pragma once

#include <cstdint>
#include <random>

namespace ambrio {

// The random numbers of the animation. The library's distributions differ from one library to the
// next; these do not, so that a seed shows the same picture in every build.
class Random {
  public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}

    [[nodiscard]] double Between(double low, double high);
    // 0 to count - 1.
    [[nodiscard]] std::size_t Index(std::size_t count);
    // 1 or -1.
    [[nodiscard]] double Sign();

  private:
    std::mt19937 engine_;
};

}  // namespace ambrio
