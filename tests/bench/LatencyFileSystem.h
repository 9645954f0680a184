#pragma once

#include <chrono>
#include <string>

#include "tests/support/ObservedFileSystem.h"

namespace ambrio {

// Counts the calls on something in one folder, and how much longer they would have taken on a
// server. Nothing waits for that: a busy machine sleeps far longer than it is told. The calls on
// the entries of a listing that is open cost nothing: a server sends them in one piece.
class LatencyFileSystem : public ObservedFileSystem {
  public:
    // `target` is not owned. The latency in milliseconds.
    LatencyFileSystem(FileSystem& target, std::wstring folder, unsigned latency);

    [[nodiscard]] int Calls() const { return calls_; }
    [[nodiscard]] int Listings() const { return listings_; }

    [[nodiscard]] std::chrono::milliseconds Latency() const {
        return std::chrono::milliseconds(latency_) * calls_;
    }

    bool Before(const FileCall& call) override;

  private:
    std::wstring folder_;
    unsigned latency_;
    int calls_ = 0;
    int listings_ = 0;
};

}  // namespace ambrio
