#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/SettingsStore.h"

namespace ambrio {

// A settings store in memory that keeps the order in which it is used.
class MemorySettingsStore : public SettingsStore {
  public:
    using Address = std::pair<std::wstring, std::wstring>;  // section, key

    std::wstring GetSetting(const std::wstring& section, const std::wstring& key,
                            const std::wstring& fallback) override {
        Reads.emplace_back(section, key);
        const auto value = Values.find({section, key});
        return value == Values.end() ? fallback : value->second;
    }
    void SaveSetting(const std::wstring& section, const std::wstring& key,
                     const std::wstring& value) override {
        Writes.emplace_back(section, key);
        Values[{section, key}] = value;
    }

    // To look at and to fill without being counted.
    std::map<Address, std::wstring> Values;
    std::vector<Address> Reads;
    std::vector<Address> Writes;
};

}  // namespace ambrio
