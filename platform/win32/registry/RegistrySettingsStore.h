#pragma once

#include <string>

#include "platform/SettingsStore.h"

namespace ambrio {

// The settings tree in the current user's registry, where the runtime's own GetSetting finds the
// same values: a key for the title, a key below it for each section, texts in them. Backslashes in
// a section's name make a key below a key; an empty section is the title's own key. Texts have any
// length and end at their first NUL.
class RegistrySettingsStore : public SettingsStore {
  public:
    explicit RegistrySettingsStore(const std::wstring& title);

    std::wstring GetSetting(const std::wstring& section, const std::wstring& key,
                            const std::wstring& fallback) override;
    void SaveSetting(const std::wstring& section, const std::wstring& key,
                     const std::wstring& value) override;

  private:
    std::wstring root_;
};

}  // namespace ambrio
