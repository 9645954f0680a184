#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/ForwardingFileSystem.h"
#include "tests/support/EngineBench.h"

namespace ambrio {
namespace {

constexpr std::size_t kLevels = 4'000;

// "C:\W" is a folder with nothing in it but a folder "d" with nothing in it but a folder "d", and
// so on; in the last one lies a file. "C:\V" has the same folders.
class Well : public ForwardingFileSystem {
  public:
    using ForwardingFileSystem::ForwardingFileSystem;

    std::size_t Deepest = 0;  // levels

    bool FolderExists(const std::wstring& path) override {
        return IsInWell(path) || ForwardingFileSystem::FolderExists(path);
    }
    std::optional<FileIdentity> IdentityOf(const std::wstring& path) override {
        return IsInWell(path) ? Identity(path) : ForwardingFileSystem::IdentityOf(path);
    }
    FileEntry GetFile(const std::wstring& path) override {
        return IsInWell(path) ? Entry(L"f", 0) : ForwardingFileSystem::GetFile(path);
    }
    std::unique_ptr<FolderReader> GetFolder(const std::wstring& path) override {
        class One : public FolderReader {
          public:
            One(FileEntry entry, FileIdentity identity)
                : entry_(std::move(entry)), identity_(std::move(identity)) {}
            bool Next(FileEntry& entry) override {
                entry = entry_;
                return !std::exchange(isOver_, true);
            }
            std::optional<FileIdentity> Identity() override { return identity_; }

          private:
            FileEntry entry_;
            FileIdentity identity_;
            bool isOver_ = false;
        };
        if (!IsInWell(path)) {
            return ForwardingFileSystem::GetFolder(path);
        }
        const std::size_t level = path.size() / 2 - 2;
        Deepest = std::max(Deepest, level);
        const bool isBottom = level == kLevels;
        return std::make_unique<One>(isBottom ? Entry(L"f", 0) : Entry(L"d", kAttributeDirectory),
                                     Identity(path));
    }

  private:
    static bool IsInWell(const std::wstring& path) {
        return path.starts_with(L"C:\\W") || path.starts_with(L"C:\\V");
    }
    static FileIdentity Identity(const std::wstring& path) {
        return {static_cast<std::uint64_t>(path[3]), path.size()};
    }
    static FileEntry Entry(const wchar_t* name, FileAttributes attributes) {
        FileEntry entry;
        entry.Name = name;
        entry.Attributes = attributes;
        return entry;
    }
};

// As a Windows program, whose stack is the product's: the walk goes one call down for each folder.
TEST(DeepestTree, IsWalkedToItsEnd) {
    EngineBench bench;
    bench.AddSet(L"S", L"C:\\W", L"C:\\V");
    Well files(bench.Files);
    bench.Run(files, bench.Settings);
    EXPECT_EQ(files.Deepest, kLevels);
    EXPECT_EQ(bench.State.FilesChecked, 1);
    EXPECT_FALSE(bench.State.HasFailures());
}

}  // namespace
}  // namespace ambrio
