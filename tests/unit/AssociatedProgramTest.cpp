#include "platform/win32/system/AssociatedProgram.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

TEST(AssociatedProgram, IsNoneForAnExtensionThatNobodyKnowsAndLeavesNoFile) {
    EXPECT_EQ(L"", GetBrowserPath(L"ambrio-unknown"));
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesW(L"~temp.ambrio-unknown"));
    EXPECT_EQ(L"", GetBrowserPath(L"no\\such:file"));
}

}  // namespace
}  // namespace ambrio
