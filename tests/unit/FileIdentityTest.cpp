#include "platform/win32/files/FileIdentity.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string_view>

#include "platform/win32/NativeHeaders.h"
#include "tests/conformance/win32/Win32World.h"
#include "tests/support/win32/ReplacedImport.h"

namespace ambrio {
namespace {

// What the system answers in the place of the truth.
struct IdentityAnswers {
    bool NumbersNothing = false;
    int Questions = 0;
    std::wstring Path = {};  // empty: the true one
    const wchar_t* Disk = L"\\\\?\\Volume{11111111-2222-3333-4444-555555555555}\\";
};

class Win32FileIdentityTest : public testing::Test {
  protected:
    Win32FileIdentityTest() {
        answers_ = IdentityAnswers{};
        World.Write(File, "x");
        World.Write(Other, "x");
        number_ = std::make_unique<ReplacedImport>(L"ntdll.dll", "NtQueryInformationFile",
                                                   reinterpret_cast<void*>(&Number));
        path_ = std::make_unique<ReplacedImport>(L"kernel32.dll", "GetFinalPathNameByHandleW",
                                                 reinterpret_cast<void*>(&FinalPath));
    }

    // As the system answers now.
    std::optional<FileIdentity> Identity(const std::wstring& path) {
        auto identity = World.Files().IdentityOf(path);
        if (identity) {
            identity->Settle();
        }
        return identity;
    }

    static inline IdentityAnswers answers_;
    Win32World World;
    const std::wstring File = World.Root() + L"\\file";
    const std::wstring Other = World.Root() + L"\\other";

  private:
    template <typename Function>
    static Function* FromSystem(const char* name, const wchar_t* library = L"kernel32.dll") {
        return reinterpret_cast<Function*>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(library), name)));
    }
    static NTSTATUS WINAPI Number(HANDLE file, PIO_STATUS_BLOCK status, PVOID data, ULONG size,
                                  FILE_INFORMATION_CLASS kind) {
        constexpr auto kNumber = static_cast<FILE_INFORMATION_CLASS>(6);
        if (answers_.NumbersNothing && kind == kNumber) {
            std::memset(data, 0, size);
            return 0;
        }
        const auto system =
            FromSystem<decltype(NtQueryInformationFile)>("NtQueryInformationFile", L"ntdll.dll");
        return system(file, status, data, size, kind);
    }
    static DWORD WINAPI FinalPath(HANDLE file, LPWSTR text, DWORD size, DWORD kind) {
        if (kind != VOLUME_NAME_GUID && !answers_.Path.empty()) {
            std::memcpy(text, answers_.Path.c_str(), (answers_.Path.size() + 1) * sizeof(wchar_t));
            return static_cast<DWORD>(answers_.Path.size());
        }
        if (kind != VOLUME_NAME_GUID) {
            const auto system =
                FromSystem<decltype(GetFinalPathNameByHandleW)>("GetFinalPathNameByHandleW");
            return system(file, text, size, kind);
        }
        // Each time another place on the disk.
        const std::wstring place = std::to_wstring(++answers_.Questions);
        const std::wstring path = *answers_.Disk == 0 ? L"" : answers_.Disk + place;
        const auto length = static_cast<DWORD>(path.size());
        if (length >= size) {
            return length + 1;
        }
        std::memcpy(text, path.c_str(), (path.size() + 1) * sizeof(wchar_t));
        return length;
    }

    std::unique_ptr<ReplacedImport> number_;
    std::unique_ptr<ReplacedImport> path_;
};

TEST_F(Win32FileIdentityTest, TellsADiskFromItsClone) {
    const auto original = Identity(File);
    ASSERT_TRUE(original);
    EXPECT_NE(original->Disk, 0U);
    EXPECT_EQ(original, Identity(File));
    EXPECT_EQ(original->Disk, Identity(Other).value().Disk);
    answers_.Disk = L"\\\\?\\Volume{11111111-2222-3333-4444-555555555556}\\";
    const auto clone = Identity(File);
    EXPECT_NE(original, clone);
    EXPECT_FALSE(original->MayShareVolumeWith(clone.value()));
    answers_.Disk = L"";
    EXPECT_EQ(Identity(File).value().Disk, 0U);
    EXPECT_EQ(original, Identity(File)) << "a server may be this machine";
}

TEST_F(Win32FileIdentityTest, GoesByTheFinalPathWhereNothingIsNumbered) {
    EXPECT_FALSE(Identity(File).value().IsByPath);
    answers_.NumbersNothing = true;
    const auto file = Identity(File);
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->IsByPath);
    EXPECT_EQ(file, Identity(World.Root() + L"\\.\\x\\..\\FILE"));
    EXPECT_NE(file, Identity(Other));
    EXPECT_NE(file, Identity(World.Root()));
    const auto listing = World.Files().GetFolder(World.Root())->Identity();
    ASSERT_TRUE(listing);
    EXPECT_TRUE(listing->IsByPath);
    EXPECT_EQ(listing, Identity(World.Root()));
    EXPECT_NE(listing, file);
}

// The server's name may be written in any case.
TEST_F(Win32FileIdentityTest, TakesTwoSpellingsOfAFinalPathForOne) {
    answers_.NumbersNothing = true;
    answers_.Path = L"\\\\?\\UNC\\Server\\Share\\\u00dcber";
    const auto file = Identity(File);
    ASSERT_TRUE(file);
    answers_.Path = L"\\\\?\\UNC\\SERVER\\share\\\u00fcber";
    EXPECT_EQ(file, Identity(Other));
}

// Two numbers that differ tell two files apart, whatever their volumes; those cost far more.
TEST_F(Win32FileIdentityTest, AsksForTheVolumeOnlyWhereTheNumbersAreEqual) {
    const auto file = World.Files().IdentityOf(File);
    const auto other = World.Files().IdentityOf(Other);
    ASSERT_TRUE(file && other);
    EXPECT_NE(file, other);
    EXPECT_EQ(answers_.Questions, 0);
    EXPECT_EQ(file, World.Files().IdentityOf(File));
    EXPECT_EQ(answers_.Questions, 2);
    EXPECT_EQ(file, World.Files().IdentityOf(File));
    EXPECT_EQ(answers_.Questions, 3) << "the first one knows by now";
}

TEST_F(Win32FileIdentityTest, AListingIsNumberedLikeItsFolder) {
    const auto listing = World.Files().GetFolder(World.Root())->Identity();
    ASSERT_TRUE(listing);
    EXPECT_FALSE(listing->IsByPath);
    EXPECT_EQ(answers_.Questions, 0);
    EXPECT_EQ(listing, Identity(World.Root()));
    EXPECT_NE(listing->Disk, 0U);
    answers_.Disk = L"\\\\?\\Volume{11111111-2222-3333-4444-555555555556}\\";
    EXPECT_NE(listing, Identity(World.Root())) << "its disk was asked for when it mattered";
}

TEST_F(Win32FileIdentityTest, MayBeAnywhereOnceNobodyCanTell) {
    const auto file = World.Files().IdentityOf(File);
    const auto kept = Identity(File);
    ASSERT_TRUE(file && kept);
    World.Files().DeleteFile(File, true);
    EXPECT_EQ(file, kept);
    EXPECT_TRUE(file->IsAnywhere);
    EXPECT_FALSE(kept->IsAnywhere);
}

}  // namespace
}  // namespace ambrio
