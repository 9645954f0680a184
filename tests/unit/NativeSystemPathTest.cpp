#include "platform/NativeSystemPath.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

constexpr const wchar_t* kWindows = L"D:\\Win";

TEST(NativeSystemPath, LeadsBelowTheSystemsFolderToTheRealOne) {
    EXPECT_EQ(L"D:\\Win\\Sysnative", NativeSystemPath(L"D:\\Win\\System32", kWindows));
    EXPECT_EQ(L"D:\\Win\\Sysnative\\", NativeSystemPath(L"D:\\Win\\System32\\", kWindows));
    EXPECT_EQ(L"d:\\WIN\\Sysnative\\a\\System32",
              NativeSystemPath(L"d:\\WIN\\SYSTEM32\\a\\System32", kWindows));
    EXPECT_EQ(L"\\\\?\\D:\\Win\\Sysnative\\x",
              NativeSystemPath(L"\\\\?\\D:\\Win\\System32\\x", kWindows));
}

TEST(NativeSystemPath, LeavesEveryOtherPathAsItIs) {
    for (const wchar_t* path :
         {L"", L"D:\\Win", L"D:\\Win\\", L"D:\\Win\\System", L"D:\\Win\\System32x\\y",
          L"D:\\Win\\SysWOW64\\x", L"D:\\Win\\Sysnative\\x", L"C:\\Win\\System32\\x",
          L"D:\\Win\\x\\System32", L"D:\\Windows\\System32", L"\\\\server\\D:\\Win\\System32",
          L"\\\\?\\UNC\\D:\\Win\\System32"}) {
        EXPECT_EQ(path, NativeSystemPath(path, kWindows));
    }
}

TEST(NativeSystemPath, ChangesNothingWhereNothingIsRedirected) {
    EXPECT_EQ(L"D:\\Win\\System32\\x", NativeSystemPath(L"D:\\Win\\System32\\x", L""));
    EXPECT_EQ(L"\\System32\\x", NativeSystemPath(L"\\System32\\x", L""));
}

}  // namespace
}  // namespace ambrio
