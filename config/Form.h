#pragma once

#include <span>
#include <string>

#include "config/DialogContext.h"
#include "platform/win32/windows/Dialog.h"
#include "platform/win32/windows/DialogStretch.h"
#include "platform/win32/windows/Tooltips.h"

namespace ambrio {

// What the five dialogs have in common.
class Form : public Dialog {
  public:
    // For whoever compares the tooltips.
    [[nodiscard]] HWND TooltipWindow() const { return tooltips_.Handle(); }

  protected:
    struct Tip {
        int Control;
        unsigned TextId;
    };

    Form(DialogContext& context, int templateId)
        : Dialog(context.Instance, templateId), context_(context) {}

    void OnFailure(const RuntimeError& error) override;
    void OnSize() override;
    void OnSizeLimits(MINMAXINFO& limits) override { stretch_.OnSizeLimits(limits); }
    void OnResolution() override { stretch_.AttachAgain(); }
    void OnHelp() override { ShowHelp(); }
    void OnDestroy() override { EndHelp(); }

    [[nodiscard]] DialogContext& Context() const { return context_; }
    void SetTooltip(int control, const std::wstring& text);
    void SetTooltips(std::span<const Tip> tips);
    // Lets the controls follow the dialog's size, from that which it has now on. `followers` must
    // live longer.
    void Stretch(std::span<const Follower> followers) { stretch_.Attach(Handle(), followers); }
    // Puts the dialog over the middle of the one that opened it.
    void CentreOver(HWND parent);
    // Shows the contents of the help: in the system's viewer where it has one, else in a browser.
    void ShowHelp();
    // Opens a page in the browser, an address or the full path of a file. False after a box that
    // says that no browser could be started; a file that is not there has a box too, and is true.
    bool ShowPage(const std::wstring& page);
    // A message box over this dialog; returns the button's id.
    int Ask(const std::wstring& text, const std::wstring& title, UINT style);
    // The program's icon in the size that a metric of the system (SM_CXICON, SM_CXSMICON) tells.
    // The system's to free.
    [[nodiscard]] HANDLE ProgramIcon(int metric) const;

  private:
    // Has the viewer close the help, unless another window has called for it too.
    void EndHelp();

    DialogContext& context_;
    bool hasCalledViewer_ = false;
    Tooltips tooltips_;
    DialogStretch stretch_;
};

}  // namespace ambrio
