#include "platform/win32/windows/Dialog.h"

#include <new>

#include "platform/win32/system/SentData.h"
#include "platform/win32/windows/DialogTemplate.h"
#include "platform/win32/windows/WindowText.h"

namespace ambrio {
namespace {

// What a list box that asks for its keys makes of the answer.
constexpr INT_PTR kKeyIsHandled = -2;
constexpr INT_PTR kKeyIsTheListBoxs = -1;

// The dialog that this thread is loading. The message that says so only names it once more, as
// other programs can send the same one.
thread_local Dialog* dialogBeingLoaded = nullptr;

}  // namespace

Dialog::~Dialog() {
    if (handle_ != nullptr) {
        // The derived part is gone; no message may reach it any more.
        SetWindowLongPtrW(handle_, DWLP_USER, 0);
    }
    Unload();
}

void Dialog::Load(HWND owner) {
    const auto layout = DialogTemplateInMessageFont(instance_, templateId_);
    loadFailure_ = nullptr;
    dialogBeingLoaded = this;
    const HWND window =
        CreateDialogIndirectParamW(instance_, reinterpret_cast<const DLGTEMPLATE*>(layout.data()),
                                   owner, Procedure, reinterpret_cast<LPARAM>(this));
    dialogBeingLoaded = nullptr;
    if (loadFailure_ != nullptr) {
        Unload();
        std::rethrow_exception(loadFailure_);
    }
    if (window == nullptr) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
}

void Dialog::ShowModal() {
    const HWND owner = GetWindow(handle_, GW_OWNER);
    if (owner != nullptr && IsWindowEnabled(owner) != FALSE) {
        disabledOwner_ = owner;
        EnableWindow(owner, FALSE);
    }
    Show();
    RunUntilUnloaded();
}

void Dialog::ShowModeless() {
    Show();
    RunUntilUnloaded();
}

void Dialog::Show() {
    ShowWindow(handle_, SW_SHOW);
    SetForegroundWindow(handle_);
    HWND focus = FirstFocus();
    if (focus == nullptr) {
        focus = GetNextDlgTabItem(handle_, nullptr, FALSE);
    }
    FocusOn(focus);
}

void Dialog::FocusOn(HWND control) {
    SendMessageW(handle_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
}

void Dialog::RunUntilUnloaded() {
    MSG message;
    while (handle_ != nullptr) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) {
            // The program is to end: that goes on to the loop below this one.
            PostQuitMessage(static_cast<int>(message.wParam));
            Unload();
        } else if (IsDialogMessageW(handle_, &message) == FALSE) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

void Dialog::Unload() {
    if (disabledOwner_ != nullptr) {
        // Before the window goes, or the system would activate some other program's.
        EnableWindow(disabledOwner_, TRUE);
        disabledOwner_ = nullptr;
    }
    if (handle_ != nullptr) {
        DestroyWindow(handle_);
    }
}

INT_PTR CALLBACK Dialog::Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* dialog = reinterpret_cast<Dialog*>(GetWindowLongPtrW(handle, DWLP_USER));
    if (dialog == nullptr) {
        // Messages before WM_INITDIALOG belong to nobody.
        Dialog* const loaded = dialogBeingLoaded;
        if (message == WM_INITDIALOG && loaded != nullptr &&
            reinterpret_cast<LPARAM>(loaded) == lParam) {
            dialogBeingLoaded = nullptr;
            loaded->LoadForm(handle);
        }
        return FALSE;  // the focus is set when the dialog is shown
    }
    if (message == WM_NCDESTROY) {
        dialog->handle_ = nullptr;
        return FALSE;
    }
    try {
        return dialog->Receive(message, wParam, lParam);
    } catch (const RuntimeError& error) {
        dialog->OnFailure(error);
    } catch (const std::bad_alloc&) {
        dialog->OnFailure(RuntimeError(ErrorNumber::OutOfMemory));
    }
    return TRUE;
}

// No exception may pass through the system's code; Load throws it on.
void Dialog::LoadForm(HWND handle) {
    handle_ = handle;
    SetWindowLongPtrW(handle, DWLP_USER, reinterpret_cast<LONG_PTR>(this));
    resolution_.Attach(handle);
    try {
        Form_Load();
    } catch (...) {
        loadFailure_ = std::current_exception();
    }
}

INT_PTR Dialog::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            return loadFailure_ == nullptr && HandleCommand(LOWORD(wParam), HIWORD(wParam)) ? TRUE
                                                                                            : FALSE;
        case WM_VKEYTOITEM:
            return OnListKey(GetDlgCtrlID(reinterpret_cast<HWND>(lParam)), LOWORD(wParam))
                       ? kKeyIsHandled
                       : kKeyIsTheListBoxs;
        case WM_HELP:
            OnHelp();
            return TRUE;
        case WM_DESTROY:
            OnDestroy();
            return TRUE;
        case WM_SIZE:
            if (wParam != SIZE_MINIMIZED) {
                OnSize();
            }
            return FALSE;
        case WM_GETMINMAXINFO:
            // The limits are those of the resolution that is being left.
            if (!isChangingResolution_) {
                OnSizeLimits(*reinterpret_cast<MINMAXINFO*>(lParam));
            }
            return TRUE;
        case WM_DPICHANGED:
            if (const auto suggested = ReadSentData<RECT>(lParam)) {
                ChangeResolution(HIWORD(wParam), *suggested);
            }
            return TRUE;
        case WM_DRAWITEM:
            OnDrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            return TRUE;
        case WM_CLOSE:
            // An owner whose modal dialog is open stays, whoever asks.
            if (IsWindowEnabled(handle_) != FALSE) {
                Unload();
            }
            return TRUE;
        default:
            return FALSE;
    }
}

void Dialog::ChangeResolution(int dotsPerInch, const RECT& suggested) {
    isChangingResolution_ = true;
    resolution_.Change(dotsPerInch, suggested);
    isChangingResolution_ = false;
    OnResolution();
}

bool Dialog::HandleCommand(int control, int notification) {
    if (control == IDCANCEL && Control(IDCANCEL) == nullptr) {
        return true;
    }
    OnCommand(control, notification);
    return true;
}

std::wstring Dialog::Text(int control) const {
    return WindowText(Control(control));
}

void Dialog::SetText(int control, const std::wstring& text) {
    SetWindowTextW(Control(control), text.c_str());
}

bool Dialog::IsTicked(int control) const {
    return Send(control, BM_GETCHECK) == BST_CHECKED;
}

void Dialog::Tick(int control, bool ticked) {
    Send(control, BM_SETCHECK, ticked ? BST_CHECKED : BST_UNCHECKED);
}

void Dialog::Enable(int control, bool enabled) {
    EnableWindow(Control(control), enabled ? TRUE : FALSE);
}

std::wstring Dialog::Caption() const {
    return WindowText(handle_);
}

void Dialog::SetCaption(const std::wstring& caption) {
    SetWindowTextW(handle_, caption.c_str());
}

SIZE Dialog::PixelsOfUnits(int across, int down) const {
    RECT units = {0, 0, across, down};
    MapDialogRect(handle_, &units);
    return {units.right, units.bottom};
}

}  // namespace ambrio
