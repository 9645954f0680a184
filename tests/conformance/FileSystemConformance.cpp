#include "tests/conformance/FileSystemConformance.h"

#include <algorithm>

namespace ambrio {

void FileSystemConformance::SetUp() {
    world_ = GetParam().Make();
    std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
    test.resize(test.find('/'));
    if (const char* reason = world_->ReasonToSkip(test)) {
        GTEST_SKIP() << reason;
    }
}

std::wstring FileSystemConformance::At(const std::wstring& name) const {
    return FileSystem::BuildPath(world_->Root(), name);
}

std::wstring FileSystemConformance::NewFile(const std::wstring& name, const std::string& content) {
    std::wstring path = At(name);
    world_->Write(path, content);
    return path;
}

std::wstring FileSystemConformance::NewFolder(const std::wstring& name) {
    std::wstring path = At(name);
    Files().CreateFolder(path);
    return path;
}

void FileSystemConformance::Copy(const std::wstring& source, const std::wstring& destination,
                                 bool overwrite) {
    Files().CopyFile(source, destination, overwrite, {});
}

FileAttributes FileSystemConformance::Attributes(const std::wstring& path) {
    return Files().GetFile(path).Attributes;
}

void FileSystemConformance::AddAttributes(const std::wstring& path, FileAttributes attributes) {
    Files().SetAttributes(path, Attributes(path) | attributes);
}

std::map<std::wstring, FileEntry> FileSystemConformance::List(const std::wstring& folder) {
    std::map<std::wstring, FileEntry> entries;
    const auto reader = Files().GetFolder(folder);
    FileEntry entry;
    while (reader->Next(entry)) {
        EXPECT_TRUE(entries.emplace(entry.Name, entry).second) << "listed twice";
    }
    EXPECT_FALSE(reader->Next(entry)) << "the end of a listing stays its end";
    return entries;
}

testing::AssertionResult FileSystemConformance::HasOnly(const std::wstring& folder,
                                                        std::vector<std::wstring> names) {
    std::vector<std::wstring> found;
    for (const auto& [name, entry] : List(folder)) {
        found.push_back(name);
    }
    std::sort(names.begin(), names.end());
    if (found == names) {
        return testing::AssertionSuccess();
    }
    auto failure = testing::AssertionFailure() << "the folder holds:";
    for (const std::wstring& name : found) {
        failure << " <" << testing::PrintToString(name) << ">";
    }
    return failure;
}

FileSystemConformance::Outcome FileSystemConformance::Creating(const std::wstring& path) {
    return RuntimeErrorOf([&] { Files().CreateFolder(path); });
}

FileSystemConformance::Outcome FileSystemConformance::Getting(const std::wstring& path) {
    return RuntimeErrorOf([&] { Files().GetFile(path); });
}

FileSystemConformance::Outcome FileSystemConformance::Listing(const std::wstring& path) {
    return RuntimeErrorOf([&] { Files().GetFolder(path); });
}

FileSystemConformance::Outcome FileSystemConformance::Deleting(const std::wstring& path,
                                                               bool force) {
    return RuntimeErrorOf([&] { Files().DeleteFile(path, force); });
}

FileSystemConformance::Outcome FileSystemConformance::Copying(const std::wstring& source,
                                                              const std::wstring& destination,
                                                              bool overwrite) {
    return RuntimeErrorOf([&] { Copy(source, destination, overwrite); });
}

FileSystemConformance::Outcome FileSystemConformance::Logging(const std::wstring& path) {
    return RuntimeErrorOf([&] { Files().OpenForAppending(path)->WriteLine(L"line"); });
}

}  // namespace ambrio
