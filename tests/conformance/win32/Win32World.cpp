#include "tests/conformance/win32/Win32World.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "platform/win32/system/Handle.h"
#include "tests/conformance/WineGaps.h"
#include "tests/conformance/win32/GivenAway.h"
#include "tests/conformance/win32/Junction.h"
#include "tests/support/win32/WindowsFiles.h"

namespace ambrio {
namespace {

constexpr std::uint64_t kTicksPerSecond = 10'000'000;

// Every path here begins with a drive and is in order, so that the prefix is all it needs.
std::wstring Extended(const std::wstring& path) {
    return L"\\\\?\\" + path;
}

UniqueHandle Open(const std::wstring& path, DWORD access, DWORD share, DWORD creation) {
    auto file = MakeHandle<UniqueHandle>(CreateFileW(Extended(path).c_str(), access, share, nullptr,
                                                     creation, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        const DWORD code = GetLastError();
        const std::string text = "the test cannot open its file: " + std::to_string(code);
        if (code == ERROR_SHARING_VIOLATION) {
            throw FileSystemWorld::IsHeld(text);
        }
        throw std::runtime_error(text);
    }
    return file;
}

void RemoveTree(const std::wstring& folder) {
    WIN32_FIND_DATAW data;
    {
        const auto search =
            MakeHandle<UniqueFindHandle>(FindFirstFileW((folder + L"\\*").c_str(), &data));
        for (bool more = search != nullptr; more; more = FindNextFileW(search.get(), &data) != 0) {
            const std::wstring_view name = data.cFileName;
            if (name == L"." || name == L"..") {
                continue;
            }
            const std::wstring path = folder + L'\\' + std::wstring(name);
            SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
            const bool isLink = (data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
            if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
                DeleteFileW(path.c_str());
            } else if (isLink) {
                RemoveDirectoryW(path.c_str());
            } else {
                RemoveTree(path);
            }
        }
    }
    RemoveDirectoryW(folder.c_str());
}

std::wstring NewTemporaryFolder() {
    static int count = 0;
    std::wstring temporary(MAX_PATH + 1, L'\0');
    temporary.resize(GetTempPathW(MAX_PATH + 1, temporary.data()));
    // The long form, so that the length of a path is what the test thinks it is.
    std::wstring folder(32'768, L'\0');
    folder.resize(GetLongPathNameW(temporary.c_str(), folder.data(), 32'768));
    folder += L"ambrio-conformance-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
              std::to_wstring(++count);
    if (CreateDirectoryW(Extended(folder).c_str(), nullptr) == 0) {
        throw std::runtime_error("the test cannot make its folder");
    }
    return folder;
}

}  // namespace

Win32World::Win32World() : root_(NewTemporaryFolder()) {
    static_cast<void>(LoadWindowsFiles());
}

Win32World::~Win32World() {
    RemoveTree(Extended(root_));
}

std::wstring Win32World::AbsentDrive() const {
    const DWORD drives = GetLogicalDrives();
    wchar_t letter = L'Z';
    while (letter > L'A' && ((drives >> (letter - L'A')) & 1U) != 0) {
        --letter;
    }
    return std::wstring(1, letter) + L':';
}

std::uint32_t Win32World::ProcessId() const {
    return GetCurrentProcessId();
}

unsigned Win32World::CodePage() const {
    return GetACP();
}

void Win32World::Write(const std::wstring& path, const std::string& content) {
    const auto file = Open(path, GENERIC_WRITE, 0, CREATE_ALWAYS);
    DWORD written = 0;
    if (WriteFile(file.get(), content.data(), static_cast<DWORD>(content.size()), &written,
                  nullptr) == 0) {
        throw std::runtime_error("the test cannot write its file");
    }
}

std::string Win32World::Read(const std::wstring& path) {
    const auto file = Open(path, GENERIC_READ,
                           FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
    std::string content(GetFileSize(file.get(), nullptr), '\0');
    DWORD done = 0;
    if (ReadFile(file.get(), content.data(), static_cast<DWORD>(content.size()), &done, nullptr) ==
        0) {
        throw std::runtime_error("the test cannot read its file");
    }
    content.resize(done);
    return content;
}

void Win32World::SetTime(const std::wstring& path, FileSeconds time, std::uint32_t ticks) {
    const std::uint64_t value = static_cast<std::uint64_t>(time) * kTicksPerSecond + ticks;
    const FILETIME fileTime{static_cast<DWORD>(value), static_cast<DWORD>(value >> 32U)};
    const auto file = Open(path, FILE_WRITE_ATTRIBUTES, 0, OPEN_EXISTING);
    if (SetFileTime(file.get(), nullptr, nullptr, &fileTime) == 0) {
        throw std::runtime_error("the test cannot set its file's time");
    }
}

std::shared_ptr<void> Win32World::Lock(const std::wstring& path) {
    return {Open(path, GENERIC_READ, 0, OPEN_EXISTING)};
}

bool Win32World::MakeLink(const std::wstring& path, const std::wstring& target, LinkKind kind) {
    constexpr DWORD kWithoutPrivilege = 2;
    if (kind == LinkKind::MountPoint) {
        return MakeJunction(path, target);
    }
    const DWORD folder = kind == LinkKind::ToFolder ? SYMBOLIC_LINK_FLAG_DIRECTORY : 0;
    // Systems that do not know the second flag refuse the call and get it without.
    return CreateSymbolicLinkW(path.c_str(), target.c_str(), folder | kWithoutPrivilege) != 0 ||
           CreateSymbolicLinkW(path.c_str(), target.c_str(), folder) != 0;
}

void Win32World::Rename(const std::wstring& path, const std::wstring& newName) {
    const std::wstring folder = path.substr(0, path.rfind(L'\\') + 1);
    if (MoveFileExW(Extended(path).c_str(), Extended(folder + newName).c_str(), 0) == 0) {
        throw std::runtime_error("the test cannot rename: " + std::to_string(GetLastError()));
    }
}

bool Win32World::GiveAway(const std::wstring& link) {
    return GiveToEveryone(Extended(link));
}

const char* Win32World::ReasonToSkip(const std::string& test) const {
    if (!RunsOnWine()) {
        return nullptr;
    }
    const auto* gap = std::find_if(kWineGaps.begin(), kWineGaps.end(),
                                   [&](const WineGap& row) { return row.Test == test; });
    return gap == kWineGaps.end() ? nullptr : gap->Reason;
}

}  // namespace ambrio
