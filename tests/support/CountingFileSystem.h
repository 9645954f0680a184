#pragma once

#include <vector>

#include "tests/support/ObservedFileSystem.h"

namespace ambrio {

// Notes every operation, in order.
class CountingFileSystem : public ObservedFileSystem {
  public:
    using ObservedFileSystem::ObservedFileSystem;

    [[nodiscard]] const std::vector<FileCall>& Calls() const { return calls_; }
    [[nodiscard]] int CallsOf(FileOperation operation) const;
    // The calls that name the path, in whatever case, as the one or the other operand.
    [[nodiscard]] int CallsOn(const std::wstring& path) const;
    // The calls that name something below the folder; not those on the folder itself.
    [[nodiscard]] int CallsBelow(const std::wstring& folder) const;
    void Clear() { calls_.clear(); }

    bool Before(const FileCall& call) override;

  private:
    std::vector<FileCall> calls_;
};

}  // namespace ambrio
