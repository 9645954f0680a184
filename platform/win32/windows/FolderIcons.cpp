#include "platform/win32/windows/FolderIcons.h"

namespace ambrio {
namespace {

HICON SmallFolderIcon(UINT more) {
    SHFILEINFOW info = {};
    // By the attribute, so that no folder of that name need exist.
    const DWORD_PTR found =
        SHGetFileInfoW(L"folder", FILE_ATTRIBUTE_DIRECTORY, &info, sizeof(info),
                       SHGFI_USEFILEATTRIBUTES | SHGFI_ICON | SHGFI_SMALLICON | more);
    return found != 0 ? info.hIcon : nullptr;
}

}  // namespace

FolderIcons::FolderIcons() : closed_(SmallFolderIcon(0)), open_(SmallFolderIcon(SHGFI_OPENICON)) {}

}  // namespace ambrio
