#include "tests/e2e/support/SettingsFixture.h"

#include <algorithm>

namespace ambrio::e2e {

namespace {

std::vector<std::wstring> Sorted(std::vector<std::wstring> names) {
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace

SettingsFixture::SettingsFixture() : tree_(L"Software\\VB and VBA Program Settings\\Ambrio") {}

void SettingsFixture::WriteSets(const std::vector<SetValues>& sets) {
    std::wstring names;
    for (const SetValues& set : sets) {
        names += (names.empty() ? L"" : L",") + set.Name;
        Write(set.Name, L"Selected", set.Selected);
        Write(set.Name, L"Source", set.Source);
        Write(set.Name, L"Destination", set.Destination);
        Write(set.Name, L"Recursive", set.Recursive);
        Write(set.Name, L"CopyType", set.CopyType);
        Write(set.Name, L"OverwriteReadOnly", set.OverwriteReadOnly);
        Write(set.Name, L"ClearArchiveBit", set.ClearArchiveBit);
        Write(set.Name, L"DeleteCopyArchiveBit", set.DeleteCopyArchiveBit);
        Write(set.Name, L"DeleteCopyReadOnly", set.DeleteCopyReadOnly);
    }
    Write(L"General", L"Sets", names);
}

void SettingsFixture::Write(const std::wstring& section, const std::wstring& key,
                            const std::wstring& value) {
    WriteText(PathOf(section), key, value);
}

std::optional<std::wstring> SettingsFixture::Read(const std::wstring& section,
                                                  const std::wstring& key) const {
    return ReadText(PathOf(section), key);
}

std::vector<std::wstring> SettingsFixture::Sections() const {
    return Sorted(SubkeyNames(tree_.Path()));
}

std::vector<std::wstring> SettingsFixture::Keys(const std::wstring& section) const {
    return Sorted(ValueNames(PathOf(section)));
}

std::wstring SettingsFixture::PathOf(const std::wstring& section) const {
    return tree_.Path() + L"\\" + section;
}

}  // namespace ambrio::e2e
