#pragma once

#include <string>

#include "platform/win32/windows/CheckBoxTheme.h"
#include "platform/win32/windows/ControlSubclass.h"

namespace ambrio {

// Gives an owner-drawn list box (LBS_OWNERDRAWFIXED, LBS_HASSTRINGS) a check box in front of each
// entry, which the mouse and the space bar tick. Only a double-click on a name is one to the list
// box; on a check box it ticks twice. The entry's item data is its tick: 1 or 0. So the
// list is filled, read and driven with the ordinary messages of list boxes; screen readers find
// check boxes in it. When the object goes,
// the list box, if it is still there, is an ordinary one again.
class CheckListBox : private ControlSubclass {
  public:
    // To be called once, when the list box has its font. The list box then ends on a whole row, so
    // it may become some pixels lower.
    void Attach(HWND listBox);

    void Add(const std::wstring& name, bool ticked);
    void Clear();
    [[nodiscard]] int Count() const;
    [[nodiscard]] std::wstring Name(int entry) const;
    [[nodiscard]] bool IsTicked(int entry) const;
    // -1 for none.
    [[nodiscard]] int Current() const;
    // Scrolls the entry into view.
    void SetCurrent(int entry);

    // To be called for the list box's WM_DRAWITEM.
    void Draw(const DRAWITEMSTRUCT& item) const;

  private:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;
    void FitRows();
    [[nodiscard]] int EntryAt(LPARAM position) const;
    [[nodiscard]] int BoxAt(LPARAM position) const;
    [[nodiscard]] RECT BoxOf(const RECT& entry) const;
    void DrawBox(HDC dc, RECT box, bool ticked) const;

    int boxSize_ = 0;  // in an entry of this height
    LONG entryHeight_ = 0;
    CheckBoxTheme theme_;
};

}  // namespace ambrio
