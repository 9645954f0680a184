#pragma once

#include <string>

#include "platform/SettingsStore.h"

namespace ambrio {

// Passes everything on to another store, which is not owned.
class ForwardingSettingsStore : public SettingsStore {
  public:
    explicit ForwardingSettingsStore(SettingsStore& target) : target_(target) {}

    std::wstring GetSetting(const std::wstring& section, const std::wstring& key,
                            const std::wstring& fallback) override {
        return target_.GetSetting(section, key, fallback);
    }
    void SaveSetting(const std::wstring& section, const std::wstring& key,
                     const std::wstring& value) override {
        target_.SaveSetting(section, key, value);
    }

  private:
    SettingsStore& target_;
};

}  // namespace ambrio
