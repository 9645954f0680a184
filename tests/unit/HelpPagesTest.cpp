// Where the help and the web page are, and what can show them.

#include "config/model/HelpPages.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/MemoryFileSystem.h"

namespace ambrio {
namespace {

TEST(HelpPages, TheInstalledPageTakesThePlaceOfAPublicOne) {
    EXPECT_EQ(L"C:\\Programs\\Ambrio.html", WebPage(L"", L"C:\\Programs\\Ambrio.html"));
    EXPECT_EQ(L"https://page.example/", WebPage(L"https://page.example/", L"C:\\Ambrio.html"));
}

TEST(HelpPages, AnAddressStaysAsItIs) {
    EXPECT_FALSE(IsFile(L"https://page.example/a b#c"));
    EXPECT_EQ(L"https://page.example/a b#c", AddressOf(L"https://page.example/a b#c"));
}

TEST(HelpPages, AFileBecomesAnAddressWithoutBlanks) {
    EXPECT_TRUE(IsFile(L"C:\\Windows\\Ambrio.html"));
    EXPECT_EQ(L"file:///C:/Windows/Ambrio.html", AddressOf(L"C:\\Windows\\Ambrio.html"));
    EXPECT_EQ(L"file:///D:/My%20own%20things/100%25%20%231/Ambrio.html",
              AddressOf(L"D:\\My own things\\100% #1\\Ambrio.html"));
    EXPECT_EQ(L"file:///C:/Jos\u00e9/Ambrio.html", AddressOf(L"C:\\Jos\u00e9\\Ambrio.html"));
}

TEST(HelpPages, AFileOfAShareNamesItsServerFirst) {
    EXPECT_EQ(L"file://server/share/Ambrio.html", AddressOf(L"\\\\server\\share\\Ambrio.html"));
}

class HelpViewerTest : public ::testing::Test {
  protected:
    HelpViewerTest() { files_.MakeFolder(L"C:\\Windows"); }

    [[nodiscard]] bool IsThereWith(std::size_t bytes) {
        files_.WriteFile(L"C:\\Windows\\winhlp32.exe", std::string(bytes, 'x'));
        return HasHelpViewer(files_, L"C:\\Windows");
    }

    MemoryFileSystem files_;
};

TEST_F(HelpViewerTest, IsAsLargeAsAProgram) {
    EXPECT_TRUE(IsThereWith(296'448));
}

TEST_F(HelpViewerTest, IsNotWhatOnlySaysThatThereIsNone) {
    EXPECT_FALSE(IsThereWith(10'240));
}

TEST_F(HelpViewerTest, IsNotThereWithoutAFile) {
    EXPECT_FALSE(HasHelpViewer(files_, L"C:\\Windows"));
}

TEST_F(HelpViewerTest, IsNotThereWhereItCannotBeLookedAt) {
    files_.SetVolume(L"D:", true, false);
    EXPECT_FALSE(HasHelpViewer(files_, L"D:\\Windows"));
}

}  // namespace
}  // namespace ambrio
