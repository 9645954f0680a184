#pragma once

#include "platform/AnsweringFileSystem.h"
#include "tests/conformance/WorldBehind.h"

namespace ambrio {

// Everything lies on one root, which is slow and can be reached.
class EverythingIsSlow : public SlowRoots {
  public:
    std::wstring RootOf(const std::wstring&) override { return L"everything"; }
    std::optional<ErrorNumber> TroubleWith(const std::wstring&) override { return std::nullopt; }
    std::chrono::milliseconds Now() override { return {}; }
};

// Another world whose file system is asked by a worker of this type.
template <typename WorkerType>
class AnsweringWorld : public WorldBehind {
  public:
    using WorldBehind::WorldBehind;

    FileSystem& Files() override { return files_; }

  private:
    EverythingIsSlow roots_;
    WorkerType worker_;
    AnsweringFileSystem files_{FilesBehind(), roots_, worker_};
};

}  // namespace ambrio
