#include "config/model/SetProperties.h"

#include "platform/Trim.h"
#include "settings/Flags.h"

namespace ambrio {
namespace {

constexpr const wchar_t* kNewSource = L"C:\\My Documents";
constexpr const wchar_t* kNewDestination = L"F:\\My Documents";

CopyTypeOption OptionOf(const std::wstring& copyType) {
    if (copyType == kCopyTypeDateTime) {
        return CopyTypeOption::DateTime;
    }
    if (copyType == kCopyTypeArchiveBit) {
        return CopyTypeOption::Archive;
    }
    return copyType == kCopyTypeReadOnly ? CopyTypeOption::ReadOnly : CopyTypeOption::None;
}

// Without a chosen option there is nothing to write: the stored copy type stays.
void SaveCopyType(SettingsStore& settings, const std::wstring& section, CopyTypeOption option) {
    if (option == CopyTypeOption::DateTime) {
        settings.SaveSetting(section, kCopyTypeKey, kCopyTypeDateTime);
    } else if (option == CopyTypeOption::Archive) {
        settings.SaveSetting(section, kCopyTypeKey, kCopyTypeArchiveBit);
    } else if (option == CopyTypeOption::ReadOnly) {
        settings.SaveSetting(section, kCopyTypeKey, kCopyTypeReadOnly);
    }
}

void LoadCheckBoxes(SettingsStore& settings, const std::wstring& section, CopyRulesFrame& rules) {
    const bool isArchive = rules.Chosen == CopyTypeOption::Archive;
    const bool isReadOnly = rules.Chosen == CopyTypeOption::ReadOnly;
    rules.ClearArchive = isArchive && ReadFlag(settings, section, kClearArchiveBitKey);
    // Wanted: this key is not the one that is written. The box comes up unticked unless somebody
    // set this value by other means, so that deleting copies is asked for anew at every edit.
    rules.DeleteCopyArchive = isArchive && ReadFlag(settings, section, kDeleteCopyArchiveKey);
    rules.DeleteCopyReadOnly = isReadOnly && ReadFlag(settings, section, kDeleteCopyReadOnlyKey);
}

}  // namespace

SetProperties NewSetProperties() {
    SetProperties properties;
    properties.Source = kNewSource;
    properties.Destination = kNewDestination;
    properties.Recursive = true;
    return properties;
}

SetProperties LoadSetProperties(SettingsStore& settings, const std::wstring& name) {
    SetProperties properties;
    properties.Name = name;
    properties.Source = settings.GetSetting(name, kSourceKey, L"");
    properties.Destination = settings.GetSetting(name, kDestinationKey, L"");
    properties.Recursive = ReadFlag(settings, name, kRecursiveKey);
    properties.OverwriteReadOnly = ReadFlag(settings, name, kOverwriteReadOnlyKey);
    const std::wstring scheme = settings.GetSetting(name, kSchemeKey, kOwnRules);
    if (FindScheme(scheme) != nullptr) {
        properties.Scheme = scheme;
    }
    CopyRulesFrame& rules = properties.Rules;
    ApplyScheme(rules, properties.Scheme);
    // By what is stored, not by what is shown: an unknown scheme keeps the option of a new Set.
    if (scheme == kOwnRules) {
        rules.Chosen = OptionOf(settings.GetSetting(name, kCopyTypeKey, kCopyTypeDateTime));
    }
    SetCheckBoxes(rules);
    LoadCheckBoxes(settings, name, rules);
    return properties;
}

std::optional<std::wstring> SaveSetProperties(SettingsStore& settings,
                                              const SetProperties& properties) {
    if (properties.Name.empty()) {
        return std::nullopt;
    }
    std::wstring section = Trim(properties.Name);
    const CopyRulesFrame& rules = properties.Rules;
    settings.SaveSetting(section, kSourceKey, Trim(properties.Source));
    settings.SaveSetting(section, kDestinationKey, Trim(properties.Destination));
    SaveFlag(settings, section, kRecursiveKey, properties.Recursive);
    SaveFlag(settings, section, kOverwriteReadOnlyKey, properties.OverwriteReadOnly);
    SaveCopyType(settings, section, rules.Chosen);
    SaveFlag(settings, section, kClearArchiveBitKey, rules.ClearArchive);
    SaveFlag(settings, section, kDeleteCopyArchiveBitKey, rules.DeleteCopyArchive);
    SaveFlag(settings, section, kDeleteCopyReadOnlyKey, rules.DeleteCopyReadOnly);
    settings.SaveSetting(section, kSchemeKey, properties.Scheme);
    return section;
}

}  // namespace ambrio
