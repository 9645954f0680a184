#include <optional>
#include <string>

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

// The bytes of the lines "\u00E9", "\u20AC" and "\u6F22"; nothing for a code page that is not known
// here.
std::optional<std::string> BytesIn(unsigned codePage) {
    switch (codePage) {
        case 1250:  // Central European
        case 1252:  // Western European
        case 1254:  // Turkish
            return "\xE9\r\n\x80\r\n?\r\n";
        case 936:  // simplified Chinese
            return "\xA8\xA6\r\n\x80\r\n\x9D\x68\r\n";
        case 65001:  // UTF-8
            return "\xC3\xA9\r\n\xE2\x82\xAC\r\n\xE6\xBC\xA2\r\n";
        default:
            return std::nullopt;
    }
}

TEST_P(FileSystemConformance, ALogLineIsInTheCodePageOfTheSystem) {
    const std::optional<std::string> expected = BytesIn(World().CodePage());
    if (!expected) {
        GTEST_SKIP() << "the bytes of code page " << World().CodePage() << " are not known here";
    }
    const std::wstring log = At(L"log");
    for (const wchar_t* line : {L"\u00E9", L"\u20AC", L"\u6F22"}) {
        Files().OpenForAppending(log)->WriteLine(line);
    }
    EXPECT_EQ(*expected, World().Read(log));
}

TEST_P(FileSystemConformance, ALogLineIsWrittenWholeWhateverItHolds) {
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
