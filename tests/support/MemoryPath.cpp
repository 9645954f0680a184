#include "tests/support/MemoryPath.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace ambrio {
namespace {

constexpr std::size_t kLongestName = 255;
constexpr const wchar_t* kSeparators = L"\\/";

std::vector<std::wstring> Split(const std::wstring& text) {
    std::vector<std::wstring> parts;
    std::size_t start = text.find_first_not_of(kSeparators);
    while (start != std::wstring::npos) {
        const std::size_t end = std::min(text.find_first_of(kSeparators, start), text.size());
        parts.push_back(text.substr(start, end - start));
        start = text.find_first_not_of(kSeparators, end);
    }
    return parts;
}

void AppendResolved(std::vector<std::wstring>& names, const std::vector<std::wstring>& parts,
                    std::size_t from) {
    for (std::size_t i = from; i < parts.size(); ++i) {
        if (parts[i] == L"..") {
            if (!names.empty()) {
                names.pop_back();
            }
        } else if (parts[i] != L".") {
            names.push_back(parts[i]);
        }
    }
}

bool IsSeparator(wchar_t character) {
    return character == L'\\' || character == L'/';
}

}  // namespace

MemoryPath MemoryPath::Parse(const std::wstring& text, const std::wstring& currentFolder) {
    const std::vector<std::wstring> parts = Split(text);
    MemoryPath path;
    if (parts.empty()) {
        return path;
    }
    std::size_t used = 0;
    if (text.size() > 1 && IsSeparator(text[0]) && IsSeparator(text[1])) {
        if (parts.size() < 2) {
            return path;
        }
        path.Root = L"\\\\" + parts[0] + L'\\' + parts[1];
        used = 2;
    } else if (text.size() > 1 && text[1] == L':') {
        path.Root = text.substr(0, 2);
        const std::vector<std::wstring> rest = Split(text.substr(2));
        AppendResolved(path.Names, rest, 0);
        return path;
    } else {
        path = Parse(currentFolder, L"C:");
        if (IsSeparator(text[0])) {
            path.Names.clear();
        }
    }
    AppendResolved(path.Names, parts, used);
    return path;
}

bool IsPossibleName(const std::wstring& name) {
    return !name.empty() && name.size() <= kLongestName &&
           std::none_of(name.begin(), name.end(), [](wchar_t character) {
               return character < 32 ||
                      std::wstring_view(L"<>:\"|?*").find(character) != std::wstring_view::npos;
           });
}

}  // namespace ambrio
