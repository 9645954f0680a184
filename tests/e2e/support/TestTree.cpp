#include "tests/e2e/support/TestTree.h"

#include <cstdio>
#include <ostream>

#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/Text.h"

namespace ambrio::e2e {

namespace {

constexpr std::uint64_t kTicksPerSecond = 10'000'000;
constexpr DWORD kComparedAttributes =
    FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

std::uint64_t HashOf(std::string_view bytes) {
    std::uint64_t hash = 14695981039346656037U;
    for (const char byte : bytes) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    }
    return hash;
}

std::uint64_t Join(DWORD high, DWORD low) {
    return (std::uint64_t{high} << 32U) | low;
}

void ReadFolder(const std::wstring& root, const std::wstring& prefix, TreeFacts& facts) {
    WIN32_FIND_DATAW entry{};
    const HANDLE search =
        FindFirstFileW(ExtendedPath(root + L"\\" + prefix + L"*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) {
        return;
    }
    do {
        const std::wstring name = entry.cFileName;
        if (name == L"." || name == L"..") {
            continue;
        }
        EntryFacts& entryFacts = facts[prefix + name];
        entryFacts.IsFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        entryFacts.Attributes = entry.dwFileAttributes & kComparedAttributes;
        if (entryFacts.IsFolder) {
            ReadFolder(root, prefix + name + L"\\", facts);
            continue;
        }
        entryFacts.Size = Join(entry.nFileSizeHigh, entry.nFileSizeLow);
        entryFacts.ContentHash = HashOf(ReadFileBytes(root + L"\\" + prefix + name));
        entryFacts.ModificationTime =
            Join(entry.ftLastWriteTime.dwHighDateTime, entry.ftLastWriteTime.dwLowDateTime);
    } while (FindNextFileW(search, &entry) != 0);
    FindClose(search);
}

bool SameEntry(const EntryFacts& a, const EntryFacts& b) {
    return a.IsFolder && b.IsFolder ? a.Attributes == b.Attributes : a == b;
}

}  // namespace

TreeFacts ReadTree(const std::wstring& root) {
    TreeFacts facts;
    ReadFolder(root, L"", facts);
    return facts;
}

testing::AssertionResult SameTree(const TreeFacts& expected, const TreeFacts& actual) {
    testing::AssertionResult result = testing::AssertionSuccess();
    const auto differ = [&result](const std::wstring& path, const char* how) {
        if (result) {
            result = testing::AssertionFailure();
        }
        result << "\n  " << Utf8(path) << ": " << how;
    };
    for (const auto& [path, facts] : expected) {
        const auto found = actual.find(path);
        if (found == actual.end()) {
            differ(path, "missing");
        } else if (!SameEntry(facts, found->second)) {
            differ(path, "has another content, time or attributes");
        }
    }
    for (const auto& [path, facts] : actual) {
        if (!expected.contains(path)) {
            differ(path, "not expected");
        }
    }
    return result;
}

TestTree::TestTree(std::wstring root) : root_(std::move(root)) {
    MakeFolders(root_);
}

TestTree& TestTree::AddFile(const std::wstring& relative, std::string_view content,
                            unsigned ageInSeconds, unsigned long attributes) {
    const std::wstring path = PathOf(relative);
    MakeFolders(path.substr(0, path.find_last_of(L'\\')));
    if (FileExists(path)) {
        SetFileAttributesOf(path, 0);
    }
    WriteFileBytes(path, content);
    // Whole seconds, so that a file system with coarser times keeps them too.
    const std::uint64_t seconds = Now() / kTicksPerSecond / 2 * 2 - ageInSeconds;
    SetModificationTime(path, seconds * kTicksPerSecond);
    if (attributes != 0) {
        SetFileAttributesOf(path, attributes);
    }
    return *this;
}

TestTree& TestTree::AddFolder(const std::wstring& relative) {
    MakeFolders(PathOf(relative));
    return *this;
}

TestTree& TestTree::AddManyFiles(const std::wstring& folder, int count) {
    for (int number = 1; number <= count; ++number) {
        wchar_t name[16];
        std::swprintf(name, 16, L"\\%04d.txt", number);
        AddFile(folder + name, "x");
    }
    return *this;
}

}  // namespace ambrio::e2e
