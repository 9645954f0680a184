#include "config/FolderBox.h"

#include <memory>
#include <string>
#include <type_traits>

namespace ambrio {
namespace {

using AutoComplete = HRESULT(WINAPI*)(HWND textBox, DWORD what);
constexpr DWORD kFoldersAndServers = 0x20;

struct DropDeleter {
    void operator()(HDROP files) const { DragFinish(files); }
};
using UniqueDrop = std::unique_ptr<std::remove_pointer_t<HDROP>, DropDeleter>;

std::wstring DroppedPath(HDROP files, UINT index) {
    std::wstring path(DragQueryFileW(files, index, nullptr, 0) + std::size_t{1}, L'\0');
    path.resize(DragQueryFileW(files, index, path.data(), static_cast<UINT>(path.size())));
    return path;
}

}  // namespace

void FolderBox::Attach(HWND textBox) {
    AttachTo(textBox);
    DragAcceptFiles(textBox, TRUE);
    // Not every shell has it, and whether it offers a list or types on is the user's to set there.
    if (const auto complete = shell_.Function<AutoComplete>("SHAutoComplete")) {
        complete(textBox, kFoldersAndServers);
    }
}

LRESULT FolderBox::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_DROPFILES) {
        return PassOn(message, wParam, lParam);
    }
    TakeDropped(reinterpret_cast<HDROP>(wParam));
    return 0;
}

// The first folder; files alone leave the box as it is.
void FolderBox::TakeDropped(HDROP files) {
    const UniqueDrop dropped(files);
    constexpr UINT kHowMany = 0xFFFFFFFF;
    const UINT count = DragQueryFileW(files, kHowMany, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        const std::wstring path = DroppedPath(files, i);
        if (fileSystem_.FolderExists(path)) {
            SetWindowTextW(Control(), path.c_str());
            return;
        }
    }
}

}  // namespace ambrio
