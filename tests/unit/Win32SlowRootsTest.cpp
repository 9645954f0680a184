#include "platform/win32/files/Win32SlowRoots.h"

#include <gtest/gtest.h>

#include <map>

#include "tests/support/win32/ReplacedImport.h"

namespace ambrio {
namespace {

// Answers for the kinds of drives.
class Kinds {
  public:
    static inline std::map<std::wstring, UINT> Of;
    static inline int Asked = 0;

  private:
    static UINT WINAPI Kind(LPCWSTR root) {
        ++Asked;
        return Of.contains(root) ? Of.at(root) : DRIVE_NO_ROOT_DIR;
    }
    ReplacedImport import_{L"kernel32.dll", "GetDriveTypeW", reinterpret_cast<void*>(&Kind)};
};

class Win32SlowRootsTest : public testing::Test {
  protected:
    Win32SlowRootsTest() {
        Kinds::Of = {{L"C:\\", DRIVE_FIXED},   {L"D:\\", DRIVE_CDROM},  {L"E:\\", DRIVE_REMOVABLE},
                     {L"F:\\", DRIVE_RAMDISK}, {L"N:\\", DRIVE_REMOTE}, {L"U:\\", DRIVE_UNKNOWN}};
        Kinds::Asked = 0;
    }

    Kinds kinds_;
    Win32SlowRoots roots_;
};

TEST_F(Win32SlowRootsTest, AreRemoteAndRemovableDrives) {
    EXPECT_EQ(L"N:", roots_.RootOf(L"N:\\Data\\file.txt"));
    EXPECT_EQ(L"E:", roots_.RootOf(L"e:"));
    EXPECT_EQ(L"D:", roots_.RootOf(L"D:file.txt"));
    EXPECT_EQ(L"U:", roots_.RootOf(L"U:\\"));
    EXPECT_EQ(L"", roots_.RootOf(L"C:\\Data"));
    EXPECT_EQ(L"", roots_.RootOf(L"F:\\Data"));
    EXPECT_EQ(L"", roots_.RootOf(L""));
}

TEST_F(Win32SlowRootsTest, AreSharesInOneSpelling) {
    EXPECT_EQ(L"\\\\SERVER\\SHARE", roots_.RootOf(L"\\\\server\\Share\\Data\\file.txt"));
    EXPECT_EQ(L"\\\\SERVER\\SHARE", roots_.RootOf(L"//Server/share"));
    for (const wchar_t* none : {L"\\\\", L"\\\\server", L"\\\\server\\", L"\\\\\\share"}) {
        EXPECT_EQ(L"", roots_.RootOf(none)) << none;
    }
}

TEST_F(Win32SlowRootsTest, APathWithoutADriveLiesOnTheCurrentOne) {
    wchar_t current[MAX_PATH] = L"";
    GetCurrentDirectoryW(MAX_PATH, current);
    const std::wstring drive(current, 2);
    Kinds::Of[drive + L"\\"] = DRIVE_FIXED;
    EXPECT_EQ(L"", roots_.RootOf(L"Data"));
    Win32SlowRoots others;
    Kinds::Of[drive + L"\\"] = DRIVE_REMOTE;
    EXPECT_EQ(drive, others.RootOf(L"Data\\file.txt"));
    EXPECT_EQ(drive, others.RootOf(L"\\Data"));
}

TEST_F(Win32SlowRootsTest, ADriveIsAskedAboutOnceOrUntilItIsThere) {
    static_cast<void>(roots_.RootOf(L"C:\\a"));
    static_cast<void>(roots_.RootOf(L"c:\\b"));
    EXPECT_EQ(1, Kinds::Asked);
    EXPECT_EQ(L"", roots_.RootOf(L"Q:\\a"));
    Kinds::Of[L"Q:\\"] = DRIVE_REMOTE;
    EXPECT_EQ(L"Q:", roots_.RootOf(L"Q:\\a"));
}

TEST_F(Win32SlowRootsTest, ARootThatIsThereIsNoTrouble) {
    wchar_t windows[MAX_PATH] = L"";
    GetWindowsDirectoryW(windows, MAX_PATH);
    EXPECT_EQ(std::nullopt, roots_.TroubleWith(std::wstring(windows, 2)));
    wchar_t absent = L'Z';
    while ((GetLogicalDrives() & (1U << (absent - L'A'))) != 0) {
        --absent;
    }
    EXPECT_NE(std::nullopt, roots_.TroubleWith(std::wstring{absent, L':'}));
}

}  // namespace
}  // namespace ambrio
