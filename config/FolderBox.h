#pragma once

#include "platform/FileSystem.h"
#include "platform/win32/system/SystemLibrary.h"
#include "platform/win32/windows/ControlSubclass.h"

namespace ambrio {

// Makes a text box one for the path of a folder: while the user types, the shell offers the folders
// that there are, where it can, and a folder that is dropped on the box becomes its text. When the
// object goes, the text box, if it is still there, is an ordinary one again.
class FolderBox : private ControlSubclass {
  public:
    // `fileSystem` tells folders from files; it must live longer.
    explicit FolderBox(FileSystem& fileSystem) : fileSystem_(fileSystem) {}

    // To be called once, on a thread that has a ComApartment if folders are to be offered.
    void Attach(HWND textBox);

  private:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;
    void TakeDropped(HDROP files);

    FileSystem& fileSystem_;
    SystemLibrary shell_{L"shlwapi.dll"};
};

}  // namespace ambrio
