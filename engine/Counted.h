#pragma once

#include <cstdint>

namespace ambrio {

// Adds one to a counter when it goes, whatever ends its life: the count rises where it is wanted,
// after what is told of it, and is right also when that cannot be written.
class Counted {
  public:
    explicit Counted(std::int32_t& counter) : counter_(counter) {}
    ~Counted() { ++counter_; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

  private:
    std::int32_t& counter_;
};

}  // namespace ambrio
