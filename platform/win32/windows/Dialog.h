#pragma once

#include <exception>
#include <string>

#include "platform/RuntimeError.h"
#include "platform/win32/WindowsHeaders.h"
#include "platform/win32/windows/DialogResolution.h"

namespace ambrio {

// A dialog made from a layout of the resources. Its life: Load makes the window, hidden, and calls
// Form_Load; one of the two Show calls shows it and returns when it has been unloaded, which the
// derived class does by Unload and the user by the close box. The object itself goes on living, and
// its window is gone then. A dialog is used on one thread.
class Dialog {
  public:
    virtual ~Dialog();
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    // Null before Load and after the unloading.
    [[nodiscard]] HWND Handle() const { return handle_; }

    // `owner` may be null. Throws what Form_Load throws, and RuntimeError OutOfMemory when the
    // system refuses the window; there is no window then.
    void Load(HWND owner);

    // Shows the loaded dialog over its owner, which takes no input meanwhile.
    void ShowModal();
    // Shows the loaded dialog beside all other windows.
    void ShowModeless();

    // Destroys the window, if there is one.
    void Unload();

  protected:
    Dialog(HINSTANCE instance, int templateId) : instance_(instance), templateId_(templateId) {}

    virtual void Form_Load() = 0;
    // Something happened to a control: the notification that came with WM_COMMAND. The button that
    // Enter presses comes as a click on it. Escape comes as a click on the control IDCANCEL only
    // where the dialog has one.
    virtual void OnCommand(int control, int notification) = 0;
    // A key went down in a list box that asks for them (LBS_WANTKEYBOARDINPUT), given as a virtual
    // key code. False leaves it to the list box.
    virtual bool OnListKey(int /*control*/, WORD /*key*/) { return false; }
    // F1 was pressed, wherever the focus is.
    virtual void OnHelp() {}
    // The window is about to go; it still has its handle.
    virtual void OnDestroy() {}
    // The dialog got another size, after Form_Load and unless it is now an icon.
    virtual void OnSize() {}
    // How small and how large the user may make the dialog.
    virtual void OnSizeLimits(MINMAXINFO& /*limits*/) {}
    // The dialog and its controls have the sizes of another resolution now.
    virtual void OnResolution() {}
    // An owner-drawn control wants to be drawn.
    virtual void OnDrawItem(const DRAWITEMSTRUCT& /*item*/) {}
    // A failure that left one of the above, other than Form_Load. The dialog stays.
    virtual void OnFailure(const RuntimeError& error) = 0;
    // The control that has the focus at first; null for the first one in the order.
    [[nodiscard]] virtual HWND FirstFocus() const { return nullptr; }

    [[nodiscard]] HINSTANCE Instance() const { return instance_; }
    [[nodiscard]] HWND Control(int control) const { return GetDlgItem(handle_, control); }
    [[nodiscard]] std::wstring Text(int control) const;
    void SetText(int control, const std::wstring& text);
    [[nodiscard]] bool IsTicked(int control) const;
    void Tick(int control, bool ticked);
    void Enable(int control, bool enabled);
    LRESULT Send(int control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(Control(control), message, wParam, lParam);
    }

    // Gives the control the focus, as the tabulator would.
    void FocusOn(HWND control);

    [[nodiscard]] std::wstring Caption() const;
    void SetCaption(const std::wstring& caption);

    // Vertical and horizontal dialog units in pixels.
    [[nodiscard]] SIZE PixelsOfUnits(int across, int down) const;

  private:
    static INT_PTR CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
    // What the dialog procedure is to return.
    INT_PTR Receive(UINT message, WPARAM wParam, LPARAM lParam);
    void LoadForm(HWND handle);
    void ChangeResolution(int dotsPerInch, const RECT& suggested);
    bool HandleCommand(int control, int notification);
    void Show();
    void RunUntilUnloaded();

    HINSTANCE instance_;
    int templateId_;
    HWND handle_ = nullptr;
    HWND disabledOwner_ = nullptr;
    DialogResolution resolution_;
    bool isChangingResolution_ = false;
    std::exception_ptr loadFailure_;
};

}  // namespace ambrio
