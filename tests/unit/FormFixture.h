#pragma once

#include <gtest/gtest.h>

#include <string>

#include "config/DialogContext.h"
#include "platform/win32/system/SystemFolders.h"
#include "platform/win32/windows/Dialog.h"
#include "platform/win32/windows/WindowText.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/MemorySettingsStore.h"

namespace ambrio {

// A control of a dialog of this process, used with the messages that anybody could send it.
class ControlProbe {
  public:
    ControlProbe(HWND dialog, int id) : handle_(GetDlgItem(dialog, id)) {}

    [[nodiscard]] HWND Handle() const { return handle_; }
    [[nodiscard]] std::wstring Text() const { return WindowText(handle_); }
    [[nodiscard]] bool IsTicked() const { return Send(BM_GETCHECK) == BST_CHECKED; }
    [[nodiscard]] bool IsEnabled() const { return IsWindowEnabled(handle_) != FALSE; }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(handle_, message, wParam, lParam);
    }
    void Click() const { Send(BM_CLICK); }
    void SetText(const wchar_t* text) const { SetWindowTextW(handle_, text); }
    // Tells the dialog of something that only the user's own doing would tell it of.
    void Notify(int notification) const {
        const auto id = static_cast<WORD>(GetDlgCtrlID(handle_));
        SendMessageW(GetParent(handle_), WM_COMMAND,
                     MAKEWPARAM(id, static_cast<WORD>(notification)),
                     reinterpret_cast<LPARAM>(handle_));
    }
    void Choose(int entry) const {
        Send(CB_SETCURSEL, static_cast<WPARAM>(entry));
        Notify(CBN_SELCHANGE);
    }

  private:
    HWND handle_;
};

// A test of real dialogs, in hidden windows, that work on files and settings in memory.
class FormTest : public ::testing::Test {
  protected:
    FormTest() {
        App.Title = L"Ambrio";
        App.HelpPage = L"C:\\Program folder\\Ambrio.html";
        for (const std::wstring& folder : {GetWindowsFolder(), GetSystemFolder()}) {
            Files.MakeFolder(folder);
        }
    }

    Application App;
    MemoryFileSystem Files;
    MemorySettingsStore Store;
    DialogContext Context{
        App, Files, Store, GetModuleHandleW(nullptr), GetWindowsFolder() + L"\\Ambrio.log", {}, 0};
};

}  // namespace ambrio
