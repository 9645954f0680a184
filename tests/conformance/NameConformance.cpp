#include "tests/conformance/FileSystemConformance.h"

namespace ambrio {
namespace {

// The whole life of a file of that name.
class NameConformance : public FileSystemConformance {
  protected:
    void ExpectUsable(const std::wstring& name) {
        SCOPED_TRACE(testing::PrintToString(name));
        const std::wstring folder = NewFolder(L"names");
        NewFolder(L"copies");
        const std::wstring file = NewFile(L"names\\" + name, "abc");
        EXPECT_TRUE(HasOnly(folder, {name}));
        const std::wstring copy = At(L"copies\\" + name);
        EXPECT_EQ(std::nullopt, Copying(file, copy));
        EXPECT_EQ(std::nullopt, Copying(file, copy));
        EXPECT_EQ("abc", World().Read(copy));
        EXPECT_TRUE(HasOnly(At(L"copies"), {name}));
        EXPECT_EQ(name, Files().GetFile(copy).Name);
        EXPECT_EQ(std::nullopt, Deleting(file));
        EXPECT_EQ(std::nullopt, Deleting(copy));
        EXPECT_EQ(std::nullopt, Creating(copy));
        EXPECT_TRUE(Files().FolderExists(copy));
        EXPECT_TRUE(HasOnly(copy, {}));
    }

    // A chain of folders whose innermost path has at least that many characters.
    std::wstring DeepFolder(std::size_t length) {
        std::wstring path = World().Root();
        while (path.size() < length) {
            path += L'\\' + std::wstring(99, L'd');
            if (!Files().FolderExists(path)) {
                Files().CreateFolder(path);
            }
        }
        return path;
    }

    void ExpectUsableAtLength(std::size_t length) {
        const std::wstring folder = DeepFolder(length);
        World().Write(folder + L"\\file", "deep");
        EXPECT_EQ(std::nullopt, Copying(folder + L"\\file", folder + L"\\copy"));
        EXPECT_EQ("deep", World().Read(folder + L"\\copy"));
        EXPECT_EQ(std::nullopt, Deleting(folder + L"\\file"));
        EXPECT_TRUE(HasOnly(folder, {L"copy"}));
        EXPECT_TRUE(Files().IdentityOf(folder));
        EXPECT_EQ(std::nullopt, Logging(folder + L"\\log"));
    }
};

TEST_P(NameConformance, NamesInAnyScript) {
    ExpectUsable(L"\u00DCml\u00E4ut \u0416\u0443\u043A \u6F22\u5B57 \u05D0.txt");
}

TEST_P(NameConformance, NamesBeyondTheBasicPlane) {
    ExpectUsable(L"\U0001F600 \U00020000.txt");
}

TEST_P(NameConformance, NamesThatEndInADot) {
    ExpectUsable(L"dot.");
}

TEST_P(NameConformance, NamesThatEndInABlank) {
    ExpectUsable(L"blank ");
}

TEST_P(NameConformance, NamesThatSpellADevice) {
    ExpectUsable(L"CON");
}

TEST_P(NameConformance, NamesThatSpellADeviceWithAnExtension) {
    ExpectUsable(L"nul.txt");
}

TEST_P(NameConformance, NamesWithALoneSurrogate) {
    ExpectUsable(std::wstring(L"lone") + static_cast<wchar_t>(0xD800) + L".txt");
}

TEST_P(NameConformance, NamesThatDifferInNormalizationAreTwo) {
    NewFile(L"\u00E9");
    NewFile(L"e\u0301");
    EXPECT_TRUE(HasOnly(World().Root(), {L"\u00E9", L"e\u0301"}));
}

TEST_P(NameConformance, PathsBeyondTheClassicLimit) {
    ExpectUsableAtLength(250);
    ExpectUsableAtLength(1000);
}

TEST_P(NameConformance, PathsCloseToTheSystemsLimit) {
    ExpectUsableAtLength(30'000);
}

TEST_P(NameConformance, PathsAreCompletedAsThePlatformDoesIt) {
    NewFolder(L"a");
    NewFile(L"a\\file");
    for (const wchar_t* spelling : {L".\\a\\file", L"b\\..\\a\\file", L"a/file", L"a\\\\file",
                                    L"a\\.\\file", L"a\\x\\..\\file"}) {
        EXPECT_TRUE(Files().FileExists(At(spelling))) << testing::PrintToString(spelling);
    }
    EXPECT_TRUE(HasOnly(At(L"a\\"), {L"file"}));
    EXPECT_TRUE(HasOnly(At(L"A/."), {L"file"}));
}

TEST_P(NameConformance, CaseDoesNotMatterAndIsKept) {
    NewFile(L"\u00C9t\u00E9 \u042F.TXT", "abc");
    EXPECT_EQ("abc", World().Read(At(L"\u00E9T\u00C9 \u044F.txt")));
    EXPECT_TRUE(Files().FileExists(At(L"\u00E9T\u00C9 \u044F.txt")));
    EXPECT_TRUE(HasOnly(World().Root(), {L"\u00C9t\u00E9 \u042F.TXT"}));
}

TEST_P(NameConformance, FoldedNamesAreEqualForOneFile) {
    const auto folded = [this](const wchar_t* name) { return Files().FoldedName(name); };
    EXPECT_EQ(folded(L"\u00C9t\u00E9 \u042F.TXT"), folded(L"\u00E9T\u00C9 \u044F.txt"));
    EXPECT_EQ(folded(L"\u03B1\u0451"), folded(L"\u0391\u0401"));
    EXPECT_NE(folded(L"a"), folded(L"b"));
    EXPECT_NE(folded(L"stra\u00DFe"), folded(L"STRASSE"));
    EXPECT_NE(folded(L"\u00E9"), folded(L"e\u0301"));
    EXPECT_EQ(L"", folded(L""));
    const std::wstring lone(1, static_cast<wchar_t>(0xDC00));
    EXPECT_EQ(lone, Files().FoldedName(lone));
}

INSTANTIATE_TEST_SUITE_P(EveryWorld, NameConformance, testing::ValuesIn(FileSystemWorlds()),
                         WorldName);

}  // namespace
}  // namespace ambrio
