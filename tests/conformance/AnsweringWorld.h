#pragma once

#include <utility>

#include "platform/AnsweringFileSystem.h"
#include "tests/conformance/FileSystemWorld.h"

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
class AnsweringWorld : public FileSystemWorld {
  public:
    explicit AnsweringWorld(std::unique_ptr<FileSystemWorld> world) : world_(std::move(world)) {}

    FileSystem& Files() override { return files_; }
    [[nodiscard]] std::wstring Root() const override { return world_->Root(); }
    [[nodiscard]] std::wstring AbsentDrive() const override { return world_->AbsentDrive(); }
    [[nodiscard]] std::uint32_t ProcessId() const override { return world_->ProcessId(); }
    [[nodiscard]] unsigned CodePage() const override { return world_->CodePage(); }
    void Write(const std::wstring& path, const std::string& content) override {
        world_->Write(path, content);
    }
    [[nodiscard]] std::string Read(const std::wstring& path) override { return world_->Read(path); }
    void SetTime(const std::wstring& path, FileSeconds time, std::uint32_t ticks) override {
        world_->SetTime(path, time, ticks);
    }
    [[nodiscard]] std::shared_ptr<void> Lock(const std::wstring& path) override {
        return world_->Lock(path);
    }
    [[nodiscard]] bool MakeLink(const std::wstring& path, const std::wstring& target,
                                LinkKind kind) override {
        return world_->MakeLink(path, target, kind);
    }
    [[nodiscard]] bool GiveAway(const std::wstring& link) override {
        return world_->GiveAway(link);
    }
    [[nodiscard]] const char* ReasonToSkip(const std::string& test) const override {
        return world_->ReasonToSkip(test);
    }

  private:
    std::unique_ptr<FileSystemWorld> world_;
    EverythingIsSlow roots_;
    WorkerType worker_;
    AnsweringFileSystem files_{world_->Files(), roots_, worker_};
};

}  // namespace ambrio
