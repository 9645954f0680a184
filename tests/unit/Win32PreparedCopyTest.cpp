// What a copy that is made ahead goes by on disks that tell more of a file than those of the tests
// may: links to files, and times of their making that stay when they are written to.

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "platform/TemporaryName.h"
#include "tests/conformance/win32/Win32World.h"
#include "tests/support/win32/ReplacedImport.h"
#include "tests/support/win32/SystemFunction.h"

namespace ambrio {
namespace {

constexpr FileSeconds kOld = 13'100'000'000;
constexpr FileSeconds kNew = 13'200'000'000;

class Win32PreparedCopyTest : public testing::Test {
  protected:
    Win32PreparedCopyTest() {
        current_ = this;
        World.Files().CreateFolder(World.Root() + L"\\to");
        Write(Source, "new", kNew);
        Write(Destination, "old", kOld);
    }
    ~Win32PreparedCopyTest() override { current_ = nullptr; }
    Win32PreparedCopyTest(const Win32PreparedCopyTest&) = delete;
    Win32PreparedCopyTest& operator=(const Win32PreparedCopyTest&) = delete;

    void Write(const std::wstring& path, const std::string& content, FileSeconds time) {
        World.Write(path, content);
        World.SetTime(path, time, 0);
    }
    std::unique_ptr<PreparedCopy> Prepare(const std::function<bool()>& isWanted = [] {
        return true;
    }) {
        return World.Files().PrepareCopy({Source, Destination, 3}, isWanted);
    }
    [[nodiscard]] int Temporaries() {
        int count = 0;
        FileEntry entry;
        for (const auto reader = World.Files().GetFolder(World.Root() + L"\\to");
             reader->Next(entry);) {
            count += IsTemporaryName(entry.Name) ? 1 : 0;
        }
        return count;
    }

    // What the system is made to say of a file.
    struct Facts {
        DWORD MoreAttributes = 0;
        DWORD Made = 1;  // the low half of the time; the rest of it is the same for every file
    };

    Win32World World;
    const std::wstring Source = World.Root() + L"\\file";
    const std::wstring Destination = World.Root() + L"\\to\\copy";
    std::map<std::wstring, Facts> Told;  // by path

  private:
    static BOOL WINAPI Look(LPCWSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID data) {
        const BOOL done =
            SystemFunction(&GetFileAttributesExW, "GetFileAttributesExW")(path, level, data);
        for (const auto& [told, facts] : current_->Told) {
            if (done != FALSE && std::wstring(path).ends_with(told)) {
                auto& looks = *static_cast<WIN32_FILE_ATTRIBUTE_DATA*>(data);
                looks.dwFileAttributes |= facts.MoreAttributes;
                looks.ftCreationTime = {facts.Made, 30'000'000};
            }
        }
        return done;
    }

    static inline Win32PreparedCopyTest* current_ = nullptr;
    ReplacedImport look_{L"kernel32.dll", "GetFileAttributesExW", reinterpret_cast<void*>(&Look)};
};

// Whose link it is, and where it leads, is looked at in its turn.
TEST_F(Win32PreparedCopyTest, IsNotMadeOfALinkNorInThePlaceOfOne) {
    Told = {{Source, {}}, {Destination, {}}};
    EXPECT_NE(Prepare(), nullptr);
    for (const std::wstring& link : {Source, Destination}) {
        Told[link].MoreAttributes = FILE_ATTRIBUTE_REPARSE_POINT;
        EXPECT_EQ(Prepare(), nullptr);
        Told[link].MoreAttributes = 0;
    }
    EXPECT_EQ(Temporaries(), 0);
}

// As in a file that is written to in its place.
TEST_F(Win32PreparedCopyTest, IsNotUsedWhenNothingButATimeOfWritingIsAnother) {
    Told = {{Source, {}}, {Destination, {}}};
    for (const std::wstring& changed : {Source, Destination}) {
        const auto copy = Prepare();
        ASSERT_NE(copy, nullptr);
        World.SetTime(changed, kNew - 7, 0);
        EXPECT_FALSE(copy->Finish(true));
        World.SetTime(changed, changed == Source ? kNew : kOld, 0);
        EXPECT_TRUE(copy->Finish(true)) << "it is what it was";
        Write(Destination, "old", kOld);
    }
}

// As when another file has got the name.
TEST_F(Win32PreparedCopyTest, IsNotUsedWhenNothingButATimeOfMakingIsAnother) {
    Told = {{Source, {}}, {Destination, {}}};
    for (const std::wstring& changed : {Source, Destination}) {
        const auto copy = Prepare();
        ASSERT_NE(copy, nullptr);
        Told[changed].Made = 2;
        EXPECT_FALSE(copy->Finish(true));
        Told[changed].Made = 1;
        EXPECT_TRUE(copy->Finish(true)) << "it is what it was";
        Write(Destination, "old", kOld);
    }
}

// Once it has come to its turn among many: nothing is written for nobody.
TEST_F(Win32PreparedCopyTest, IsNotBegunWhenNobodyWantsItAnyMore) {
    std::vector<int> temporaries;
    EXPECT_EQ(Prepare([&] {
                  temporaries.push_back(Temporaries());
                  return false;
              }),
              nullptr);
    EXPECT_EQ(temporaries, std::vector<int>{0});
}

// Before it is flushed, which takes longest.
TEST_F(Win32PreparedCopyTest, IsGivenUpWhenNobodyWantsItAnyMoreOnceItIsWritten) {
    std::vector<int> temporaries;
    EXPECT_EQ(Prepare([&] {
                  temporaries.push_back(Temporaries());
                  return temporaries.size() < 2;
              }),
              nullptr);
    EXPECT_EQ(temporaries, (std::vector<int>{0, 1}));
    EXPECT_EQ(Temporaries(), 0);
}

}  // namespace
}  // namespace ambrio
