#pragma once

#include <string>
#include <vector>

#include "engine/RunHost.h"
#include "engine/StatusPanel.h"

namespace ambrio {

// A panel that shows nothing and a host that does nothing, so that what a run takes is the
// engine's.
class IdlePanel : public StatusPanel {
  public:
    void SetCaption(PanelLabel, const std::wstring&) override {}
    void SetTitle(const std::wstring&) override {}
    void OpenClip(const std::wstring&) override {}
    void PlayClip() override {}
    void StopClip() override {}
    void CloseClip() override {}
    void ShowCopyFrame(bool) override {}
    void MatchCopyFrameColour() override {}
};

class IdleHost : public RunHost {
  public:
    void DoEvents() override {}
    void ShowMessage(const std::wstring&, MessageIcon) override {}
    void ReconnectDrive(const std::wstring&) override {}
    std::wstring WindowsFolder() override { return {}; }
    std::vector<std::wstring> SystemFolders() override { return {}; }
    bool StartProgram(const std::wstring&, WindowState) override { return false; }
    void ShowPointer() override {}
    void LeaveTopmost() override {}
    [[nodiscard]] bool IsEndTimerEnabled() const override { return false; }
    void UnloadForm() override {}
    void End() override {}
};

}  // namespace ambrio
