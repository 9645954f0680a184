#pragma once

#include "platform/RuntimeError.h"
#include "platform/SettingsStore.h"
#include "tests/support/ForwardingSettingsStore.h"

namespace ambrio {

// Passes on every operation but one, counted from 1, which fails.
class FailingSettingsStore : public ForwardingSettingsStore {
  public:
    FailingSettingsStore(SettingsStore& target, int failing, ErrorNumber number)
        : ForwardingSettingsStore(target), failing_(failing), number_(number) {}

    std::wstring GetSetting(const std::wstring& section, const std::wstring& key,
                            const std::wstring& fallback) override {
        Count();
        return ForwardingSettingsStore::GetSetting(section, key, fallback);
    }
    void SaveSetting(const std::wstring& section, const std::wstring& key,
                     const std::wstring& value) override {
        Count();
        ForwardingSettingsStore::SaveSetting(section, key, value);
    }

    // False when there were fewer operations than the one to fail.
    [[nodiscard]] bool HasFailed() const { return count_ >= failing_; }

  private:
    void Count() {
        if (++count_ == failing_) {
            throw RuntimeError(number_);
        }
    }

    int failing_;
    ErrorNumber number_;
    int count_ = 0;
};

}  // namespace ambrio
