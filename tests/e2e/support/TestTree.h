#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace ambrio::e2e {

// What one file or folder of a tree is.
struct EntryFacts {
    bool IsFolder = false;
    std::uint64_t Size = 0;
    std::uint64_t ContentHash = 0;
    unsigned long Attributes = 0;  // read-only, hidden and system
    std::uint64_t ModificationTime = 0;

    friend bool operator==(const EntryFacts&, const EntryFacts&) = default;
};

// By path relative to the root. The root itself is not in it.
using TreeFacts = std::map<std::wstring, EntryFacts>;

// Reads a tree with all contents; a root that does not exist gives an empty one.
[[nodiscard]] TreeFacts ReadTree(const std::wstring& root);

// Success when both hold the same; a failure names each difference. Folders are compared by name
// only, as their times change with what is put into them.
[[nodiscard]] testing::AssertionResult SameTree(const TreeFacts& expected, const TreeFacts& actual);

// Builds a tree of files below a folder, which is made at once.
class TestTree {
  public:
    explicit TestTree(std::wstring root);

    [[nodiscard]] const std::wstring& Root() const { return root_; }
    [[nodiscard]] std::wstring PathOf(const std::wstring& relative) const {
        return root_ + L"\\" + relative;
    }

    // Makes or replaces a file and the folders that it lies in. `ageInSeconds` counts from now
    // backwards.
    TestTree& AddFile(const std::wstring& relative, std::string_view content,
                      unsigned ageInSeconds = 3600, unsigned long attributes = 0);
    TestTree& AddFolder(const std::wstring& relative);
    // Many small files "0001.txt", "0002.txt", ... in a folder.
    TestTree& AddManyFiles(const std::wstring& folder, int count);

  private:
    std::wstring root_;
};

}  // namespace ambrio::e2e
