#include "tests/conformance/FileSystemConformance.h"

namespace ambrio {
namespace {

TEST_P(FileSystemConformance, ALogIsMadeAndThenAppendedTo) {
    const std::wstring log = At(L"log");
    Files().OpenForAppending(log)->WriteLine(L"one");
    const auto stream = Files().OpenForAppending(log);
    stream->WriteLine(L"");
    stream->WriteLine(L"two\r\n      <three>");
    EXPECT_EQ("one\r\n\r\ntwo\r\n      <three>\r\n", World().Read(log));
    Files().OpenForAppending(log);
    EXPECT_EQ("one\r\n\r\ntwo\r\n      <three>\r\n", World().Read(log));
}

TEST_P(FileSystemConformance, ALogLineHoldsWhatTheCodePageHas) {
    const std::wstring log = NewFile(L"log", "old\r\n");
    const std::wstring longLine(10'000, L'x');
    {
        const auto stream = Files().OpenForAppending(log);
        stream->WriteLine(L"\u6F22");
        stream->WriteLine(longLine);
    }
    const std::string bytes = World().Read(log);
    EXPECT_TRUE(bytes.starts_with("old\r\n"));
    EXPECT_TRUE(bytes.ends_with("\r\n" + std::string(10'000, 'x') + "\r\n"));
}

TEST_P(FileSystemConformance, ALogThatCannotBeWrittenIsTold) {
    EXPECT_EQ(ErrorNumber::PathNotFound, Logging(At(L"absent\\log")));
    EXPECT_EQ(ErrorNumber::PermissionDenied, Logging(NewFolder(L"folder")));
    EXPECT_EQ(ErrorNumber::BadFileNameOrNumber, Logging(At(L"lo|g")));
    const std::wstring log = NewFile(L"log");
    {
        const auto lock = World().Lock(log);
        EXPECT_EQ(ErrorNumber::PermissionDenied, Logging(log));
    }
    AddAttributes(log, kAttributeReadOnly);
    EXPECT_EQ(ErrorNumber::PermissionDenied, Logging(log));
    EXPECT_EQ("content", World().Read(log));
}

TEST_P(FileSystemConformance, AnOpenLogIsSharedButNotRemoved) {
    const std::wstring log = At(L"log");
    const auto one = Files().OpenForAppending(log);
    const auto other = Files().OpenForAppending(log);
    one->WriteLine(L"one");
    other->WriteLine(L"other");
    one->WriteLine(L"one again");
    EXPECT_EQ("one\r\nother\r\none again\r\n", World().Read(log));
    EXPECT_EQ(ErrorNumber::PermissionDenied, Deleting(log, true));
    EXPECT_TRUE(Files().FileExists(log));
}

}  // namespace
}  // namespace ambrio
