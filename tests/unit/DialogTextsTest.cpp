#include "config/model/DialogTexts.h"

#include <gtest/gtest.h>

#include "config/model/DriveText.h"
#include "tests/support/MemoryFileSystem.h"

namespace ambrio {
namespace {

TEST(DialogTexts, AreToTheLetter) {
    EXPECT_EQ(L"Ambrio Configuration", ConfigurationCaption(L"Ambrio"));
    EXPECT_EQ(L"About to remove A & B\r\nfrom your list of backup sets.\r\nAre you sure?",
              RemoveQuestion(L"A & B"));
    EXPECT_EQ(L"New Set Properties", PropertiesCaption(L""));
    EXPECT_EQ(L"S Properties", PropertiesCaption(L"S"));
    EXPECT_EQ(L"Choose S source folder", BrowseCaption(L"S", 0));
    EXPECT_EQ(L"Choose  destination folder", BrowseCaption(L"", 1));
    EXPECT_EQ(L"Drive D: cannot be opened.\r\nDisk not ready",
              DriveFailureText(L'D', L"Disk not ready"));
    EXPECT_EQ(L"S properties - File selection", FileSelectionCaption(L"S"));
    EXPECT_EQ(L"About T", AboutCaption(L"T"));
    EXPECT_EQ(L"Version 2.1.7", VersionText(2, 1, 7));
}

TEST(DialogTexts, NameTheLogWhereItLies) {
    const MemoryFileSystem files;
    const auto tooltip = [&files](const std::wstring& logFile) {
        return LogOnlyErrorsTooltip(files, L"T", logFile, L"C:\\WINDOWS");
    };
    EXPECT_EQ(L"Unless checked, a log (T.log) is created in your Windows folder every time T runs.",
              tooltip(L"C:\\Windows\\T.log"));
    for (const std::wstring& elsewhere :
         {std::wstring(L"C:\\Windows\\Backup\\T.log"), std::wstring(L"D:\\T.log"),
          std::wstring(L"C:\\Windows.old\\T.log"), std::wstring(L"C:\\T.log")}) {
        EXPECT_EQ(L"Unless checked, a log (" + elsewhere + L") is created every time T runs.",
                  tooltip(elsewhere));
    }
}

TEST(DriveText, NamesTheKindAndTheLabel) {
    EXPECT_EQ(L"C: Local disk [System]", DriveText({L'C', DriveKind::Fixed, L"System"}));
    EXPECT_EQ(L"A: Removable disk", DriveText({L'A', DriveKind::Removable, L""}));
    EXPECT_EQ(L"N: Network drive [\\\\server\\share]",
              DriveText({L'N', DriveKind::Network, L"\\\\server\\share"}));
    EXPECT_EQ(L"D: CD or DVD drive", DriveText({L'D', DriveKind::Compact, L""}));
    EXPECT_EQ(L"R: Memory disk", DriveText({L'R', DriveKind::Memory, L""}));
    EXPECT_EQ(L"U: Drive", DriveText({L'U', DriveKind::Unknown, L""}));
}

}  // namespace
}  // namespace ambrio
