#pragma once

#include <string>

namespace ambrio {

// Which of the three copy-type options is chosen. None only when the store holds a copy type that
// is not one of the three.
enum class CopyTypeOption { None, DateTime, Archive, ReadOnly };

// The state of the controls in the frame of copy rules.
struct CopyRules {
    CopyTypeOption Chosen = CopyTypeOption::DateTime;
    bool ClearArchive = false;
    bool DeleteCopyArchive = false;
    bool DeleteCopyReadOnly = false;
    bool IsFrameEnabled = true;

    [[nodiscard]] bool AreArchiveBoxesEnabled() const { return Chosen == CopyTypeOption::Archive; }
    [[nodiscard]] bool IsReadOnlyBoxEnabled() const { return Chosen == CopyTypeOption::ReadOnly; }

    friend bool operator==(const CopyRules&, const CopyRules&) = default;
};

// Unticks the check boxes that do not belong to the chosen option.
void SetCheckBoxes(CopyRules& rules);

// Chooses an option, as a click on it does.
void ChooseOption(CopyRules& rules, CopyTypeOption option);

// Applies the scheme of exactly that name; any other text changes nothing.
void ApplyScheme(CopyRules& rules, const std::wstring& scheme);

}  // namespace ambrio
