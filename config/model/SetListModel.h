#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/SettingsStore.h"

namespace ambrio {

struct SetEntry {
    std::wstring Name;
    bool IsTicked = false;  // the run does this Set

    friend bool operator==(const SetEntry&, const SetEntry&) = default;
};

// The ordered list of Sets while it is being edited. It always has a current entry when it is not
// empty.
class SetListModel {
  public:
    SetListModel() = default;
    // `current` beyond the entries counts as no current entry.
    SetListModel(std::vector<SetEntry> entries, std::optional<std::size_t> current);

    // Adds the names of a comma-separated list, each ticked as its own section says, and makes
    // entry 0 current. A name is taken as it stands, blanks included. An empty list adds nothing.
    // Throws RuntimeError when a "Selected" text is no Boolean; the list is then as before.
    void BuildList(SettingsStore& settings, const std::wstring& rsSets);

    // Writes each Set's tick into its own section and then the list of names. Throws RuntimeError
    // when the store refuses; what was written before that stays.
    void Save(SettingsStore& settings) const;

    // Moves the current entry one place with its tick; it stays current. False, and nothing
    // changed, when it has no place to go or there is no current entry.
    bool MoveUp();
    bool MoveDown();

    // Adds an unticked entry at the end. The current entry stays.
    void Add(const std::wstring& name);
    void MakeLastCurrent();
    // Removes the current entry, if there is one, and makes entry 0 of the rest current.
    void RemoveCurrent();

    [[nodiscard]] const std::vector<SetEntry>& Entries() const { return entries_; }
    [[nodiscard]] std::optional<std::size_t> Current() const { return current_; }
    // The current entry's name; empty when there is none.
    [[nodiscard]] std::wstring CurrentName() const;

  private:
    void MakeFirstCurrent();

    std::vector<SetEntry> entries_;
    std::optional<std::size_t> current_;
};

}  // namespace ambrio
