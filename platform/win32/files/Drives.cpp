#include "platform/win32/files/Drives.h"

#include <array>

#include "platform/win32/files/NetworkLibrary.h"

namespace ambrio {
namespace {

constexpr int kLetters = 26;

DriveKind KindOf(const std::wstring& root) {
    switch (GetDriveTypeW(root.c_str())) {
        case DRIVE_REMOVABLE:
            return DriveKind::Removable;
        case DRIVE_FIXED:
            return DriveKind::Fixed;
        case DRIVE_REMOTE:
            return DriveKind::Network;
        case DRIVE_CDROM:
            return DriveKind::Compact;
        case DRIVE_RAMDISK:
            return DriveKind::Memory;
        default:
            return DriveKind::Unknown;
    }
}

std::wstring ShareOf(wchar_t letter) {
    const NetworkLibrary network;
    const NetworkConnection connection = ConnectionOf(letter, network.Calls());
    return connection.Code == NO_ERROR ? connection.Share : std::wstring();
}

std::wstring VolumeLabelOf(const std::wstring& root) {
    std::array<wchar_t, MAX_PATH + 1> label = {};
    const BOOL isRead =
        GetVolumeInformationW(root.c_str(), label.data(), static_cast<DWORD>(label.size()), nullptr,
                              nullptr, nullptr, nullptr, 0);
    return isRead != FALSE ? label.data() : L"";
}

std::wstring LabelOf(wchar_t letter, DriveKind kind, const std::wstring& root) {
    if (kind == DriveKind::Network) {
        return ShareOf(letter);
    }
    const bool isDiskette = letter <= L'B' && kind == DriveKind::Removable;
    return isDiskette ? std::wstring() : VolumeLabelOf(root);
}

}  // namespace

std::vector<Drive> ListDrives() {
    std::vector<Drive> drives;
    const DWORD present = GetLogicalDrives();
    for (int i = 0; i < kLetters; ++i) {
        if ((present & (1U << i)) != 0) {
            const auto letter = static_cast<wchar_t>(L'A' + i);
            const std::wstring root = {letter, L':', L'\\'};
            const DriveKind kind = KindOf(root);
            drives.push_back({letter, kind, LabelOf(letter, kind, root)});
        }
    }
    return drives;
}

}  // namespace ambrio
