#include "platform/win32/windows/Window.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/RuntimeError.h"

namespace ambrio {
namespace {

// A hidden window that writes down the numbers sent to it.
class RecordingWindow : public Window {
  public:
    RecordingWindow() {
        WindowDesign design;
        design.ClassName = L"AmbrioRecordingWindow";
        design.Text = L"recording";
        design.Style = WS_POPUP;
        Create(design);
    }
    ~RecordingWindow() override { Destroy(); }

    using Window::Destroy;

    std::vector<int> Received;

  protected:
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != WM_APP) {
            return Window::Receive(message, wParam, lParam);
        }
        Received.push_back(static_cast<int>(wParam));
        return 0;
    }
};

// A window that the system cannot make.
class ImpossibleWindow : public Window {
  public:
    ImpossibleWindow() {
        WindowDesign design;
        design.ClassName = L"AmbrioImpossibleWindow";
        design.Style = WS_CHILD;  // without a parent
        Create(design);
    }
};

TEST(Window, ReceivesItsMessages) {
    RecordingWindow window;
    wchar_t text[20];
    GetWindowTextW(window.Handle(), text, 20);
    EXPECT_STREQ(L"recording", text);
    SendMessageW(window.Handle(), WM_APP, 5, 0);
    EXPECT_EQ(std::vector<int>{5}, window.Received);
}

TEST(Window, OutlivesItsDestruction) {
    RecordingWindow window;
    const HWND handle = window.Handle();
    window.Destroy();
    EXPECT_EQ(nullptr, window.Handle());
    EXPECT_FALSE(IsWindow(handle));
    window.Destroy();
}

TEST(Window, GoesWithItsObject) {
    HWND handle = nullptr;
    {
        const RecordingWindow window;
        handle = window.Handle();
        EXPECT_TRUE(IsWindow(handle));
    }
    EXPECT_FALSE(IsWindow(handle));
}

TEST(Window, FailsWhenTheSystemRefusesIt) {
    EXPECT_THROW(ImpossibleWindow(), RuntimeError);
}

TEST(Window, IsNoOtherObjectsForAMessageThatSaysSo) {
    RecordingWindow window;
    CREATESTRUCTW creation{};
    creation.lpCreateParams = reinterpret_cast<void*>(16);  // nothing lies there
    creation.lpszName = L"another name";
    EXPECT_EQ(FALSE,
              SendMessageW(window.Handle(), WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&creation)));
    wchar_t text[20];
    GetWindowTextW(window.Handle(), text, 20);
    EXPECT_STREQ(L"recording", text);
    SendMessageW(window.Handle(), WM_APP, 5, 0);
    EXPECT_EQ(std::vector<int>{5}, window.Received);
}

}  // namespace
}  // namespace ambrio
