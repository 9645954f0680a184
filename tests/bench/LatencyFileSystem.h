#pragma once

#include <string>

#include "tests/support/ObservedFileSystem.h"

namespace ambrio {

// Lets every call on something in one folder take longer, as a server does, and counts these calls.
// The calls on the entries of a listing that is open cost nothing: a server sends them in one
// piece.
class LatencyFileSystem : public ObservedFileSystem {
  public:
    // `target` is not owned. The latency in milliseconds.
    LatencyFileSystem(FileSystem& target, std::wstring folder, unsigned latency);

    [[nodiscard]] int Calls() const { return calls_; }
    [[nodiscard]] int Listings() const { return listings_; }

    bool Before(const FileCall& call) override;

  private:
    std::wstring folder_;
    unsigned latency_;
    int calls_ = 0;
    int listings_ = 0;
};

}  // namespace ambrio
