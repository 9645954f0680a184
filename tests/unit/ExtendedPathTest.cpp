#include "platform/win32/files/ExtendedPath.h"

#include <gtest/gtest.h>

#include "tests/support/RuntimeErrorOf.h"

namespace ambrio {
namespace {

TEST(ExtendedPath, PrefixesWhatIsInOrderAsItStands) {
    EXPECT_EQ(L"\\\\?\\C:\\", ExtendedPath(L"C:\\"));
    EXPECT_EQ(L"\\\\?\\C:\\Data", ExtendedPath(L"C:\\Data\\"));
    EXPECT_EQ(L"\\\\?\\C:\\Data\\dots..", ExtendedPath(L"C:\\Data\\dots.."));
    EXPECT_EQ(L"\\\\?\\C:\\blank \\CON", ExtendedPath(L"C:\\blank \\CON"));
    EXPECT_EQ(L"\\\\?\\UNC\\server\\share\\x ", ExtendedPath(L"\\\\server\\share\\x "));
    EXPECT_EQ(L"\\\\?\\C:\\x", ExtendedPath(L"\\\\?\\C:\\x"));
}

TEST(ExtendedPath, CompletesWhatIsNot) {
    EXPECT_EQ(L"\\\\?\\C:\\a\\c", ExtendedPath(L"C:\\a\\b\\..\\.\\c"));
    EXPECT_EQ(L"\\\\?\\C:\\a\\b", ExtendedPath(L"C:/a//b/"));
    EXPECT_EQ(L"\\\\?\\UNC\\server\\share\\b", ExtendedPath(L"\\\\server\\share\\a\\..\\b"));
    EXPECT_TRUE(ExtendedPath(L"relative").ends_with(L"\\relative"));
    EXPECT_TRUE(ExtendedPath(L"relative").starts_with(L"\\\\?\\"));
}

TEST(ExtendedPath, RefusesWhatNamesNoPlace) {
    for (const wchar_t* path : {L"", L"\\", L"/", L"\\\\", L"\\\\server", L"\\\\server\\"}) {
        EXPECT_EQ(ErrorNumber::PathNotFound, RuntimeErrorOf([&] { (void)ExtendedPath(path); }));
    }
    EXPECT_EQ(ErrorNumber::BadFileNameOrNumber,
              RuntimeErrorOf([] { (void)ExtendedPath(L"\\\\.\\pipe\\x"); }));
}

TEST(ExtendedPath, IsTakenApartAtItsLastSeparator) {
    EXPECT_EQ(L"\\\\?\\C:\\a\\", FolderOfExtended(L"\\\\?\\C:\\a\\b"));
    EXPECT_EQ(L"b", NameOfExtended(L"\\\\?\\C:\\a\\b"));
}

}  // namespace
}  // namespace ambrio
