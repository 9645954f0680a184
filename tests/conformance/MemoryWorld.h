#pragma once

#include "tests/conformance/FileSystemWorld.h"
#include "tests/support/MemoryFileSystem.h"

namespace ambrio {

// A folder of the in-memory file system.
class MemoryWorld : public FileSystemWorld {
  public:
    MemoryWorld() { files_.MakeFolder(kRoot); }

    FileSystem& Files() override { return files_; }
    [[nodiscard]] std::wstring Root() const override { return kRoot; }
    [[nodiscard]] std::wstring AbsentDrive() const override { return L"Q:"; }
    [[nodiscard]] std::uint32_t ProcessId() const override { return files_.ProcessId; }
    [[nodiscard]] unsigned CodePage() const override { return 1252; }
    void Write(const std::wstring& path, const std::string& content) override {
        files_.WriteFile(path, content);
    }
    [[nodiscard]] std::string Read(const std::wstring& path) override {
        return files_.Content(path);
    }
    void SetTime(const std::wstring& path, FileSeconds time, std::uint32_t ticks) override;
    [[nodiscard]] std::shared_ptr<void> Lock(const std::wstring& path) override;
    [[nodiscard]] bool MakeLink(const std::wstring& path, const std::wstring& target,
                                LinkKind kind) override;
    void Rename(const std::wstring& path, const std::wstring& newName) override {
        files_.Rename(path, newName);
    }
    [[nodiscard]] bool GiveAway(const std::wstring& link) override;
    [[nodiscard]] const char* ReasonToSkip(const std::string& test) const override;

  private:
    static constexpr const wchar_t* kRoot = L"C:\\Test";
    MemoryFileSystem files_;
};

}  // namespace ambrio
