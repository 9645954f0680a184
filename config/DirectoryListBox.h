#pragma once

#include <vector>

#include "config/model/DirectoryTree.h"
#include "platform/win32/windows/ControlSubclass.h"
#include "platform/win32/windows/FolderIcons.h"
#include "platform/win32/windows/GdiHandles.h"

namespace ambrio {

// Shows the rows of a directory tree in an owner-drawn list box (LBS_OWNERDRAWFIXED,
// LBS_HASSTRINGS), whose entries are the directories' names and whose item data is their depth. The
// open one is in bold, as it is what is chosen, whatever is highlighted.
// Enter on another entry than the open one acts as a double-click; on the open one it is left to
// the dialog. When the object goes, the list box, if it is still there, is an ordinary one again.
class DirectoryListBox : private ControlSubclass {
  public:
    // To be called once, when the list box has its font.
    void Attach(HWND listBox);

    // Fills the list and highlights the open row, which comes into view with what is below it.
    void Show(const std::vector<DirectoryRow>& rows, std::size_t openRow);

    // To be called for the list box's WM_DRAWITEM.
    void Draw(const DRAWITEMSTRUCT& item, const std::vector<DirectoryRow>& rows) const;

  private:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;
    [[nodiscard]] bool TakesEnter() const;
    [[nodiscard]] int TextLeft(int depth) const;
    void SetScrollWidth(const std::vector<DirectoryRow>& rows);

    [[nodiscard]] HFONT FontOf(std::size_t row) const;

    FolderIcons icons_;
    UniqueFont bold_;
    int iconSize_ = 0;
    LRESULT openRow_ = 0;
};

}  // namespace ambrio
