#pragma once

#include <string>

namespace ambrio {

// The per-user settings tree of one application: section, key, text value. To be used on one
// thread.
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;

    // The value, or `fallback` when the section or the key does not exist, holds no text or cannot
    // be read. Writes nothing back.
    virtual std::wstring GetSetting(const std::wstring& section, const std::wstring& key,
                                    const std::wstring& fallback) = 0;

    // Writes the value, creating section and key as needed. Throws RuntimeError when the store
    // refuses; the old value then stays.
    virtual void SaveSetting(const std::wstring& section, const std::wstring& key,
                             const std::wstring& value) = 0;
};

}  // namespace ambrio
