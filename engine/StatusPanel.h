#pragma once

#include <string>

namespace ambrio {

// The labels of the panel that change during a run.
enum class PanelLabel {
    lblSet,
    lblSource,
    lblDest,
    lblFile,
    lblChecked,
    lblcopied,
    lblRemoved,
    lblfsoStatus,
};

// The panel that shows the run. Nothing here fails: a panel that cannot show something leaves it
// out. To be used on the form's thread.
class StatusPanel {
  public:
    virtual ~StatusPanel() = default;

    // Sets the caption and repaints the label before returning, since the run holds the thread
    // between its yields.
    virtual void SetCaption(PanelLabel label, const std::wstring& caption) = 0;

    // The caption of the frame fraStatus.
    virtual void SetTitle(const std::wstring& caption) = 0;

    // Animation1: Open loads a clip without playing it; a clip that does not exist leaves the
    // control empty. Close empties it.
    virtual void OpenClip(const std::wstring& path) = 0;
    virtual void PlayClip() = 0;
    virtual void StopClip() = 0;
    virtual void CloseClip() = 0;

    // fraAni: shown while files are copied.
    virtual void ShowCopyFrame(bool visible) = 0;
    // Gives fraAni the back colour that fraStatus has now.
    virtual void MatchCopyFrameColour() = 0;
};

}  // namespace ambrio
