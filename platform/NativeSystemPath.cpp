#include "platform/NativeSystemPath.h"

#include <algorithm>
#include <string_view>

#include "platform/AsciiCase.h"

namespace ambrio {
namespace {

constexpr std::wstring_view kPrefix = L"\\\\?\\";
constexpr std::wstring_view kShown = L"\\System32";
constexpr std::wstring_view kNative = L"\\Sysnative";

bool StartsWith(std::wstring_view text, std::wstring_view start) {
    return text.size() >= start.size() &&
           std::equal(start.begin(), start.end(), text.begin(), [](wchar_t one, wchar_t other) {
               return AsciiUpperCase(one) == AsciiUpperCase(other);
           });
}

}  // namespace

std::wstring NativeSystemPath(std::wstring path, const std::wstring& windowsFolder) {
    const std::size_t start = path.starts_with(kPrefix) ? kPrefix.size() : 0;
    const std::size_t end = start + windowsFolder.size();
    const std::wstring_view rest = std::wstring_view(path).substr(std::min(end, path.size()));
    if (windowsFolder.empty() ||
        !StartsWith(std::wstring_view(path).substr(start), windowsFolder) ||
        !StartsWith(rest, kShown) ||
        (rest.size() > kShown.size() && rest[kShown.size()] != L'\\')) {
        return path;
    }
    return path.substr(0, end).append(kNative).append(rest.substr(kShown.size()));
}

}  // namespace ambrio
