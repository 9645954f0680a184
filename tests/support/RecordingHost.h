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
    void ShowMessage(const std::wstring& text, MessageIcon icon) override {
        Actions.push_back((icon == MessageIcon::CriticalStop ? L"stop box " : L"box ") + text);
    }
    std::wstring WindowsFolder() override { return L"C:\\Windows"; }
    std::wstring SystemFolder() override { return L"C:\\Windows\\System32"; }
    bool StartProgram(const std::wstring& commandLine, WindowState state) override {
        Actions.push_back((state == WindowState::Hidden ? L"start hidden " : L"start normal ") +
                          commandLine);
        return Starts;
    }
    void ShowPointer() override { Actions.emplace_back(L"show pointer"); }
    void LeaveTopmost() override { Actions.emplace_back(L"leave topmost"); }
    [[nodiscard]] bool IsEndTimerEnabled() const override { return EndTimerEnabled; }
    void UnloadForm() override { Actions.emplace_back(L"unload"); }
    void End() override { Actions.emplace_back(L"end"); }

    std::function<void(int)> OnDoEvents;  // gets the number of the call, from 1
    int EventCount = 0;
    bool Starts = true;
    bool EndTimerEnabled = false;
    std::vector<std::wstring> Actions;
};

}  // namespace ambrio
