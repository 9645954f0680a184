#include "app/Main.h"

#include <memory>

#include "app/PasswordChange.h"
#include "app/model/ModeDispatch.h"
#include "app/preview/frmControl.h"
#include "config/ConfigurationMode.h"
#include "engine/LogPath.h"
#include "platform/AnsweringFileSystem.h"
#include "platform/CopyAhead.h"
#include "platform/CopyWatch.h"
#include "platform/Rounding.h"
#include "platform/win32/files/Win32FileSystem.h"
#include "platform/win32/files/Win32SlowRoots.h"
#include "platform/win32/registry/RegistrySettingsStore.h"
#include "platform/win32/system/SystemFolders.h"
#include "platform/win32/system/Win32Clock.h"
#include "platform/win32/system/Win32WorkerPool.h"
#include "platform/win32/system/WorkerThread.h"
#include "platform/win32/windows/MessageLoop.h"
#include "platform/win32/windows/ScreenTwips.h"
#include "saver/form/frmScreenSaver.h"

namespace ambrio {
namespace {

// The faces of the program, and the forms that are loaded.
class Program : public Modes {
  public:
    // Nothing is owned; everything must live longer.
    Program(HINSTANCE instance, const Application& application, AnsweringFileSystem& fileSystem,
            CopyWatch& copyWatch, SettingsStore& settings, Clock& clock)
        : instance_(instance),
          application_(application),
          fileSystem_(fileSystem),
          copyWatch_(copyWatch),
          settings_(settings),
          clock_(clock) {}

    void ShowConfiguration() override {
        RunConfigurationMode(application_, fileSystem_, settings_,
                             LogPath(application_, fileSystem_), instance_);
    }
    bool IsNotRunning(const std::wstring& title) override {
        return FindWindowW(nullptr, title.c_str()) == nullptr;
    }
    void ShowScreenSaver() override {
        screenSaver_ = std::make_unique<frmScreenSaver>(application_, fileSystem_, copyWatch_,
                                                        settings_, clock_, EndMessageLoop);
        fileSystem_.AnswerWith([this] { screenSaver_->DoEvents(); });
        screenSaver_->Show();
    }
    void LoadPreview() override {
        preview_ = std::make_unique<frmControl>(application_, EndMessageLoop);
        preview_->Load();
    }
    void ChangePassword() override { ChangeScreenSaverPassword(application_.ParentWindow); }

    [[nodiscard]] bool HasLoadedForms() const {
        return screenSaver_ != nullptr || preview_ != nullptr;
    }

  private:
    HINSTANCE instance_;
    const Application& application_;
    AnsweringFileSystem& fileSystem_;
    CopyWatch& copyWatch_;
    SettingsStore& settings_;
    Clock& clock_;
    std::unique_ptr<frmScreenSaver> screenSaver_;
    std::unique_ptr<frmControl> preview_;
};

// The values that every other part reads; set before any form exists.
Application ReadApplication(const std::wstring& commandLine) {
    Application application;
    application.Title = kApplicationTitle;
    application.CommandLine = commandLine;
    application.ProgramFolder = GetProgramFolder();
    application.LocalDataFolder = GetLocalDataFolder();
    application.HelpFile =
        FileSystem::BuildPath(application.ProgramFolder, application.Title + L".HLP");
    application.HelpPage =
        FileSystem::BuildPath(application.ProgramFolder, application.Title + L".html");
    const ScreenTwips twips = ReadScreenTwips();
    application.PixelTwipsX = RoundToInt16(twips.X);
    application.PixelTwipsY = RoundToInt16(twips.Y);
    return application;
}

}  // namespace

void Main(HINSTANCE instance, const std::wstring& commandLine) {
    CopyWatch copyWatch;
    Win32FileSystem disks(copyWatch);
    Win32SlowRoots slowRoots;
    WorkerThread worker;
    Win32WorkerPool pool;
    CopyAhead copyAhead(disks, pool);
    AnsweringFileSystem fileSystem(copyAhead, slowRoots, worker);
    Application application = ReadApplication(commandLine);
    RegistrySettingsStore settings(application.Title);
    Win32Clock clock;
    Program program(instance, application, fileSystem, copyWatch, settings, clock);
    EnterMode(application, program);
    if (program.HasLoadedForms()) {
        RunMessageLoop();
    }
}

}  // namespace ambrio
