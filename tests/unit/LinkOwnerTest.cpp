#include "platform/win32/files/LinkOwner.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <vector>

#include "platform/win32/system/Handle.h"
#include "tests/conformance/win32/Win32World.h"
#include "tests/support/RuntimeErrorOf.h"
#include "tests/support/win32/ReplacedImport.h"

namespace ambrio {
namespace {

using Sid = std::vector<BYTE>;

Sid WellKnown(WELL_KNOWN_SID_TYPE type) {
    Sid sid(SECURITY_MAX_SID_SIZE);
    auto size = static_cast<DWORD>(sid.size());
    EXPECT_NE(CreateWellKnownSid(type, nullptr, sid.data(), &size), FALSE);
    sid.resize(size);
    return sid;
}

Sid CurrentUser() {
    HANDLE raw = nullptr;
    EXPECT_NE(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &raw), FALSE);
    const UniqueHandle token(raw);
    alignas(TOKEN_USER) std::array<BYTE, 256> user{};
    DWORD size = 0;
    EXPECT_NE(GetTokenInformation(raw, TokenUser, user.data(), user.size(), &size), FALSE);
    PSID sid = reinterpret_cast<TOKEN_USER*>(user.data())->User.Sid;
    const auto* bytes = static_cast<const BYTE*>(sid);
    return {bytes, bytes + GetLengthSid(sid)};
}

// Of the same machine or domain: only the last number is another one.
Sid NextUser() {
    Sid sid = CurrentUser();
    const DWORD last = *GetSidSubAuthorityCount(sid.data()) - 1U;
    *GetSidSubAuthority(sid.data(), last) += 1;
    return sid;
}

// What the system answers in the place of the truth.
struct LinkAnswers {
    DWORD Attribute = FILE_ATTRIBUTE_REPARSE_POINT;
    DWORD Tag = IO_REPARSE_TAG_SYMLINK;
    Sid Owner = {};  // empty: it is not told
    int Questions = 0;
    int Looks = 0;  // at what kind of link it is; each needs the file opened
};

// Files that the system calls links, of whatever kind and owner the test says: few machines let
// everybody make links, and fewer give them away.
class LinkOwnerTest : public testing::Test {
  protected:
    LinkOwnerTest() {
        answers_ = LinkAnswers{};
        World.Write(Link, "behind");
        World.Files().CreateFolder(Folder);
        Replace(L"kernel32.dll", "GetFileInformationByHandleEx",
                reinterpret_cast<void*>(&Information));
        Replace(L"kernel32.dll", "GetFileAttributesW", reinterpret_cast<void*>(&Attributes));
        Replace(L"kernel32.dll", "GetFileAttributesExW", reinterpret_cast<void*>(&AttributesEx));
        Replace(L"advapi32.dll", "GetKernelObjectSecurity", reinterpret_cast<void*>(&Security));
    }

    static bool IsOfAnother(const Sid& owner, const std::wstring& path) {
        answers_.Owner = owner;
        return IsLinkOfAnotherUser(L"\\\\?\\" + path);
    }

    static inline LinkAnswers answers_;

    Win32World World;
    const std::wstring Link = World.Root() + L"\\link";
    const std::wstring Folder = World.Root() + L"\\folder";

  private:
    void Replace(const wchar_t* library, const char* name, void* function) {
        imports_.push_back(std::make_unique<ReplacedImport>(library, name, function));
    }
    template <typename Function>
    static Function* FromSystem(const char* name) {
        return reinterpret_cast<Function*>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name)));
    }

    static BOOL WINAPI Information(HANDLE file, FILE_INFO_BY_HANDLE_CLASS what, LPVOID data,
                                   DWORD size) {
        ++answers_.Looks;
        if (what == FileAttributeTagInfo && size >= sizeof(FILE_ATTRIBUTE_TAG_INFO)) {
            *static_cast<FILE_ATTRIBUTE_TAG_INFO*>(data) = {answers_.Attribute, answers_.Tag};
            return TRUE;
        }
        return FromSystem<decltype(GetFileInformationByHandleEx)>("GetFileInformationByHandleEx")(
            file, what, data, size);
    }
    static DWORD WINAPI Attributes(LPCWSTR path) {
        const DWORD attributes =
            FromSystem<decltype(GetFileAttributesW)>("GetFileAttributesW")(path);
        return attributes == INVALID_FILE_ATTRIBUTES ? attributes : attributes | answers_.Attribute;
    }
    static BOOL WINAPI AttributesEx(LPCWSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID data) {
        const BOOL done =
            FromSystem<decltype(GetFileAttributesExW)>("GetFileAttributesExW")(path, level, data);
        static_cast<WIN32_FILE_ATTRIBUTE_DATA*>(data)->dwFileAttributes |= answers_.Attribute;
        return done;
    }
    static BOOL WINAPI Security(HANDLE, SECURITY_INFORMATION what, PSECURITY_DESCRIPTOR into,
                                DWORD size, LPDWORD needed) {
        ++answers_.Questions;
        SECURITY_DESCRIPTOR descriptor{};
        InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
        if (!answers_.Owner.empty()) {
            SetSecurityDescriptorOwner(&descriptor, answers_.Owner.data(), FALSE);
        }
        *needed = size;
        return what == OWNER_SECURITY_INFORMATION ? MakeSelfRelativeSD(&descriptor, into, needed)
                                                  : FALSE;
    }

    std::vector<std::unique_ptr<ReplacedImport>> imports_;
};

