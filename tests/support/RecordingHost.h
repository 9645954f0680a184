#pragma once

#include <functional>
#include <string>
#include <vector>

#include "engine/RunHost.h"

namespace ambrio {

// A host that keeps what the run asks of it and answers as the test wants.
class RecordingHost : public RunHost {
  public:
    void DoEvents() override {
        ++EventCount;
        if (OnDoEvents) {
            OnDoEvents(EventCount);
        }
    }
    void DoEventsSoon() override {
        ++SoonCount;
        DoEvents();
    }
    void ShowMessage(const std::wstring& text, MessageIcon icon) override {
        Note((icon == MessageIcon::CriticalStop ? L"stop box " : L"box ") + text);
    }
    void ReconnectDrive(const std::wstring& path) override {
        Reconnected.push_back(path);
        if (OnReconnect) {
            OnReconnect();
        }
    }
    std::wstring WindowsFolder() override { return L"C:\\Windows"; }
    std::vector<std::wstring> SystemFolders() override { return Systems; }
    bool StartProgram(const std::wstring& commandLine, WindowState state) override {
        Note((state == WindowState::Hidden ? L"start hidden " : L"start normal ") + commandLine);
        return Starts;
    }
    void ShowPointer() override { Note(L"show pointer"); }
    void LeaveTopmost() override { Note(L"leave topmost"); }
    [[nodiscard]] bool IsEndTimerEnabled() const override { return EndTimerEnabled; }
    void UnloadForm() override { Note(L"unload"); }
    void End() override { Note(L"end"); }

    void Note(const std::wstring& action) {
        Actions.push_back(action);
        if (OnAction) {
            OnAction(action);
        }
    }

    std::function<void(int)> OnDoEvents;  // gets the number of the call, from 1
    int EventCount = 0;
    int SoonCount = 0;  // how many of these could have waited
    bool Starts = true;
    std::vector<std::wstring> Systems = {L"C:\\Windows\\System32"};
    bool EndTimerEnabled = false;
    std::vector<std::wstring> Actions;
    std::function<void()> OnReconnect;
    std::vector<std::wstring> Reconnected;  // the paths whose drives were to be connected
    std::function<void(const std::wstring&)> OnAction;  // gets each of them as it comes
};

}  // namespace ambrio
