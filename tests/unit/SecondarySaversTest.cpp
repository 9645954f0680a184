#include "config/model/SecondarySavers.h"

#include <gtest/gtest.h>

#include "tests/support/MemoryFileSystem.h"

namespace ambrio {
namespace {

const std::vector<std::wstring> kFolders = {L"C:\\Windows", L"C:\\Windows\\System32"};

class SecondarySaversTest : public ::testing::Test {
  protected:
    SecondarySaversTest() {
        for (const std::wstring& folder : kFolders) {
            files_.MakeFolder(folder);
        }
    }

    MemoryFileSystem files_;
};

TEST_F(SecondarySaversTest, AreTheFilesWithTheEndingInTheOrderOfTheFileSystem) {
    for (const wchar_t* name :
         {L"Stars & Moons.scr", L"ALPHA.SCR", L"a.scr.txt", L"scr", L".scr"}) {
        files_.WriteFile(FileSystem::BuildPath(kFolders[0], name));
    }
    files_.MakeFolder(L"C:\\Windows\\folder.scr");
    EXPECT_EQ((std::vector<std::wstring>{L"Stars & Moons", L"ALPHA", L""}),
              SaversIn(files_, {kFolders[0]}));
}

TEST_F(SecondarySaversTest, AreNoneInAFolderThatCannotBeListed) {
    EXPECT_TRUE(SaversIn(files_, {L"C:\\missing"}).empty());
    EXPECT_TRUE(SaversIn(files_, {L""}).empty());
}

TEST_F(SecondarySaversTest, StandOnceInFoldersThatCountAsOne) {
    for (const wchar_t* file :
         {L"C:\\Windows\\Stars.scr", L"C:\\Windows\\Only here.scr",
          L"C:\\Windows\\System32\\Only there.scr", L"C:\\Windows\\System32\\STARS.SCR"}) {
        files_.WriteFile(file);
    }
    EXPECT_EQ((std::vector<std::wstring>{L"Stars", L"Only here", L"Only there"}),
              SaversIn(files_, kFolders));
    EXPECT_EQ((std::vector<std::wstring>{L"Only there", L"STARS", L"Only here"}),
              SaversIn(files_, {kFolders[1], L"C:\\missing", kFolders[0]}));
}

TEST_F(SecondarySaversTest, TheFirstFolderThatHasItWins) {
    EXPECT_FALSE(SaverPath(files_, kFolders, L"(None)").has_value());
    files_.WriteFile(L"C:\\Windows\\System32\\Stars.scr");
    EXPECT_EQ(L"C:\\Windows\\System32\\Stars.scr", SaverPath(files_, kFolders, L"Stars"));
    files_.WriteFile(L"C:\\Windows\\Stars.scr");
    EXPECT_EQ(L"C:\\Windows\\Stars.scr", SaverPath(files_, kFolders, L"Stars"));
    EXPECT_FALSE(SaverPath(files_, kFolders, L"").has_value());
}

TEST_F(SecondarySaversTest, ShowTheirSettingsByASwitch) {
    EXPECT_EQ(L"C:\\Windows\\My Saver.scr /c", SettingsCommandLine(L"C:\\Windows\\My Saver.scr"));
}

}  // namespace
}  // namespace ambrio
