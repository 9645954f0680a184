// The least that a backup can do, to measure the program against:
//   BareLoop SOURCE DESTINATION [poll|flush]
// lists each folder, asks for the attributes of each file once, and where the copy is missing or
// older lets the system copy the file to another name and renames that. With "poll" it looks into
// its empty message queue after each file, with "flush" it has each copy written to the disk before
// the renaming, as the program has. It checks nothing and reports nothing but its counts.

#include <iostream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/WindowsHeaders.h"

namespace {

struct Loop {
    bool Polls = false;
    bool Flushes = false;
    int Checked = 0;
    int Copied = 0;
    int Failed = 0;
};

using Times = std::map<std::wstring, FILETIME>;

template <typename Take>
void List(const std::wstring& folder, Take take) {
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileExW((folder + L"\\*").c_str(), FindExInfoBasic, &found,
                                           FindExSearchNameMatch, nullptr, 0);
    if (search == INVALID_HANDLE_VALUE) {
        return;
    }
    do {
        const std::wstring name = found.cFileName;
        if (name != L"." && name != L"..") {
            take(name, found);
        }
    } while (FindNextFileW(search, &found) != FALSE);
    FindClose(search);
}

bool Flush(const std::wstring& path) {
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    const bool isFlushed = FlushFileBuffers(file) != FALSE;
    CloseHandle(file);
    return isFlushed;
}

void Copy(Loop& loop, const std::wstring& source, const std::wstring& destination,
          const std::wstring& folder) {
    const std::wstring temporary = folder + L"\\BareLoop.tmp";
    const bool isCopied =
        CopyFileExW(source.c_str(), temporary.c_str(), nullptr, nullptr, nullptr,
                    COPY_FILE_FAIL_IF_EXISTS) != FALSE &&
        (!loop.Flushes || Flush(temporary)) &&
        MoveFileExW(temporary.c_str(), destination.c_str(), MOVEFILE_REPLACE_EXISTING) != FALSE;
    ++(isCopied ? loop.Copied : loop.Failed);
}

void Walk(Loop& loop, const std::wstring& source, const std::wstring& destination) {
    CreateDirectoryW(destination.c_str(), nullptr);
    Times copies;
    List(destination, [&copies](const std::wstring& name, const WIN32_FIND_DATAW& found) {
        copies[name] = found.ftLastWriteTime;
    });
    std::vector<std::wstring> folders;
    List(source, [&](const std::wstring& name, const WIN32_FIND_DATAW& found) {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            folders.push_back(name);
            return;
        }
        ++loop.Checked;
        const std::wstring path = source + L'\\' + name;
        WIN32_FILE_ATTRIBUTE_DATA data;
        if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) == FALSE) {
            ++loop.Failed;
            return;
        }
        const auto copy = copies.find(name);
        if (copy == copies.end() || CompareFileTime(&data.ftLastWriteTime, &copy->second) > 0) {
            Copy(loop, path, destination + L'\\' + name, destination);
        }
        MSG message;
        if (loop.Polls) {
            PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
        }
    });
    for (const std::wstring& name : folders) {
        Walk(loop, source + L'\\' + name, destination + L'\\' + name);
    }
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 3) {
        return 2;
    }
    Loop loop;
    const std::wstring_view manner = count > 3 ? arguments[3] : L"";
    loop.Polls = manner == L"poll";
    loop.Flushes = manner == L"flush";
    Walk(loop, arguments[1], arguments[2]);
    std::wcout << loop.Checked << L' ' << loop.Copied << L' ' << loop.Failed << std::endl;
    return loop.Failed > 0 ? 1 : 0;
}
