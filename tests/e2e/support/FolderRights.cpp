#include "tests/e2e/support/FolderRights.h"

#include "tests/e2e/support/Handles.h"

namespace ambrio::e2e {

void SetFolderRights(const std::wstring& folder, DWORD rights) {
    BYTE sid[SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof sid;
    alignas(ACL) BYTE list[256];
    auto* acl = reinterpret_cast<ACL*>(list);
    SECURITY_DESCRIPTOR descriptor{};
    if (CreateWellKnownSid(WinWorldSid, nullptr, sid, &size) == 0 ||
        InitializeAcl(acl, sizeof list, ACL_REVISION) == 0 ||
        AddAccessAllowedAce(acl, ACL_REVISION, rights, sid) == 0 ||
        InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION) == 0 ||
        SetSecurityDescriptorDacl(&descriptor, TRUE, acl, FALSE) == 0 ||
        SetFileSecurityW(folder.c_str(), DACL_SECURITY_INFORMATION, &descriptor) == 0) {
        ThrowWin32Error("setting the rights on a folder");
    }
}

bool IsFolderWritable(const std::wstring& folder) {
    const std::wstring probe = folder + L"\\probe";
    const bool written = CreateDirectoryW(probe.c_str(), nullptr) != 0;
    RemoveDirectoryW(probe.c_str());
    return written;
}

}  // namespace ambrio::e2e
