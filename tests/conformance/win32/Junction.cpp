#include "tests/conformance/win32/Junction.h"

#include <cstring>
#include <vector>

#include "platform/win32/system/Handle.h"

namespace ambrio {
namespace {

// FSCTL_SET_REPARSE_POINT, whose header is not among those that the project includes.
constexpr DWORD kSetReparsePoint = 0x000900A4;

// What the system expects in front of the two names of a mount point.
struct MountPointHeader {
    ULONG Tag;
    USHORT DataLength;
    USHORT Reserved;
    USHORT SubstituteOffset;
    USHORT SubstituteLength;
    USHORT PrintOffset;
    USHORT PrintLength;
};

}  // namespace

bool MakeJunction(const std::wstring& path, const std::wstring& target) {
    if (CreateDirectoryW(path.c_str(), nullptr) == 0) {
        return false;
    }
    const auto folder = MakeHandle<UniqueHandle>(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    const std::wstring substitute = L"\\??\\" + target;
    const auto bytes = [](const std::wstring& text) {
        return static_cast<USHORT>(text.size() * sizeof(wchar_t));
    };
    // Either name is followed by a zero.
    const std::wstring names = substitute + L'\0' + target + L'\0';
    MountPointHeader header{};
    header.Tag = IO_REPARSE_TAG_MOUNT_POINT;
    header.DataLength = static_cast<USHORT>(8 + bytes(names));
    header.SubstituteLength = bytes(substitute);
    header.PrintOffset = static_cast<USHORT>(bytes(substitute) + sizeof(wchar_t));
    header.PrintLength = bytes(target);
    std::vector<char> data(sizeof(header) + bytes(names));
    std::memcpy(data.data(), &header, sizeof(header));
    std::memcpy(data.data() + sizeof(header), names.data(), bytes(names));
    DWORD returned = 0;
    return folder &&
           DeviceIoControl(folder.get(), kSetReparsePoint, data.data(),
                           static_cast<DWORD>(data.size()), nullptr, 0, &returned, nullptr) != 0;
}

}  // namespace ambrio
