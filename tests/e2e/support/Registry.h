#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/win32/WindowsHeaders.h"

// The registry, for the tests. Paths are below HKEY_CURRENT_USER, or of the whole machine when they
// begin with kMachine. What fails throws std::system_error; what does not exist is no failure when
// it is read or removed.
namespace ambrio::e2e {

inline constexpr const wchar_t* kMachine = L"HKEY_LOCAL_MACHINE\\";

[[nodiscard]] std::optional<std::wstring> ReadText(const std::wstring& path,
                                                   const std::wstring& name);
[[nodiscard]] std::optional<DWORD> ReadNumber(const std::wstring& path, const std::wstring& name);
void WriteText(const std::wstring& path, const std::wstring& name, const std::wstring& text);
void WriteNumber(const std::wstring& path, const std::wstring& name, DWORD number);
void RemoveValue(const std::wstring& path, const std::wstring& name);
void RemoveKeyTree(const std::wstring& path);
[[nodiscard]] bool KeyExists(const std::wstring& path);
// Whether the key could be changed, or made where there is none; nothing is made.
[[nodiscard]] bool MayChangeKey(const std::wstring& path);
[[nodiscard]] std::vector<std::wstring> SubkeyNames(const std::wstring& path);
[[nodiscard]] std::vector<std::wstring> ValueNames(const std::wstring& path);

// Moves a key with all below it out of the way, so that a test begins without it, and puts it back
// at the end. What a killed test has not put back is put back by the next guard of the same key.
class RegistryTreeGuard {
  public:
    explicit RegistryTreeGuard(std::wstring path);
    ~RegistryTreeGuard();
    RegistryTreeGuard(const RegistryTreeGuard&) = delete;
    RegistryTreeGuard& operator=(const RegistryTreeGuard&) = delete;

    [[nodiscard]] const std::wstring& Path() const { return path_; }

  private:
    std::wstring path_;
    std::wstring saved_;
};

// Remembers one value, of whatever type, and puts it back at the end.
class RegistryValueGuard {
  public:
    RegistryValueGuard(std::wstring path, std::wstring name);
    ~RegistryValueGuard();
    RegistryValueGuard(const RegistryValueGuard&) = delete;
    RegistryValueGuard& operator=(const RegistryValueGuard&) = delete;

  private:
    std::wstring path_;
    std::wstring name_;
    std::optional<std::vector<BYTE>> data_;
    DWORD type_ = REG_NONE;
};

}  // namespace ambrio::e2e
