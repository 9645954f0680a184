#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio::e2e {

// Where an installation has its parts, and what the system is told of it. Nothing has to be there.
class Installation {
  public:
    enum class For { Everybody, ThisUser };
    explicit Installation(For whom);

    // Folders, without a separator at their ends. The program's is the Windows folder in the one
    // case, and the same as the other in the other.
    [[nodiscard]] const std::wstring& ProgramFolder() const { return programFolder_; }
    [[nodiscard]] const std::wstring& Folder() const { return folder_; }
    [[nodiscard]] const std::wstring& StartMenu() const { return startMenu_; }
    [[nodiscard]] std::wstring Program() const { return programFolder_ + L"\\Ambrio.scr"; }
    [[nodiscard]] std::wstring Remover() const { return folder_ + L"\\Uninstall.exe"; }
    // What the list of installed programs says; nothing when there is no such entry or value.
    [[nodiscard]] std::optional<std::wstring> ListedText(const wchar_t* name) const;
    [[nodiscard]] std::optional<DWORD> ListedNumber(const wchar_t* name) const;
    [[nodiscard]] bool IsListed() const;

  private:
    HKEY root_;
    std::wstring programFolder_;
    std::wstring folder_;
    std::wstring startMenu_;
};

// Whether this system runs 64-bit programs, whatever this one is.
[[nodiscard]] bool Is64BitSystem();

struct ShortcutTarget {
    std::wstring Path;
    std::wstring Arguments;
};
// Throws std::runtime_error when there is no shortcut of that path.
[[nodiscard]] ShortcutTarget ReadShortcut(const std::wstring& path);

// Starts a program as a user who is no administrator, and waits for its end; nothing when this
// system does not let a program give up its rights. Throws std::system_error when it cannot be
// started.
[[nodiscard]] std::optional<DWORD> RunWithoutRights(const std::wstring& program,
                                                    const std::wstring& arguments);

}  // namespace ambrio::e2e
