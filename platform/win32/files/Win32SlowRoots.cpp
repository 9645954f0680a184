#include "platform/win32/files/Win32SlowRoots.h"

#include "platform/AsciiCase.h"
#include "platform/DriveLetter.h"
#include "platform/win32/WindowsHeaders.h"
#include "platform/win32/files/ExtendedPath.h"
#include "platform/win32/files/FullPath.h"

namespace ambrio {
namespace {

constexpr const wchar_t* kSeparators = L"\\/";
constexpr std::size_t kNetworkStart = 2;  // "\\"

bool IsSeparator(const std::wstring& text, std::size_t place) {
    return place < text.size() && (text[place] == L'\\' || text[place] == L'/');
}

// "\\SERVER\SHARE"; empty when there is no share.
std::wstring ShareOf(const std::wstring& path) {
    const std::size_t server = path.find_first_of(kSeparators, kNetworkStart);
    if (server == kNetworkStart || server >= path.size() - 1) {
        return {};
    }
    std::wstring share = path.substr(0, path.find_first_of(kSeparators, server + 1));
    for (wchar_t& letter : share) {
        letter = letter == L'/' ? L'\\' : AsciiUpperCase(letter);
    }
    return share;
}

}  // namespace

std::wstring Win32SlowRoots::RootOf(const std::wstring& path) {
    if (path.empty()) {
        return {};
    }
    if (IsSeparator(path, 0) && IsSeparator(path, 1)) {
        return ShareOf(path);
    }
    if (const wchar_t drive = DriveLetterOf(path); drive != 0) {
        return IsSlow(drive) ? std::wstring{drive, L':'} : std::wstring();
    }
    // One that says nothing of its drive.
    const std::wstring full = FullPath(path);
    return DriveLetterOf(full) != 0 || full.starts_with(L"\\\\") ? RootOf(full) : std::wstring();
}

bool Win32SlowRoots::IsSlow(wchar_t drive) {
    if (const auto known = slow_.find(drive); known != slow_.end()) {
        return known->second;
    }
    const UINT kind = GetDriveTypeW((std::wstring{drive} + L":\\").c_str());
    if (kind == DRIVE_NO_ROOT_DIR) {
        return false;  // it may be there later, and says at once that it is not
    }
    const bool isSlow = kind != DRIVE_FIXED && kind != DRIVE_RAMDISK;
    slow_.emplace(drive, isSlow);
    return isSlow;
}

std::optional<ErrorNumber> Win32SlowRoots::TroubleWith(const std::wstring& root) {
    if (GetFileAttributesW(ExtendedPath(root + L"\\").c_str()) != INVALID_FILE_ATTRIBUTES) {
        return std::nullopt;
    }
    const DWORD code = GetLastError();
    if (code == ERROR_ACCESS_DENIED) {
        return std::nullopt;  // an answer
    }
    return NumberOfWin32Code(code);
}

std::chrono::milliseconds Win32SlowRoots::Now() {
    return std::chrono::milliseconds(static_cast<std::int64_t>(GetTickCount64()));
}

}  // namespace ambrio
