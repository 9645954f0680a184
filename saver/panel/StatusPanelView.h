#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>

#include "engine/StatusPanel.h"
#include "platform/win32/windows/Window.h"
#include "saver/panel/CopyFrame.h"
#include "saver/panel/PanelLabelWindow.h"
#include "saver/panel/PanelPainter.h"

namespace ambrio {

// fraStatus, the panel that shows the run: a child window of the form, whose labels are child
// windows of its own. It is drawn in memory as a whole and shown by one copy, so that nothing
// flickers. A label that changes is shown at once, without a message and in a device context that
// is kept, as that happens with every file. When the form is gone, everything here goes on doing
// nothing visible.
class StatusPanelView : public Window, public StatusPanel {
  public:
    // The form is not owned. `mouseDown` is called for a press of any button on the panel.
    StatusPanelView(HWND form, double twipsPerPixelX, double twipsPerPixelY,
                    const std::wstring& slogan, std::function<void()> mouseDown);
    ~StatusPanelView() override;

    void SetCaption(PanelLabel label, const std::wstring& caption) override;
    void SetTitle(const std::wstring& caption) override;
    void OpenClip(const std::wstring& path) override;
    void PlayClip() override;
    void StopClip() override;
    void CloseClip() override;
    void ShowCopyFrame(bool visible) override;
    void MatchCopyFrameColour() override;

    // The panel's place on the form, in twips.
    [[nodiscard]] const TwipsRect& Place() const { return place_; }
    void Move(int left, int top);
    // Shows the panel at another resolution, in the same place in twips: its windows, its letters
    // and the clip.
    void Rescale(double twipsPerPixelX, double twipsPerPixelY);
    // Lets other programs and screen readers know what the labels show. To be called now and then,
    // as it costs more than drawing them.
    void Tell();
    // Draws nothing, and lets the clip rest, while nobody can see it; catches up afterwards.
    void SetSeen(bool isSeen);
    // New colours are seen once Redraw is called, so that several changes appear at once.
    void SetBackColor(Colour colour);
    void SetLabelColours(const LabelColours& colours);
    void Redraw();

  protected:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void MakeLabels(const std::wstring& slogan);
    void PlaceWindows();
    void RoundCorners();
    [[nodiscard]] double PixelSize() const;
    [[nodiscard]] RECT PixelsOf(const TwipsRect& place) const;
    [[nodiscard]] RECT WholePicture() const;
    void RedrawLabel(std::size_t label);
    void Show(const RECT& part);
    void CopyPicture(HDC target, const RECT& part) const;
    void KeepClearOfCopyFrame(HDC target) const;
    void KeepClearOfCopyFrame();

    double twipsPerPixelX_;
    double twipsPerPixelY_;
    std::function<void()> mouseDown_;
    TwipsRect place_ = kStatusFramePlace;
    PanelLabelWindow::Panel labelPanel_;
    std::array<std::unique_ptr<PanelLabelWindow>, kPanelLabels.size()> labels_;
    PanelTexts texts_{};
    std::unique_ptr<PanelPainter> painter_;
    std::unique_ptr<CopyFrame> copyFrame_;
    HDC dc_ = nullptr;  // the window's own, valid as long as the window
    bool isSeen_ = true;
    bool isClipPlaying_ = false;
};

}  // namespace ambrio
