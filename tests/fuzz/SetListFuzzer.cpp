#include <algorithm>
#include <optional>
#include <vector>

#include "platform/RuntimeError.h"
#include "settings/BackupSet.h"
#include "settings/SetList.h"
#include "settings/SettingKeys.h"
#include "tests/fuzz/Fuzzers.h"
#include "tests/support/MemorySettingsStore.h"

namespace ambrio {
namespace {

using Texts = std::vector<std::wstring>;

void TryList(const std::wstring& list) {
    const Texts pieces = SplitSetList(list);
    Require(JoinSetList(pieces) == list, "the pieces make up the list");
    const auto commas = static_cast<std::size_t>(std::count(list.begin(), list.end(), L','));
    Require(pieces.size() == (list.empty() ? 0 : commas + 1), "a comma parts two pieces");
    const Texts names = SetNamesForRun(list);
    Require(names.size() == pieces.size(), "each piece is a name");
    for (std::size_t i = 0; i < names.size(); ++i) {
        Require(names[i].empty() || (names[i].front() != L' ' && names[i].back() != L' '),
                "names are trimmed");
        Require(pieces[i].find(names[i]) != std::wstring::npos, "a name is part of its piece");
    }
}

// What the run reads of a Set, by the type of copying.
Texts ExpectedKeys(const std::wstring& type) {
    Texts keys = {kSelectedKey,  kSourceKey,   kDestinationKey,
                  kRecursiveKey, kCopyTypeKey, kOverwriteReadOnlyKey};
    if (type == kCopyTypeArchiveBit) {
        keys.insert(keys.end(), {kClearArchiveBitKey, kDeleteCopyArchiveBitKey});
    } else if (type == kCopyTypeReadOnly) {
        keys.emplace_back(kDeleteCopyReadOnlyKey);
    }
    return keys;
}

std::optional<std::wstring> Value(FuzzInput& input) {
    static const Texts usual = {kYes,
                                kNo,
                                L"yes",
                                L"True",
                                L"False",
                                L"",
                                kCopyTypeArchiveBit,
                                kCopyTypeReadOnly,
                                kCopyTypeDateTime,
                                L"-1",
                                L" 0 "};
    const std::size_t choice = input.Below(usual.size() + 2);
    if (choice < usual.size()) {
        return usual[choice];
    }
    return choice == usual.size() ? std::nullopt : std::optional(input.Text(20));
}

void TrySet(FuzzInput& input) {
    const std::wstring name = input.Text(10);
    MemorySettingsStore store;
    for (const wchar_t* key : {kSelectedKey, kSourceKey, kDestinationKey, kRecursiveKey,
                               kCopyTypeKey, kOverwriteReadOnlyKey, kClearArchiveBitKey,
                               kDeleteCopyArchiveBitKey, kDeleteCopyReadOnlyKey}) {
        if (const auto value = Value(input)) {
            store.Values[{name, key}] = *value;
        }
    }
    const auto before = store.Values;
    std::optional<BackupSet> set;
    try {
        set = LoadBackupSet(store, name);
    } catch (const RuntimeError& error) {
        Require(error.Number() == ErrorNumber::TypeMismatch, "only a selection can be no text");
    }
    Require(store.Values == before && store.Writes.empty(), "loading writes nothing");
    Texts keys;
    for (const auto& [section, key] : store.Reads) {
        Require(section == name, "only the Set's own section is read");
        keys.push_back(key);
    }
    const auto isYes = [&](const wchar_t* key) { return store.GetSetting(name, key, L"") == kYes; };
    if (!set) {
        Require(keys == Texts{kSelectedKey}, "nothing more is read of a Set that does not run");
        return;
    }
    Require(keys == ExpectedKeys(set->rsCopyType), "keys of other types are not read");
    const bool isArchive = set->rsCopyType == kCopyTypeArchiveBit;
    const bool isReadOnly = set->rsCopyType == kCopyTypeReadOnly;
    Require(set->rbRecursive == isYes(kRecursiveKey), "recursive");
    Require(set->rbOverwriteReadOnly == isYes(kOverwriteReadOnlyKey), "overwrites");
    Require(set->rbClearArchive == (isArchive && isYes(kClearArchiveBitKey)), "clears");
    Require(set->rbDeleteCopy == ((isArchive && isYes(kDeleteCopyArchiveBitKey)) ||
                                  (isReadOnly && isYes(kDeleteCopyReadOnlyKey))),
            "removes");
}

}  // namespace

void FuzzSetList(FuzzInput input) {
    TryList(input.Text(200));
    while (!input.IsUsedUp()) {
        TrySet(input);
    }
}

}  // namespace ambrio
