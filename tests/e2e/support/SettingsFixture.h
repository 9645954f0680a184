#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/e2e/support/Registry.h"

namespace ambrio::e2e {

// One Set as the store holds it, value by value.
struct SetValues {
    std::wstring Name = {};
    std::wstring Source = {};
    std::wstring Destination = {};
    std::wstring Selected = L"True";
    std::wstring Recursive = L"Yes";
    std::wstring CopyType = L"Date/Time";
    std::wstring OverwriteReadOnly = L"No";
    std::wstring ClearArchiveBit = L"No";
    std::wstring DeleteCopyArchiveBit = L"No";
    std::wstring DeleteCopyReadOnly = L"No";
};

// The program's settings tree, empty when the test begins; the settings that the user of this
// account had are back when it has ended.
class SettingsFixture {
  public:
    SettingsFixture();

    // Writes each Set's section and the list of their names.
    void WriteSets(const std::vector<SetValues>& sets);
    void Write(const std::wstring& section, const std::wstring& key, const std::wstring& value);
    [[nodiscard]] std::optional<std::wstring> Read(const std::wstring& section,
                                                   const std::wstring& key) const;
    // All sections that exist; all keys of one of them. In alphabetical order.
    [[nodiscard]] std::vector<std::wstring> Sections() const;
    [[nodiscard]] std::vector<std::wstring> Keys(const std::wstring& section) const;

  private:
    [[nodiscard]] std::wstring PathOf(const std::wstring& section) const;

    RegistryTreeGuard tree_;
};

}  // namespace ambrio::e2e
