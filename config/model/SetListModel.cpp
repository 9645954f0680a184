#include "config/model/SetListModel.h"

#include <utility>

#include "settings/BackupSet.h"
#include "settings/SetList.h"
#include "settings/SettingKeys.h"

namespace ambrio {

SetListModel::SetListModel(std::vector<SetEntry> entries, std::optional<std::size_t> current)
    : entries_(std::move(entries)), current_(current) {
    if (current_ && *current_ >= entries_.size()) {
        current_.reset();
    }
}

void SetListModel::BuildList(SettingsStore& settings, const std::wstring& rsSets) {
    if (rsSets.empty()) {
        return;
    }
    std::vector<SetEntry> entries = entries_;
    for (const std::wstring& name : SplitSetList(rsSets)) {
        entries.push_back({name, ReadSelected(settings, name)});
    }
    entries_ = std::move(entries);
    MakeFirstCurrent();
}

void SetListModel::Save(SettingsStore& settings) const {
    std::vector<std::wstring> names;
    for (const SetEntry& entry : entries_) {
        names.push_back(entry.Name);
        SaveSelected(settings, entry.Name, entry.IsTicked);
    }
    settings.SaveSetting(kGeneralSection, kSetsKey, JoinSetList(names));
}

bool SetListModel::MoveUp() {
    if (!current_ || *current_ == 0) {
        return false;
    }
    std::swap(entries_[*current_], entries_[*current_ - 1]);
    --*current_;
    return true;
}

bool SetListModel::MoveDown() {
    if (!current_ || *current_ + 1 == entries_.size()) {
        return false;
    }
    std::swap(entries_[*current_], entries_[*current_ + 1]);
    ++*current_;
    return true;
}

void SetListModel::Add(const std::wstring& name) {
    entries_.push_back({name, false});
}

void SetListModel::MakeLastCurrent() {
    if (!entries_.empty()) {
        current_ = entries_.size() - 1;
    }
}

void SetListModel::RemoveCurrent() {
    if (current_) {
        entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(*current_));
        MakeFirstCurrent();
    }
}

std::wstring SetListModel::CurrentName() const {
    return current_ ? entries_[*current_].Name : std::wstring();
}

void SetListModel::MakeFirstCurrent() {
    current_ = entries_.empty() ? std::nullopt : std::optional<std::size_t>(0);
}

}  // namespace ambrio
