#include "tests/conformance/win32/GivenAway.h"

#include <array>

#include "platform/win32/system/Handle.h"

namespace ambrio {
namespace {

// Whoever may restore files may make anybody their owner; nobody has that without asking.
bool AskForPrivilege() {
    HANDLE raw = nullptr;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES, &raw) == 0) {
        return false;
    }
    const UniqueHandle token(raw);
    TOKEN_PRIVILEGES wanted{};
    wanted.PrivilegeCount = 1;
    wanted.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
    return LookupPrivilegeValueW(nullptr, L"SeRestorePrivilege", &wanted.Privileges[0].Luid) != 0 &&
           AdjustTokenPrivileges(raw, FALSE, &wanted, 0, nullptr, nullptr) != 0 &&
           GetLastError() == ERROR_SUCCESS;
}

}  // namespace

bool GiveToEveryone(const std::wstring& extended) {
    if (!AskForPrivilege()) {
        return false;
    }
    const auto file = MakeHandle<UniqueHandle>(
        CreateFileW(extended.c_str(), WRITE_OWNER,
                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    std::array<BYTE, SECURITY_MAX_SID_SIZE> sid{};
    DWORD size = sid.size();
    SECURITY_DESCRIPTOR descriptor{};
    return file && CreateWellKnownSid(WinWorldSid, nullptr, sid.data(), &size) != 0 &&
           InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION) != 0 &&
           SetSecurityDescriptorOwner(&descriptor, sid.data(), FALSE) != 0 &&
           SetKernelObjectSecurity(file.get(), OWNER_SECURITY_INFORMATION, &descriptor) != 0;
}

}  // namespace ambrio
