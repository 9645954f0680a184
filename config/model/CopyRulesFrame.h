#pragma once

#include <string>

namespace ambrio {

// Which of the three copy-type options is chosen. None only when the store holds a copy type that
// is not one of the three.
enum class CopyTypeOption { None, DateTime, Archive, ReadOnly };

// The state of the controls in the frame of copy rules.
struct CopyRulesFrame {
    CopyTypeOption Chosen = CopyTypeOption::DateTime;
    bool ClearArchive = false;
    bool DeleteCopyArchive = false;
    bool DeleteCopyReadOnly = false;
    bool IsFrameEnabled = true;

    [[nodiscard]] bool AreArchiveBoxesEnabled() const { return Chosen == CopyTypeOption::Archive; }
    [[nodiscard]] bool IsReadOnlyBoxEnabled() const { return Chosen == CopyTypeOption::ReadOnly; }

    friend bool operator==(const CopyRulesFrame&, const CopyRulesFrame&) = default;
};

// Unticks the check boxes that do not belong to the chosen option.
void SetCheckBoxes(CopyRulesFrame& rules);

// Applies the scheme of exactly that name (Schemes.h): sets its rules and locks the frame, or only
// unlocks it where the rules are the user's. Any other text changes nothing.
void ApplyScheme(CopyRulesFrame& rules, const std::wstring& scheme);

}  // namespace ambrio
