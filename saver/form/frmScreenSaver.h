#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/RunDriver.h"
#include "engine/RunHost.h"
#include "engine/RunSignals.h"
#include "platform/Application.h"
#include "platform/Clock.h"
#include "platform/CopyWatch.h"
#include "platform/DriveReconnection.h"
#include "platform/FileSystem.h"
#include "platform/SettingsStore.h"
#include "platform/win32/files/Win32RememberedDrives.h"
#include "platform/win32/system/RandomNumber.h"
#include "platform/win32/system/SessionEndHold.h"
#include "platform/win32/system/StayAwake.h"
#include "platform/win32/windows/FormTimer.h"
#include "platform/win32/windows/ScreenTwips.h"
#include "platform/win32/windows/Window.h"
#include "saver/LineCanvas.h"
#include "saver/animation/FrameAnimation.h"
#include "saver/form/AudienceNotices.h"
#include "saver/form/BlackWindows.h"
#include "saver/form/WaitPlate.h"
#include "saver/model/Audience.h"
#include "saver/model/DesktopSettings.h"
#include "saver/model/EventPace.h"
#include "saver/model/InputRules.h"
#include "saver/panel/PanelFrame.h"
#include "saver/panel/StatusPanelView.h"

namespace ambrio {

// The full-screen form that runs the backup, and everything that lives exactly as long as it. When
// it has unloaded, the window is gone and `unloaded` has been called; the object may go later.
//
// The run works inside the tick of tmrDoTheBiz and lets events run in between, so input and even a
// request to close arrive in the middle of it. They only set RunSignals::Interrupted then; the form
// unloads when the run has returned.
class frmScreenSaver : public Window, public RunHost {
  public:
    // Everything passed in must live longer than the form. `copyWatch` is that of the file system.
    // `unloaded` is called once, on this thread.
    frmScreenSaver(const Application& application, FileSystem& fileSystem, CopyWatch& copyWatch,
                   SettingsStore& settings, Clock& clock, std::function<void()> unloaded);
    ~frmScreenSaver() override;

    // Loads the form and shows it. Throws RuntimeError when a desktop setting is out of range.
    void Show();

    // What the run asks of the form (frmScreenSaverRunHost.cpp).
    void DoEvents() override;
    void DoEventsSoon() override;
    void ShowMessage(const std::wstring& text, MessageIcon icon) override;
    void ReconnectDrive(const std::wstring& path) override;
    std::wstring WindowsFolder() override;
    std::vector<std::wstring> SystemFolders() override;
    bool StartProgram(const std::wstring& commandLine, WindowState state) override;
    void ShowPointer() override;
    void LeaveTopmost() override;
    [[nodiscard]] bool IsEndTimerEnabled() const override { return tmrEnd_.IsEnabled(); }
    void UnloadForm() override { Unload(); }
    void End() override;

  protected:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;

    // Where the monitors lie, in pixels of the screen.
    [[nodiscard]] virtual std::vector<RECT> Monitors() const;

    // Its tick ends the program. Nothing here enables it; a run that finds it enabled leaves the
    // closing to it.
    FormTimer tmrEnd_;

  private:
    // Loading (frmScreenSaverLoad.cpp).
    void MakeWindow();
    void Form_Load();
    void SetMaxSize();
    void SetTopmost(bool topmost);
    void PlaceInLayer(bool topmost, UINT flags);
    void CoverMonitors();  // frmScreenSaverMonitors.cpp
    [[nodiscard]] bool UsesPassword() const;
    void ResolutionChanges(WPARAM wParam, LPARAM lParam);  // frmScreenSaverResolution.cpp

    // Events.
    LRESULT ReceiveInput(UINT message, WPARAM wParam, LPARAM lParam);
    void InputRule();
    void Form_MouseMove(int x, int y);
    void TimerTick(WPARAM timer);
    void tmrDoTheBiz_Timer();
    void tmrKeepOnRunnin_Timer();
    void DrawBetweenSteps();
    void ShowBox(const std::wstring& text, const std::wstring& title, UINT icon);
    [[nodiscard]] bool IsRunning() const { return signals_.RunStarted && !signals_.RunFinished; }

    // Those before the screen (frmScreenSaverAudience.cpp).
    LRESULT ReceiveNotice(UINT message, WPARAM wParam, LPARAM lParam);
    void ActivationChanges(bool isOurs);
    void StepBehindOthers();
    void AudienceChanges(const AudienceNotice& notice);
    void PointerIsOverChild();

    // A touch during a run (frmScreenSaverLetGo.cpp).
    void LetGo();
    [[nodiscard]] bool Stays() const;
    void AskForPatience();

    // Closing (frmScreenSaverUnload.cpp).
    void Unload();
    bool Form_QueryUnload();
    void ShowFailureSummary();
    void Form_Unload();
    void DestroyForm();
    void CloseRequested();
    LRESULT AgreeToEndOfSession();
    void SessionEnds(bool ends);

    const Application& application_;
    FileSystem& fileSystem_;
    CopyWatch& copyWatch_;
    SettingsStore& settings_;
    Clock& clock_;
    std::function<void()> unloaded_;
    ScreenTwips twips_;
    RunSignals signals_;
    MouseMoveRule mouseMoveRule_;
    PointerMotion pointer_;
    Audience audience_;
    DesktopSettings desktop_;
    std::int32_t platformId_ = 0;
    FormTimer tmrDoTheBiz_;
    FormTimer tmrKeepOnRunnin_;
    FormTimer pictures_;
    std::chrono::steady_clock::time_point lastStep_;
    BlackWindows blackWindows_{*this};
    std::unique_ptr<LineCanvas> canvas_;
    std::unique_ptr<StatusPanelView> panel_;
    std::unique_ptr<PanelFrame> frame_;
    std::unique_ptr<WaitPlate> plate_;
    Win32RememberedDrives rememberedDrives_;
    DriveReconnection reconnection_{rememberedDrives_};
    std::unique_ptr<RunDriver> run_;
    EventPace pace_;
    FrameAnimation animation_{static_cast<std::uint32_t>(RandomNumber())};
    std::unique_ptr<AudienceNotices> notices_;
    int stepsSinceTold_ = 0;
    bool isToBeTopmost_ = false;  // unless others have the keys
    bool haveOthersTheKeys_ = false;
    std::unique_ptr<StayAwake> awake_;                // while the run is at work
    std::unique_ptr<SessionEndHold> sessionEndHold_;  // the same
    bool hasLetGo_ = false;         // the desktop is the user's again, the run goes on
    bool isClosing_ = false;        // an unload is under way
    bool hasAgreedToEnd_ = false;   // the system has asked whether the session may end
    bool isSessionEnding_ = false;  // nobody is there to answer
};

}  // namespace ambrio