TEST_F(LinkOwnerTest, LinksOfThisUserTheAdministratorsAndTheSystemAreFollowed) {
    for (const Sid& owner :
         {CurrentUser(), WellKnown(WinBuiltinAdministratorsSid), WellKnown(WinLocalSystemSid)}) {
        EXPECT_FALSE(IsOfAnother(owner, Link));
        EXPECT_FALSE(IsOfAnother(owner, Folder));
    }
    EXPECT_GT(answers_.Questions, 0);
}

TEST_F(LinkOwnerTest, LinksOfAnybodyElseAreNot) {
    for (const Sid& owner :
         {NextUser(), WellKnown(WinBuiltinUsersSid), WellKnown(WinWorldSid),
          WellKnown(WinBuiltinGuestsSid), WellKnown(WinLocalServiceSid), Sid()}) {
        for (const DWORD tag : {IO_REPARSE_TAG_SYMLINK, IO_REPARSE_TAG_MOUNT_POINT}) {
            answers_.Tag = tag;
            EXPECT_TRUE(IsOfAnother(owner, Link));
            EXPECT_TRUE(IsOfAnother(owner, Folder));
        }
    }
}

// Compressed by the system, kept once for many files, kept in the cloud.
TEST_F(LinkOwnerTest, NotesThatLeadNowhereElseAreNobodysLinks) {
    for (const DWORD tag : {0x80000017U, 0x80000013U, 0x9000001AU, 0U}) {
        answers_.Tag = tag;
        EXPECT_FALSE(IsOfAnother(NextUser(), Link)) << tag;
    }
    answers_.Tag = IO_REPARSE_TAG_SYMLINK;
    answers_.Attribute = 0;
    EXPECT_FALSE(IsOfAnother(NextUser(), Link));
    EXPECT_EQ(answers_.Questions, 0);
    EXPECT_FALSE(IsOfAnother(NextUser(), World.Root() + L"\\absent"));
}

TEST_F(LinkOwnerTest, EveryWayToALinkIsClosed) {
    FileSystem& files = World.Files();
    const std::wstring copy = World.Root() + L"\\folder\\copy";
    const auto copying = [&] {
        return RuntimeErrorOf([&] { files.CopyFile(Link, copy, true, {}); });
    };
    answers_.Owner = NextUser();
    EXPECT_FALSE(files.MayFollow(Folder));
    EXPECT_TRUE(files.GetFile(Link).IsOfAnotherUser);
    EXPECT_TRUE(files.FindFile(Link).value().IsOfAnotherUser);
    EXPECT_EQ(copying(), ErrorNumber::PathFileAccessError);
    EXPECT_FALSE(files.FileExists(copy));
    answers_.Owner = CurrentUser();
    EXPECT_TRUE(files.MayFollow(Folder));
    EXPECT_FALSE(files.GetFile(Link).IsOfAnotherUser);
    EXPECT_FALSE(files.FindFile(Link).value().IsOfAnotherUser);
    EXPECT_EQ(copying(), std::nullopt);
    EXPECT_EQ(World.Read(copy), "behind");
}

TEST_F(LinkOwnerTest, WhatIsNoLinkIsNotEvenOpened) {
    answers_.Attribute = 0;
    FileSystem& files = World.Files();
    EXPECT_TRUE(files.MayFollow(Folder));
    EXPECT_FALSE(files.GetFile(Link).IsOfAnotherUser);
    EXPECT_EQ(RuntimeErrorOf([&] { files.CopyFile(Link, Link + L" copy", true, {}); }),
              std::nullopt);
    EXPECT_EQ(answers_.Questions + answers_.Looks, 0);
}

}  // namespace
}  // namespace ambrio
