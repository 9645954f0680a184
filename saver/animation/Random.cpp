#include "saver/animation/Random.h"

namespace ambrio {

double Random::Between(double low, double high) {
    constexpr double kRange = 4294967296.0;
    return low + (high - low) * (static_cast<double>(engine_()) / kRange);
}

std::size_t Random::Index(std::size_t count) {
    return static_cast<std::size_t>(engine_() % count);
}

double Random::Sign() {
    return Index(2) == 0 ? 1.0 : -1.0;
}

}  // namespace ambrio
