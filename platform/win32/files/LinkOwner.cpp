#include "platform/win32/files/LinkOwner.h"

#include <vector>

#include "platform/win32/WindowsHeaders.h"
#include "platform/win32/system/Handle.h"

namespace ambrio {
namespace {

using Bytes = std::vector<BYTE>;

constexpr DWORD kLeadsElsewhere = 0x20000000;  // the bit of the tags of links

UniqueHandle OpenLinkItself(const std::wstring& extended, DWORD access) {
    return MakeHandle<UniqueHandle>(CreateFileW(
        extended.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
        OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
}

bool IsLink(const std::wstring& extended) {
    const auto link = OpenLinkItself(extended, FILE_READ_ATTRIBUTES);
    FILE_ATTRIBUTE_TAG_INFO tag{};
    return link &&
           GetFileInformationByHandleEx(link.get(), FileAttributeTagInfo, &tag, sizeof tag) != 0 &&
           (tag.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           (tag.ReparseTag & kLeadsElsewhere) != 0;
}

// Empty when it cannot be told.
Bytes OwnerOf(const std::wstring& extended) {
    const auto link = OpenLinkItself(extended, READ_CONTROL);
    DWORD size = 0;
    if (!link ||
        GetKernelObjectSecurity(link.get(), OWNER_SECURITY_INFORMATION, nullptr, 0, &size) != 0) {
        return {};
    }
    Bytes descriptor(size);
    PSID owner = nullptr;
    BOOL isDefault = FALSE;
    if (GetKernelObjectSecurity(link.get(), OWNER_SECURITY_INFORMATION, descriptor.data(), size,
                                &size) == 0 ||
        GetSecurityDescriptorOwner(descriptor.data(), &owner, &isDefault) == 0 ||
        owner == nullptr) {
        return {};
    }
    const auto* bytes = static_cast<const BYTE*>(owner);
    return {bytes, bytes + GetLengthSid(owner)};
}

bool IsWellKnown(Bytes& sid) {
    return IsWellKnownSid(sid.data(), WinBuiltinAdministratorsSid) != FALSE ||
           IsWellKnownSid(sid.data(), WinLocalSystemSid) != FALSE;
}

bool IsCurrentUser(Bytes& sid) {
    HANDLE raw = nullptr;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &raw) == 0) {
        return false;
    }
    const UniqueHandle token(raw);
    DWORD size = 0;
    GetTokenInformation(raw, TokenUser, nullptr, 0, &size);
    Bytes user(size);
    return size != 0 && GetTokenInformation(raw, TokenUser, user.data(), size, &size) != 0 &&
           EqualSid(reinterpret_cast<TOKEN_USER*>(user.data())->User.Sid, sid.data()) != FALSE;
}

}  // namespace

bool IsLinkOfAnotherUser(const std::wstring& extended) {
    if (!IsLink(extended)) {
        return false;
    }
    Bytes owner = OwnerOf(extended);
    return owner.empty() || !(IsWellKnown(owner) || IsCurrentUser(owner));
}

}  // namespace ambrio
