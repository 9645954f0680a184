#include "platform/win32/files/CopyWithYield.h"

#include <gtest/gtest.h>

#include <string>

namespace ambrio {
namespace {

// Nothing is made of a copy whose source is not there, so only what comes before it is seen.
constexpr const wchar_t* kMissing = L"C:\\there is no such file";
constexpr const wchar_t* kTarget = L"C:\\and none is made";

TEST(CopyWithYield, DoesNotEvenBeginWithALargeFileOnceItIsBrokenOff) {
    CopyWatch watch;
    EXPECT_EQ(CopyWithYield(kMissing, kTarget, kSmallFile, watch, [] {}),
              static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    watch.BreakOff();
    EXPECT_EQ(CopyWithYield(kMissing, kTarget, kSmallFile, watch, [] {}),
              static_cast<DWORD>(ERROR_REQUEST_ABORTED));
}

TEST(CopyWithYield, BeginsEveryLargeFileWithNothingDone) {
    CopyWatch watch;
    watch.NoteDone(70, 100);
    (void)CopyWithYield(kMissing, kTarget, kSmallFile - 1, watch, [] {});
    EXPECT_EQ(watch.PercentDone(), 70) << "a small file is not noted";
    (void)CopyWithYield(kMissing, kTarget, kSmallFile, watch, [] {});
    EXPECT_EQ(watch.PercentDone(), 0);
}

}  // namespace
}  // namespace ambrio
