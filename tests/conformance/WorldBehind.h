#pragma once

#include <utility>

#include "tests/conformance/FileSystemWorld.h"

namespace ambrio {

// Another world, whose file system is used through something else.
class WorldBehind : public FileSystemWorld {
  public:
    explicit WorldBehind(std::unique_ptr<FileSystemWorld> world) : world_(std::move(world)) {}

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
    void Rename(const std::wstring& path, const std::wstring& newName) override {
        world_->Rename(path, newName);
    }
    [[nodiscard]] bool GiveAway(const std::wstring& link) override {
        return world_->GiveAway(link);
    }
    [[nodiscard]] const char* ReasonToSkip(const std::string& test) const override {
        return world_->ReasonToSkip(test);
    }

  protected:
    [[nodiscard]] FileSystem& FilesBehind() { return world_->Files(); }

  private:
    std::unique_ptr<FileSystemWorld> world_;
};

}  // namespace ambrio
