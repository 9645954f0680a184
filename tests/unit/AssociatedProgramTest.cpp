#include "platform/win32/system/AssociatedProgram.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

namespace ambrio {
namespace {

TEST(AssociatedProgram, IsNoneForAnExtensionThatNobodyKnowsAndLeavesNoFile) {
    EXPECT_EQ(L"", GetBrowserPath(L"ambrio-unknown"));
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesW(L"~temp.ambrio-unknown"));
    EXPECT_EQ(L"", GetBrowserPath(L"no\\such:file"));
}

// A file with these bytes in the current folder, for as long as the object lives.
class OwnFile {
  public:
    OwnFile(const char* path, const std::string& bytes) : path_(path) {
        std::ofstream(path_, std::ios::binary) << bytes;
    }
    ~OwnFile() { std::remove(path_); }
    OwnFile(const OwnFile&) = delete;
    OwnFile& operator=(const OwnFile&) = delete;

    [[nodiscard]] std::string Bytes() const {
        std::ifstream file(path_, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

  private:
    const char* path_;
};

TEST(AssociatedProgram, LeavesAFileOfTheUsersAlone) {
    const OwnFile own("~temp.ambrio-unknown", "the user's");
    EXPECT_EQ(L"", GetBrowserPath(L"ambrio-unknown"));
    EXPECT_EQ("the user's", own.Bytes());
}

}  // namespace
}  // namespace ambrio
