#include "platform/win32/files/ExtendedPath.h"

#include <algorithm>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "platform/win32/files/FullPath.h"
#include "platform/win32/files/Win32Error.h"
#include "platform/win32/system/SystemRedirection.h"

namespace ambrio {
namespace {

constexpr std::wstring_view kLocalPrefix = L"\\\\?\\";
constexpr std::wstring_view kNetworkPrefix = L"\\\\?\\UNC\\";
constexpr std::wstring_view kDevicePrefix = L"\\\\.\\";
constexpr std::wstring_view kNetworkStart = L"\\\\";
constexpr std::size_t kDriveRoot = 3;  // "C:\"

bool IsNetworkPath(std::wstring_view path) {
    return path.starts_with(kNetworkStart);
}

bool IsFull(std::wstring_view path) {
    return IsNetworkPath(path) ||
           (path.size() >= kDriveRoot && path[1] == L':' && path[2] == L'\\');
}

// A separator that follows another, or a part that is "." or "..".
bool HasOddPart(std::wstring_view path) {
    std::size_t start = IsNetworkPath(path) ? kNetworkStart.size() : kDriveRoot;
    while (start < path.size()) {
        const std::size_t end = std::min(path.find(L'\\', start), path.size());
        const std::wstring_view part = path.substr(start, end - start);
        if (part.empty() || part == L"." || part == L"..") {
            return true;
        }
        start = end + 1;
    }
    return false;
}

std::wstring Completed(const std::wstring& path) {
    std::wstring full = FullPath(path);
    if (full.empty()) {
        ThrowLastError();
    }
    return full;
}

void RequirePlace(const std::wstring& path) {
    const std::size_t start = path.find_first_not_of(L"\\/");
    const bool network = path.size() > 1 && path.find_first_not_of(L"\\/") >= kNetworkStart.size();
    if (start == std::wstring::npos) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    const std::size_t end = path.find_first_of(L"\\/", start);
    if (network &&
        (end == std::wstring::npos || path.find_first_not_of(L"\\/", end) == std::wstring::npos)) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
}

std::wstring Joined(std::wstring_view start, std::wstring_view end) {
    std::wstring text;
    text.reserve(start.size() + end.size());
    return text.append(start).append(end);
}

}  // namespace

std::wstring ExtendedPath(const std::wstring& path) {
    if (path.starts_with(kLocalPrefix)) {
        return WithoutRedirection(path);
    }
    RequirePlace(path);
    const bool odd = !IsFull(path) || path.find(L'/') != std::wstring::npos || HasOddPart(path);
    const std::wstring completed = odd ? Completed(path) : std::wstring();
    std::wstring_view full = odd ? completed : path;
    if (full.starts_with(kDevicePrefix)) {
        throw RuntimeError(ErrorNumber::BadFileNameOrNumber);
    }
    while (full.size() > kDriveRoot && full.back() == L'\\') {
        full.remove_suffix(1);
    }
    if (IsNetworkPath(full)) {
        return Joined(kNetworkPrefix, full.substr(kNetworkStart.size()));
    }
    return WithoutRedirection(Joined(kLocalPrefix, full));
}

std::wstring FolderOfExtended(const std::wstring& extended) {
    return extended.substr(0, extended.rfind(L'\\') + 1);
}

std::wstring NameOfExtended(const std::wstring& extended) {
    return extended.substr(extended.rfind(L'\\') + 1);
}

}  // namespace ambrio
