#include "tests/e2e/support/Files.h"

namespace ambrio::e2e {

namespace {

constexpr DWORD kSettableAttributes = kReadOnly | kHidden | kSystem | kArchive;

bool HasAttribute(DWORD attributes, DWORD attribute) {
    return (attributes & attribute) != 0;
}

struct FindCloser {
    void operator()(HANDLE handle) const { FindClose(handle); }
};

void RemoveEntry(const std::wstring& path, DWORD attributes) {
    if (HasAttribute(attributes, FILE_ATTRIBUTE_READONLY)) {
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    const bool folder = HasAttribute(attributes, FILE_ATTRIBUTE_DIRECTORY);
    if (folder && !HasAttribute(attributes, FILE_ATTRIBUTE_REPARSE_POINT)) {
        RemoveTree(path);
    } else if ((folder ? RemoveDirectoryW(path.c_str()) : DeleteFileW(path.c_str())) == 0) {
        ThrowWin32Error("removing a test's file");
    }
}

}  // namespace

std::wstring ExtendedPath(const std::wstring& path) {
    if (path.starts_with(L"\\\\")) {
        return path.starts_with(L"\\\\?\\") ? path : L"\\\\?\\UNC" + path.substr(1);
    }
    return L"\\\\?\\" + path;
}

UniqueHandle OpenFile(const std::wstring& path, DWORD access, DWORD share, DWORD disposition) {
    const HANDLE handle = CreateFileW(ExtendedPath(path).c_str(), access, share, nullptr,
                                      disposition, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        ThrowWin32Error("opening a file");
    }
    return UniqueHandle(handle);
}

void WriteFileBytes(const std::wstring& path, std::string_view bytes) {
    const UniqueHandle file = OpenFile(path, GENERIC_WRITE, 0, CREATE_ALWAYS);
    DWORD written = 0;
    const auto size = static_cast<DWORD>(bytes.size());
    if (WriteFile(file.get(), bytes.data(), size, &written, nullptr) == 0 || written != size) {
        ThrowWin32Error("writing a file");
    }
}

std::string ReadFileBytes(const std::wstring& path) {
    const UniqueHandle file = OpenFile(
        path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
    std::string bytes;
    char buffer[65536];
    DWORD read = 0;
    do {
        if (ReadFile(file.get(), buffer, sizeof buffer, &read, nullptr) == 0) {
            ThrowWin32Error("reading a file");
        }
        bytes.append(buffer, read);
    } while (read > 0);
    return bytes;
}

bool FileExists(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(ExtendedPath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES &&
           !HasAttribute(attributes, FILE_ATTRIBUTE_DIRECTORY);
}

bool FolderExists(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(ExtendedPath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES &&
           HasAttribute(attributes, FILE_ATTRIBUTE_DIRECTORY);
}

void MakeFolders(const std::wstring& path) {
    if (FolderExists(path) || CreateDirectoryW(ExtendedPath(path).c_str(), nullptr) != 0) {
        return;
    }
    const std::size_t separator = path.find_last_of(L'\\');
    if (GetLastError() != ERROR_PATH_NOT_FOUND || separator == std::wstring::npos) {
        ThrowWin32Error("making a folder");
    }
    MakeFolders(path.substr(0, separator));
    if (CreateDirectoryW(ExtendedPath(path).c_str(), nullptr) == 0) {
        ThrowWin32Error("making a folder");
    }
}

DWORD FileAttributesOf(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(ExtendedPath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        ThrowWin32Error("reading a file's attributes");
    }
    return attributes & kSettableAttributes;
}

void SetFileAttributesOf(const std::wstring& path, DWORD attributes) {
    const DWORD settable = attributes & kSettableAttributes;
    if (SetFileAttributesW(ExtendedPath(path).c_str(),
                           settable == 0 ? FILE_ATTRIBUTE_NORMAL : settable) == 0) {
        ThrowWin32Error("setting a file's attributes");
    }
}

void SetModificationTime(const std::wstring& path, std::uint64_t time) {
    const UniqueHandle file =
        OpenFile(path, FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
    const FILETIME value{static_cast<DWORD>(time), static_cast<DWORD>(time >> 32U)};
    if (SetFileTime(file.get(), nullptr, nullptr, &value) == 0) {
        ThrowWin32Error("setting a file's time");
    }
}

std::uint64_t Now() {
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    return (std::uint64_t{now.dwHighDateTime} << 32U) | now.dwLowDateTime;
}

void RemoveTree(const std::wstring& path) {
    const std::wstring root = ExtendedPath(path);
    WIN32_FIND_DATAW entry{};
    const HANDLE found = FindFirstFileW((root + L"\\*").c_str(), &entry);
    if (found == INVALID_HANDLE_VALUE) {
        return;
    }
    {
        const std::unique_ptr<void, FindCloser> search(found);
        do {
            const std::wstring name = entry.cFileName;
            if (name != L"." && name != L"..") {
                RemoveEntry(root + L"\\" + name, entry.dwFileAttributes);
            }
        } while (FindNextFileW(found, &entry) != 0);
    }
    if (RemoveDirectoryW(root.c_str()) == 0) {
        ThrowWin32Error("removing a test's folder");
    }
}

std::wstring TemporaryFolder() {
    wchar_t buffer[MAX_PATH + 1];
    const DWORD length = GetTempPathW(MAX_PATH + 1, buffer);
    std::wstring path(buffer, length);
    while (path.ends_with(L'\\')) {
        path.pop_back();
    }
    return path;
}

std::wstring TestProgramFolder() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\'));
}

}  // namespace ambrio::e2e
