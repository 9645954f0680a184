#include "settings/SetList.h"

#include "platform/Trim.h"

namespace ambrio {
namespace {

constexpr wchar_t kSeparator = L',';

}  // namespace

std::vector<std::wstring> SplitSetList(const std::wstring& sets) {
    std::vector<std::wstring> pieces;
    if (sets.empty()) {
        return pieces;
    }
    std::size_t start = 0;
    for (std::size_t comma = sets.find(kSeparator); comma != std::wstring::npos;
         comma = sets.find(kSeparator, start)) {
        pieces.push_back(sets.substr(start, comma - start));
        start = comma + 1;
    }
    pieces.push_back(sets.substr(start));
    return pieces;
}

std::vector<std::wstring> SetNamesForRun(const std::wstring& sets) {
    std::vector<std::wstring> names = SplitSetList(sets);
    for (std::wstring& name : names) {
        name = Trim(name);
    }
    return names;
}

std::wstring JoinSetList(const std::vector<std::wstring>& names) {
    std::wstring sets;
    for (const std::wstring& name : names) {
        sets += name + kSeparator;
    }
    if (!sets.empty()) {
        sets.pop_back();
    }
    return sets;
}

}  // namespace ambrio
