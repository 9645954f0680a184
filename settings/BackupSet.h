#pragma once

#include <optional>
#include <string>

#include "platform/SettingsStore.h"

namespace ambrio {

// One Set as a run uses it, loaded afresh for each run.
struct BackupSet {
    std::wstring Name;
    std::wstring rsSourceDir;
    std::wstring rsDestnDir;
    bool rbRecursive = false;
    std::wstring rsCopyType;      // one of the copy types of SettingKeys.h, or whatever is stored
    bool rbClearArchive = false;  // clear the source's archive bit after copying
    bool rbDeleteCopy = false;    // remove the copy when the source no longer qualifies
    bool rbOverwriteReadOnly = false;  // a read-only copy may be overwritten

    friend bool operator==(const BackupSet&, const BackupSet&) = default;
};

// Whether runs do the Set of that name; true when nothing is stored. Throws RuntimeError
// TypeMismatch when "Selected" is neither a Boolean text nor a number.
[[nodiscard]] bool ReadSelected(SettingsStore& settings, const std::wstring& name);

// Throws RuntimeError when the store refuses; the old value then stays.
void SaveSelected(SettingsStore& settings, const std::wstring& name, bool selected);

// Loads the Set from the section of its name; nothing when it is not selected, and then nothing but
// "Selected" was read. The keys that belong to another copy type are never read. Throws as
// ReadSelected does.
[[nodiscard]] std::optional<BackupSet> LoadBackupSet(SettingsStore& settings,
                                                     const std::wstring& name);

}  // namespace ambrio
