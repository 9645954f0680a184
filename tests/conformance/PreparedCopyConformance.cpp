// Copies that are made without a name, and get it later or not at all.

#include "platform/TemporaryName.h"
#include "tests/conformance/FileSystemConformance.h"

namespace ambrio {
namespace {

constexpr FileSeconds kTimeOfOldCopy = 13'100'000'000;
constexpr FileSeconds kNewTime = 13'200'000'000;

class PreparedCopyConformance : public FileSystemConformance {
  protected:
    void SetUp() override {
        FileSystemConformance::SetUp();
        if (testing::Test::IsSkipped()) {
            return;
        }
        Source = NewFile(L"file", "new");
        World().SetTime(Source, kNewTime, 0);
        Folder = NewFolder(L"to");
        Destination = Folder + L"\\file";
    }
    void TearDown() override {
        Made.reset();
        FileSystemConformance::TearDown();
    }

    void MakeOld() { Write(Destination, "old", kTimeOfOldCopy); }
    void Write(const std::wstring& path, const std::string& content, FileSeconds time) {
        World().Write(path, content);
        World().SetTime(path, time, 0);
    }
    // Whether there is a copy now that lacks its name.
    bool Prepare(bool seemsNew = false, std::uint64_t size = 3) {
        Made = Files().PrepareCopy({Source, Destination, size, seemsNew}, [] { return true; });
        return Made != nullptr;
    }
    // What the folder holds, temporaries as "temporary".
    [[nodiscard]] std::vector<std::wstring> Held() {
        std::vector<std::wstring> names;
        for (const auto& [name, entry] : List(Folder)) {
            names.push_back(IsTemporaryName(name) ? L"temporary" : name);
        }
        return names;
    }

