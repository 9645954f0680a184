#include "platform/DriveLetter.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

TEST(DriveLetter, StandsAtTheStartBeforeAColon) {
    EXPECT_EQ(L'F', DriveLetterOf(L"F:\\My Documents"));
    EXPECT_EQ(L'F', DriveLetterOf(L"f:"));
    for (const wchar_t* text :
         {L"", L"F", L"My Documents", L"\\\\server\\share", L" C:\\", L"1:\\"}) {
        EXPECT_EQ(L'\0', DriveLetterOf(text)) << text;
    }
}

}  // namespace
}  // namespace ambrio
