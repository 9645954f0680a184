#pragma once

#include "platform/win32/files/Win32FileSystem.h"
#include "tests/conformance/FileSystemWorld.h"

namespace ambrio {

// A new folder among the temporary files of the machine.
class Win32World : public FileSystemWorld {
  public:
    Win32World();
    ~Win32World() override;
    Win32World(const Win32World&) = delete;
    Win32World& operator=(const Win32World&) = delete;

    FileSystem& Files() override { return files_; }
    [[nodiscard]] std::wstring Root() const override { return root_; }
    [[nodiscard]] std::wstring AbsentDrive() const override;
    [[nodiscard]] std::uint32_t ProcessId() const override;
    [[nodiscard]] unsigned CodePage() const override;
    void Write(const std::wstring& path, const std::string& content) override;
    [[nodiscard]] std::string Read(const std::wstring& path) override;
    void SetTime(const std::wstring& path, FileSeconds time, std::uint32_t ticks) override;
    [[nodiscard]] std::shared_ptr<void> Lock(const std::wstring& path) override;
    [[nodiscard]] bool MakeLink(const std::wstring& path, const std::wstring& target,
                                LinkKind kind) override;
    void Rename(const std::wstring& path, const std::wstring& newName) override;
    [[nodiscard]] bool GiveAway(const std::wstring& link) override;
    [[nodiscard]] const char* ReasonToSkip(const std::string& test) const override;

  private:
    CopyWatch copyWatch_;
    Win32FileSystem files_{copyWatch_};
    std::wstring root_;
};

}  // namespace ambrio
