#include "platform/win32/files/Win32FolderReader.h"

#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <set>
#include <string>

#include "platform/win32/NtStatus.h"
#include "platform/win32/files/NtQueryDirectoryFile.h"
#include "tests/conformance/win32/Win32World.h"
#include "tests/support/RuntimeErrorOf.h"
#include "tests/support/win32/ReplacedImport.h"

namespace ambrio {
namespace {

constexpr auto kNetworkNameDeleted = static_cast<NTSTATUS>(0xC00000C9);

// What the system answers in the place of the truth.
struct ListingAnswers {
    ULONG MostBytes = 0;                 // of a piece that it knows; 0: any
    std::optional<NTSTATUS> Last = {};   // in the place of the end
    std::optional<NTSTATUS> First = {};  // in the place of the first piece
    std::optional<DWORD> Tag = {};       // makes each entry a link of this kind
    bool GivesNothing = false;           // and calls it a success
    int Pieces = 0;
};

class Win32FolderReaderTest : public testing::Test {
  protected:
    Win32FolderReaderTest() {
        answers_ = {};
        query_.emplace(L"ntdll.dll", "NtQueryDirectoryFile", reinterpret_cast<void*>(&Query));
    }

    std::set<std::wstring> Names() {
        std::set<std::wstring> names;
        const auto reader = World.Files().GetFolder(World.Root());
        for (FileEntry entry; reader->Next(entry);) {
            EXPECT_TRUE(names.insert(entry.Name).second) << "listed twice";
        }
        return names;
    }

    static inline ListingAnswers answers_;
    Win32World World;

  private:
    static NTSTATUS NTAPI Query(HANDLE folder, HANDLE event, PIO_APC_ROUTINE routine, PVOID context,
                                PIO_STATUS_BLOCK status, PVOID data, ULONG size,
                                FILE_INFORMATION_CLASS kind, BOOLEAN single, PUNICODE_STRING mask,
                                BOOLEAN restart) {
        if (answers_.MostBytes != 0 && size > answers_.MostBytes) {
            return kStatusInvalidParameter;
        }
        if (answers_.Pieces++ == 0 && answers_.First) {
            return *answers_.First;
        }
        if (answers_.GivesNothing) {
            status->Information = 0;
            return 0;
        }
        const auto system =
            reinterpret_cast<decltype(&NtQueryDirectoryFile)>(reinterpret_cast<void*>(
                GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryDirectoryFile")));
        const NTSTATUS result = system(folder, event, routine, context, status, data, size, kind,
                                       single, mask, restart);
        if (result < 0) {
            return answers_.Last.value_or(result);
        }
        if (answers_.Tag) {
            MakeLinks(static_cast<char*>(data), *answers_.Tag);
        }
        return result;
    }
    static void MakeLinks(char* record, DWORD tag) {
        for (ULONG next = 1; next != 0; record += next) {
            auto& entry = *reinterpret_cast<FILE_FULL_DIR_INFORMATION*>(record);
            entry.FileAttributes |= FILE_ATTRIBUTE_REPARSE_POINT;
            entry.EaSize = tag;
            next = entry.NextEntryOffset;
        }
    }

    std::optional<ReplacedImport> query_;
};

// As some network file systems do.
TEST_F(Win32FolderReaderTest, FetchesSmallPiecesWhereLargeOnesAreNotKnown) {
    std::set<std::wstring> expected;
    for (int i = 0; i < 300; ++i) {
        const std::wstring name = L"a file with a long name, number " + std::to_wstring(i);
        World.Write(World.Root() + L'\\' + name, "");
        expected.insert(name);
    }
    EXPECT_EQ(Names(), expected);
    const int pieces = answers_.Pieces;
    answers_ = {.MostBytes = 4096};
    EXPECT_EQ(Names(), expected);
    EXPECT_GT(answers_.Pieces, pieces);
}

TEST_F(Win32FolderReaderTest, TheRootOfAnEmptyVolumeIsEmpty) {
    World.Write(World.Root() + L"\\file", "");
    answers_.First = kStatusNoSuchFile;
    EXPECT_EQ(Names(), std::set<std::wstring>{});
}

TEST_F(Win32FolderReaderTest, AListingThatBreaksOffGivesWhatItHasAndThenTheReason) {
    World.Write(World.Root() + L"\\file", "");
    answers_.Last = kNetworkNameDeleted;
    const auto reader = World.Files().GetFolder(World.Root());
    FileEntry entry;
    ASSERT_TRUE(reader->Next(entry));
    EXPECT_EQ(entry.Name, L"file");
    EXPECT_EQ(RuntimeErrorOf([&] { reader->Next(entry); }),
              NumberOfWin32Code(ERROR_NETNAME_DELETED));
    EXPECT_FALSE(reader->Next(entry));
    answers_ = {.First = kNetworkNameDeleted};
    EXPECT_EQ(RuntimeErrorOf([&] { Names(); }), NumberOfWin32Code(ERROR_NETNAME_DELETED));
    // Only at the beginning does that tell of an empty volume.
    answers_ = {.Last = kStatusNoSuchFile};
    EXPECT_EQ(RuntimeErrorOf([&] { Names(); }), ErrorNumber::FileNotFound);
}

TEST_F(Win32FolderReaderTest, ASuccessWithoutAnythingIsNone) {
    answers_.GivesNothing = true;
    EXPECT_EQ(RuntimeErrorOf([&] { Names(); }), NumberOfWin32Code(ERROR_GEN_FAILURE));
}

TEST_F(Win32FolderReaderTest, TellsMountPointsFromOtherLinks) {
    World.Write(World.Root() + L"\\file", "");
    for (const bool isMountPoint : {true, false}) {
        answers_.Tag = isMountPoint ? IO_REPARSE_TAG_MOUNT_POINT : IO_REPARSE_TAG_SYMLINK;
        const auto reader = World.Files().GetFolder(World.Root());
        FileEntry entry;
        ASSERT_TRUE(reader->Next(entry));
        EXPECT_TRUE(entry.IsLink());
        EXPECT_EQ(entry.IsMountPoint, isMountPoint);
    }
}

}  // namespace
}  // namespace ambrio
