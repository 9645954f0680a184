// What a change of a caption costs in calls of the system, as it happens with every file.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/win32/ReplacedImport.h"
#include "tests/unit/PanelFixture.h"

namespace ambrio {
namespace {

struct PanelCalls {
    int Fetched = 0;   // device contexts
    int Messages = 0;  // sent, or asked for
    int Written = 0;   // texts, by the system
    int Shown = 0;     // parts of the panel that were copied to the screen
};

PanelCalls panelCalls;

HDC WINAPI CountedGetDC(HWND window) {
    ++panelCalls.Fetched;
    return GetDCEx(window, nullptr, DCX_CACHE);
}

HDC WINAPI CountedBeginPaint(HWND, LPPAINTSTRUCT) {
    ++panelCalls.Fetched;
    return nullptr;
}

LRESULT WINAPI CountedSendMessage(HWND, UINT, WPARAM, LPARAM) {
    ++panelCalls.Messages;
    return 0;
}

BOOL WINAPI CountedInvalidateRect(HWND, const RECT*, BOOL) {
    ++panelCalls.Messages;
    return TRUE;
}

BOOL WINAPI CountedBitBlt(HDC target, int left, int top, int width, int height, HDC source,
                          int sourceLeft, int sourceTop, DWORD operation) {
    panelCalls.Shown += WindowFromDC(target) != nullptr ? 1 : 0;
    return StretchBlt(target, left, top, width, height, source, sourceLeft, sourceTop, width,
                      height, operation);
}

BOOL WINAPI CountedTextOut(HDC target, int left, int top, UINT options, const RECT* room,
                           LPCWSTR text, UINT units, const INT* distances) {
    using TextOutFunction = decltype(ExtTextOutW);
    static const auto system = reinterpret_cast<TextOutFunction*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"gdi32.dll"), "ExtTextOutW")));
    ++panelCalls.Written;
    return system(target, left, top, options, room, text, units, distances);
}

// Every message that one of the panel's windows receives, whoever sends it.
LRESULT CALLBACK CountMessages(int code, WPARAM wParam, LPARAM lParam) {
    ++panelCalls.Messages;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

class PanelCallsTest : public testing::Test {
  protected:
    PanelCallsTest() {
        const auto replace = [this](const wchar_t* library, const char* name, void* function) {
            replaced_.push_back(std::make_unique<ReplacedImport>(library, name, function));
        };
        replace(L"user32.dll", "GetDC", reinterpret_cast<void*>(&CountedGetDC));
        replace(L"user32.dll", "BeginPaint", reinterpret_cast<void*>(&CountedBeginPaint));
        replace(L"user32.dll", "SendMessageW", reinterpret_cast<void*>(&CountedSendMessage));
        replace(L"user32.dll", "InvalidateRect", reinterpret_cast<void*>(&CountedInvalidateRect));
        replace(L"gdi32.dll", "BitBlt", reinterpret_cast<void*>(&CountedBitBlt));
        replace(L"gdi32.dll", "ExtTextOutW", reinterpret_cast<void*>(&CountedTextOut));
        hook_ = SetWindowsHookExW(WH_CALLWNDPROC, &CountMessages, nullptr, GetCurrentThreadId());
        panelCalls = PanelCalls{};
    }
    ~PanelCallsTest() override { UnhookWindowsHookEx(hook_); }

    Panel panel_;

  private:
    std::vector<std::unique_ptr<ReplacedImport>> replaced_;
    HHOOK hook_;
};

TEST_F(PanelCallsTest, ACaptionIsShownAtOnceWithoutAMessageOrAnotherDeviceContext) {
    constexpr int kChanges = 100;
    panel_.View->SetCaption(PanelLabel::lblChecked, L"10");  // makes what is kept of counts
    panelCalls = PanelCalls{};
    for (int i = 0; i < kChanges; ++i) {
        panel_.View->SetCaption(PanelLabel::lblChecked, std::to_wstring(i + 1));
        EXPECT_EQ(panelCalls.Shown, 2 * i + 1);
        panel_.View->SetCaption(PanelLabel::lblFile, L"file " + std::to_wstring(i));
        EXPECT_EQ(panelCalls.Shown, 2 * i + 2);
    }
    EXPECT_EQ(panelCalls.Fetched, 0);
    EXPECT_EQ(panelCalls.Messages, 0);
}

TEST_F(PanelCallsTest, ACaptionThatStaysTheSameIsNotDrawnAgain) {
    panel_.View->SetCaption(PanelLabel::lblFile, L"the same");
    panel_.View->SetCaption(PanelLabel::lblFile, L"the same");
    EXPECT_EQ(panelCalls.Shown, 1);
}

TEST_F(PanelCallsTest, ACountWhoseLastDigitsWereShownBeforeIsNotWrittenAgain) {
    const auto show = [this](int count) {
        panel_.View->SetCaption(PanelLabel::lblChecked, std::to_wstring(count));
    };
    for (int count = 10; count < 20; ++count) {
        show(count);
    }
    show(110);
    EXPECT_GE(panelCalls.Written, 11);
    panelCalls = PanelCalls{};
    for (int count = 111; count < 120; ++count) {
        show(count);
    }
    EXPECT_EQ(panelCalls.Shown, 9);
    EXPECT_EQ(panelCalls.Written, 0);
    show(120);
    EXPECT_GE(panelCalls.Written, 1);
}

// The counts above would be worth nothing if they could not rise.
TEST_F(PanelCallsTest, WhatIsCountedIsSeen) {
    const WindowDC fetchedAnew(panel_.View->Handle());
    EXPECT_EQ(panelCalls.Fetched, 1);
    GetWindowTextLengthW(panel_.Control(PanelControl::lblFile));
    EXPECT_GT(panelCalls.Messages, 0);
}

}  // namespace
}  // namespace ambrio
