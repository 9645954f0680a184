#pragma once

#include <string>

#include "platform/win32/windows/FormTimer.h"
#include "platform/win32/windows/GdiHandles.h"
#include "platform/win32/windows/Window.h"

namespace ambrio {

// fraAni: the frame inside the panel with the clip that plays while files are copied. It starts
// hidden and lets the pointer through to the panel. A clip that cannot be opened leaves it empty.
//
// The clip's transparent parts show the frame's colour, which the control takes over only when it
// opens a clip. So a new colour opens it again, and the frame shows picture after picture by
// itself, as the control could not go on from where it was.
class CopyFrame : public Window {
  public:
    // Place in pixels of the parent.
    CopyFrame(HWND parent, const RECT& place);
    ~CopyFrame() override;

    void OpenClip(const std::wstring& path);
    void PlayClip();
    void StopClip();
    void CloseClip();

    // Comes up in front of the labels that it covers.
    void Show(bool visible);
    [[nodiscard]] bool IsShown() const { return isShown_; }
    void SetBackColor(COLORREF colour);

  protected:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    bool ShowPicture(int picture);
    void NextPicture();

    FormTimer pictures_;        // ticks while the clip plays
    HWND animation_ = nullptr;  // Animation1, a child
    COLORREF colour_ = 0;
    UniqueBrush background_;  // of that colour
    std::wstring path_;       // of the open clip
    int picture_ = 0;
    bool isShown_ = false;
};

}  // namespace ambrio
