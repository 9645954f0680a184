#pragma once

#include "platform/Application.h"
#include "platform/win32/windows/Window.h"
#include "saver/LineCanvas.h"

namespace ambrio {

struct TwipsSize {
    std::int32_t Width;
    std::int32_t Height;
};

// Picture1 of the preview: it shows the lines and holds the frame. It belongs to the form at first
// and to the preview window while the preview is active. Its window procedure is replaced, so that
// a request to close it only ends the preview; whoever closes it then finds it gone from there.
class PreviewPicture : public Window {
  public:
    // Makes the picture in the form, without any size. Nothing is owned.
    PreviewPicture(HWND form, const Application& application);
    ~PreviewPicture() override;

    void ReplaceProcedure();
    // The former procedure, once; null when there is none any more. From then on the picture
    // answers nothing but 0.
    [[nodiscard]] WNDPROC TakeSavedProcedure();

    // Moves the picture to the top left corner of its parent.
    void Resize(TwipsSize size);
    // Gives the picture to the preview window.
    void Activate(HWND preview);
    // True until the picture was closed or has gone with the preview window.
    [[nodiscard]] bool IsPreviewActive() const { return PreviewActive_; }

    [[nodiscard]] TwipsSize ScaleSize() const { return size_; }
    void DrawLines(std::span<const Line> lines, const Palette& palette);

  protected:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    static LRESULT CALLBACK ReplacementProcedure(HWND handle, UINT message, WPARAM wParam,
                                                 LPARAM lParam);

    HWND form_;
    const Application& application_;
    TwipsSize size_{};
    WNDPROC SavedPictureProc_ = nullptr;
    bool PreviewActive_ = false;
    std::unique_ptr<LineCanvas> canvas_;
};

}  // namespace ambrio
