#include "platform/RuntimeError.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace ambrio {
namespace {

// Every number that users may see in the log, with its words.
TEST(RuntimeError, HasItsNumberAndItsWordsInTheLog) {
    struct Row {
        ErrorNumber Number;
        const wchar_t* LogText;
    };
    constexpr std::array<Row, 12> kRows{{
        {ErrorNumber::InvalidProcedureCall, L"Error 5 - Invalid procedure call or argument"},
        {ErrorNumber::Overflow, L"Error 6 - Overflow"},
        {ErrorNumber::OutOfMemory, L"Error 7 - Out of memory"},
        {ErrorNumber::TypeMismatch, L"Error 13 - Type mismatch"},
        {ErrorNumber::BadFileNameOrNumber, L"Error 52 - Bad file name or number"},
        {ErrorNumber::FileNotFound, L"Error 53 - File not found"},
        {ErrorNumber::FileAlreadyExists, L"Error 58 - File already exists"},
        {ErrorNumber::DiskFull, L"Error 61 - Disk full"},
        {ErrorNumber::PermissionDenied, L"Error 70 - Permission denied"},
        {ErrorNumber::DiskNotReady, L"Error 71 - Disk not ready"},
        {ErrorNumber::PathFileAccessError, L"Error 75 - Path/File access error"},
        {ErrorNumber::PathNotFound, L"Error 76 - Path not found"},
    }};
    for (const Row& row : kRows) {
        EXPECT_EQ(std::wstring(row.LogText), RuntimeError(row.Number).LogText());
    }
    EXPECT_EQ(std::wstring(L"Error 70 - words of its own"),
              RuntimeError(ErrorNumber::PermissionDenied, L"words of its own").LogText());
}

// The numbers of the system's own codes; what has none is an access error.
TEST(RuntimeError, HasANumberForEachCodeOfTheSystem) {
    struct Row {
        std::uint32_t Code;
        int Number;
    };
    constexpr std::array<Row, 21> kRows{{
        {2, 53},              // no such file
        {3, 76},              // no such path
        {5, 70},              // access denied
        {8, 7},               // not enough memory
        {14, 7},              // out of memory
        {15, 76},             // no such drive
        {19, 70},             // write protected
        {21, 71},             // not ready
        {32, 70},             // shared with nobody
        {33, 70},             // a part is locked
        {39, 61},             // disk full
        {53, 76},             // no such computer
        {67, 76},             // no such share
        {80, 58},             // file exists
        {112, 61},            // disk full
        {123, 52},            // not a name
        {183, 58},            // exists already
        {206, 52},            // name too long
        {0, 75},   {31, 75},  // the device does not work
        {64, 75},             // the network has gone
    }};
    for (const Row& row : kRows) {
        EXPECT_EQ(row.Number, static_cast<int>(NumberOfWin32Code(row.Code))) << row.Code;
    }
}

}  // namespace
}  // namespace ambrio
