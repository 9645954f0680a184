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

std::wstring DriveText(wchar_t letter, DriveKind kind, const std::wstring& label) {
    std::wstring text(1, letter);
    text += L": ";
    text += KindText(kind);
    return label.empty() ? text : text + L" [" + label + L"]";
}

}  // namespace ambrio
