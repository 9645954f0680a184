#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "config/model/CopyRulesFrame.h"

namespace ambrio {

// What a scheme chooses and ticks.
struct SchemeRules {
    CopyTypeOption Option = CopyTypeOption::None;
    bool ClearArchive = false;
    bool DeleteCopyArchive = false;
    bool DeleteCopyReadOnly = false;
};

struct Scheme {
    const wchar_t* Name;               // in the list of the dialog and in the settings
    std::optional<SchemeRules> Rules;  // nothing: the rules are the user's
};

// Every scheme there is, in the order of the dialog's list. A further one needs an entry here and
// nothing else; the first leaves the rules to the user and is the only one to do so.
inline constexpr std::array kSchemes = {
    Scheme{L"Set my own", std::nullopt},
    Scheme{L"Duplication", SchemeRules{.Option = CopyTypeOption::DateTime}},
    Scheme{L"Differential",
           SchemeRules{.Option = CopyTypeOption::Archive, .DeleteCopyArchive = true}},
    Scheme{L"Version Control",
           SchemeRules{.Option = CopyTypeOption::ReadOnly, .DeleteCopyReadOnly = true}},
};
inline constexpr const wchar_t* kOwnRules = kSchemes.front().Name;

// The scheme of exactly that name, or null.
[[nodiscard]] inline const Scheme* FindScheme(const std::wstring& name) {
    const auto* found = std::find_if(kSchemes.begin(), kSchemes.end(),
                                     [&](const Scheme& scheme) { return name == scheme.Name; });
    return found == kSchemes.end() ? nullptr : found;
}

}  // namespace ambrio
