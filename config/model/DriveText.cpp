#include "config/model/DriveText.h"

namespace ambrio {
namespace {

const wchar_t* KindText(DriveKind kind) {
    switch (kind) {
        case DriveKind::Removable:
            return L"Removable disk";
        case DriveKind::Fixed:
            return L"Local disk";
        case DriveKind::Network:
            return L"Network drive";
        case DriveKind::Compact:
            return L"CD or DVD drive";
        case DriveKind::Memory:
            return L"Memory disk";
        case DriveKind::Unknown:
            break;
    }
    return L"Drive";
}

}  // namespace

std::wstring DriveText(const Drive& drive) {
    std::wstring text(1, drive.Letter);
    text += L": ";
    text += KindText(drive.Kind);
    return drive.Label.empty() ? text : text + L" [" + drive.Label + L"]";
}

}  // namespace ambrio
