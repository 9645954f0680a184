#pragma once

#include <string>
#include <vector>

namespace ambrio {

// The pieces of a stored list of Sets, split at each comma and otherwise as they stand: this is
// what the dialog shows. An empty list has no pieces; a list that ends with a comma ends with an
// empty one.
[[nodiscard]] std::vector<std::wstring> SplitSetList(const std::wstring& sets);

// The names that a run processes, in its order: the same pieces without blanks at their ends. One
// that holds nothing but blanks stays, as an empty name.
[[nodiscard]] std::vector<std::wstring> SetNamesForRun(const std::wstring& sets);

// The list to store: the names joined by commas, without blanks. A name that holds a comma comes
// back as two.
[[nodiscard]] std::wstring JoinSetList(const std::vector<std::wstring>& names);

}  // namespace ambrio