    using Names = std::vector<std::wstring>;
    std::wstring Source;
    std::wstring Folder;
    std::wstring Destination;
    std::unique_ptr<PreparedCopy> Made;
};

TEST_P(PreparedCopyConformance, HasEverythingButItsName) {
    MakeOld();
    ASSERT_TRUE(Prepare());
    EXPECT_EQ(Held(), (Names{L"file", L"temporary"}));
    EXPECT_EQ(World().Read(Destination), "old");
    EXPECT_TRUE(Made->Finish(true));
    EXPECT_EQ(World().Read(Destination), "new");
    EXPECT_EQ(Files().GetFile(Destination).DateLastModified, kNewTime);
    Made.reset();
    EXPECT_EQ(Held(), Names{L"file"});
}

TEST_P(PreparedCopyConformance, OfANewFileGetsItsNameToo) {
    for (const bool seemsNew : {false, true}) {
        for (const bool overwrite : {false, true}) {
            ASSERT_TRUE(Prepare(seemsNew));
            EXPECT_TRUE(Made->Finish(overwrite));
            EXPECT_EQ(World().Read(Destination), "new");
            Files().DeleteFile(Destination, true);
        }
    }
}

TEST_P(PreparedCopyConformance, GoesWhenNobodyWantsIt) {
    ASSERT_TRUE(Prepare());
    Made.reset();
    EXPECT_EQ(Held(), Names{});
}

TEST_P(PreparedCopyConformance, IsNotUsedWhenItsSourceHasChanged) {
    const auto changed = [&](const auto& change) {
        Write(Source, "new", kNewTime);
        ASSERT_TRUE(Prepare());
        change();
        EXPECT_FALSE(Made->Finish(true));
        Made.reset();
        EXPECT_EQ(Held(), Names{});
    };
    changed([&] { Write(Source, "New", kNewTime + 1); });
    changed([&] { Write(Source, "newer", kNewTime); });
    changed([&] { AddAttributes(Source, kAttributeReadOnly); });
    Files().SetAttributes(Source, 0);
    changed([&] { Files().DeleteFile(Source, true); });
    changed([&] {
        Files().DeleteFile(Source, true);
        Files().CreateFolder(Source);
    });
}

TEST_P(PreparedCopyConformance, IsNotUsedWhenItsDestinationHasChanged) {
    const auto changed = [&](const auto& change) {
        MakeOld();
        ASSERT_TRUE(Prepare());
        change();
        EXPECT_FALSE(Made->Finish(true));
        Made.reset();
        for (const std::wstring& name : Held()) {
            EXPECT_EQ(name, L"file");
        }
    };
    changed([&] { Write(Destination, "odd", kTimeOfOldCopy + 1); });
    EXPECT_EQ(World().Read(Destination), "odd");
    changed([&] { Write(Destination, "older", kTimeOfOldCopy); });
    EXPECT_EQ(World().Read(Destination), "older");
    changed([&] { AddAttributes(Destination, kAttributeReadOnly); });
    EXPECT_EQ(World().Read(Destination), "old");
    Files().SetAttributes(Destination, 0);
    changed([&] { Files().DeleteFile(Destination, true); });
    EXPECT_EQ(Held(), Names{});
}

TEST_P(PreparedCopyConformance, IsNotUsedWhenItsNameHasBeenTakenMeanwhile) {
    for (const bool seemsNew : {false, true}) {
        ASSERT_TRUE(Prepare(seemsNew));
        MakeOld();
        EXPECT_FALSE(Made->Finish(true));
        Made.reset();
        EXPECT_EQ(World().Read(Destination), "old");
        EXPECT_EQ(Held(), Names{L"file"});
        Files().DeleteFile(Destination, true);
    }
    ASSERT_TRUE(Prepare());
    Files().CreateFolder(Destination);
    EXPECT_FALSE(Made->Finish(true));
    EXPECT_TRUE(Files().FolderExists(Destination));
}

TEST_P(PreparedCopyConformance, OverwritesNothingWithoutLeave) {
    MakeOld();
    for (const bool seemsNew : {false, true}) {
        ASSERT_TRUE(Prepare(seemsNew));
        EXPECT_FALSE(Made->Finish(false));
        Made.reset();
        EXPECT_EQ(World().Read(Destination), "old");
        EXPECT_EQ(Held(), Names{L"file"});
    }
}

TEST_P(PreparedCopyConformance, IsNotMadeOfWhatCopyFileHadBetterDecide) {
    EXPECT_FALSE(Prepare(false, 2)) << "larger than said";
    MakeOld();
    AddAttributes(Destination, kAttributeReadOnly);
    EXPECT_FALSE(Prepare()) << "to a read-only file";
    Files().SetAttributes(Destination, 0);
    Files().DeleteFile(Destination, true);
    Files().CreateFolder(Destination);
    EXPECT_FALSE(Prepare()) << "to a folder";
    Destination = Folder + L"\\other";
    Source = Folder;
    EXPECT_FALSE(Prepare()) << "of a folder";
    Source = At(L"missing");
    EXPECT_FALSE(Prepare()) << "of nothing";
    Source = At(L"file");
    Destination = At(L"file");
    EXPECT_FALSE(Prepare()) << "to itself";
    Destination = At(L"missing") + L"\\file";
    EXPECT_FALSE(Prepare(true)) << "to nowhere";
    EXPECT_EQ(Held(), Names{L"file"});
    EXPECT_TRUE(HasOnly(At(L""), {L"file", L"to"}));
}

TEST_P(PreparedCopyConformance, IsNotMadeOfALink) {
    const std::wstring link = At(L"link");
    if (!World().MakeLink(link, Source, FileSystemWorld::LinkKind::ToFile)) {
        GTEST_SKIP() << "this user may not make links";
    }
    Source = link;
    EXPECT_FALSE(Prepare(true));
    EXPECT_EQ(Held(), Names{});
}

TEST_P(PreparedCopyConformance, IsNotMadeWhenNobodyWantsItAnyMore) {
    for (int wanted = 0; wanted < 2; ++wanted) {
        int asked = 0;
        Made = Files().PrepareCopy({Source, Destination, 3}, [&] { return asked++ < wanted; });
        if (Made) {
            EXPECT_GE(wanted, asked) << "it was never told so";
        }
        Made.reset();
        EXPECT_EQ(Held(), Names{});
    }
}

// Those that offer it.
std::vector<FileSystemWorldMaker> PreparingWorlds() {
    std::vector<FileSystemWorldMaker> worlds = FileSystemWorlds();
    std::erase_if(worlds, [](const FileSystemWorldMaker& world) {
        return std::string(world.Name).find("Answering") != std::string::npos;
    });
    return worlds;
}

INSTANTIATE_TEST_SUITE_P(EveryWorld, PreparedCopyConformance, testing::ValuesIn(PreparingWorlds()),
                         WorldName);

}  // namespace
}  // namespace ambrio
