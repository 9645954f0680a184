// The live picture in the display settings.

#include <gtest/gtest.h>

#include <set>

#include "tests/e2e/support/PreviewHost.h"
#include "tests/e2e/support/ProgramTest.h"

namespace ambrio::e2e {
namespace {

const std::wstring kSentence =
    L"This does more than just pootle around your screen; it actually backs up important files "
    L"for you as soon as you relax!    ";

// Every caption that can ever be seen.
std::set<std::wstring> PossibleCaptions() {
    std::set<std::wstring> captions{L"Ambrio"};
    for (std::size_t count = 1; count < 10; ++count) {
        captions.insert(std::wstring(10 - count, L' ') + kSentence.substr(0, count));
    }
    for (std::size_t start = 0; start < kSentence.size(); ++start) {
        const std::wstring shown = kSentence.substr(start, 10);
        captions.insert(std::wstring(10 - shown.size(), L' ') + shown);
    }
    return captions;
}

class Preview : public ProgramTest {
  protected:
    // Starts the preview and waits until its picture lies in the host.
    WindowProbe StartIn(const PreviewHost& host) {
        StartFor(host.Handle());
        if (!WaitUntil([&] { return host.Picture() != nullptr; })) {
            throw std::runtime_error("the picture does not come");
        }
        return WindowProbe(host.Picture());
    }
    void StartFor(HWND window) {
        Start(L"/p " + std::to_wstring(reinterpret_cast<INT_PTR>(window)));
    }
    // The form, which is never shown.
    [[nodiscard]] WindowProbe Form() {
        for (const WindowProbe& window : TopLevelWindows(Program().ProcessId())) {
            if (window.Text() == L"Mini form for 'Screen Properties' window") {
                return window;
            }
        }
        throw std::runtime_error("the form is not there");
    }
    // The frame of the picture, which is its only child.
    [[nodiscard]] static WindowProbe FrameOf(const WindowProbe& picture) {
        return WindowProbe(GetWindow(picture.Handle(), GW_CHILD));
    }
    [[nodiscard]] static SIZE SizeOf(const WindowProbe& window) {
        const RECT place = window.Rectangle();
        return {place.right - place.left, place.bottom - place.top};
    }
};

TEST_F(Preview, CoversTheClientAreaOfThePreviewWindow) {
    PreviewHost host(152, 112);
    const WindowProbe picture = StartIn(host);
    EXPECT_TRUE(WaitUntil([&] { return picture.IsVisible(); }));
    const RECT place = picture.Rectangle();
    const RECT around = WindowProbe(host.Handle()).Rectangle();
    EXPECT_EQ(place.left, around.left);
    EXPECT_EQ(place.top, around.top);
    EXPECT_EQ(SizeOf(picture).cx, 152);
    EXPECT_EQ(SizeOf(picture).cy, 112);
    EXPECT_EQ(SizeOf(Form()).cx, 152);
    EXPECT_EQ(SizeOf(Form()).cy, 112);
    EXPECT_FALSE(Form().IsVisible());
    host.DestroyWindow();
    EXPECT_TRUE(Ends());
}

TEST_F(Preview, ScrollsItsSentenceThroughTheFrameThatMovesInsideThePicture) {
    PreviewHost host(152, 112);
    const WindowProbe picture = StartIn(host);
    const WindowProbe frame = FrameOf(picture);
    std::set<std::wstring> seen;
    std::set<LONG> places;
    bool isInside = true;
    EXPECT_TRUE(WaitUntil([&] {
        seen.insert(frame.Text());
        const RECT outer = picture.Rectangle();
        const RECT inner = frame.Rectangle();
        places.insert(inner.left - outer.left);
        isInside = isInside && inner.left >= outer.left && inner.top >= outer.top &&
                   inner.right <= outer.right && inner.bottom <= outer.bottom;
        return seen.size() >= 5 && places.size() >= 3;
    }));
    EXPECT_TRUE(isInside);
    const std::set<std::wstring> possible = PossibleCaptions();
    for (const std::wstring& caption : seen) {
        EXPECT_EQ(possible.count(caption), 1U);
    }
    host.DestroyWindow();
    EXPECT_TRUE(Ends());
}

TEST_F(Preview, GivesItsPictureBackAndEndsWhenThePictureIsClosed) {
    PreviewHost host(152, 112);
    const WindowProbe picture = StartIn(host);
    EXPECT_EQ(picture.Send(WM_CLOSE), 0);
    EXPECT_EQ(host.Picture(), nullptr);
    EXPECT_TRUE(Ends());
    EXPECT_TRUE(IsWindow(host.Handle()));
}

TEST_F(Preview, GivesItsClosedPictureBackToItsForm) {
    // The picture has to be looked at before the next tick unloads the form; on a busy machine it
    // may take several tries.
    for (int attempt = 0; attempt < 10; ++attempt) {
        PreviewHost host(152, 112);
        const WindowProbe picture = StartIn(host);
        const WindowProbe form = Form();
        EXPECT_EQ(picture.Send(WM_CLOSE), 0);
        const HWND parent = GetAncestor(picture.Handle(), GA_PARENT);
        EXPECT_TRUE(Ends());
        if (parent != nullptr) {
            EXPECT_EQ(parent, form.Handle());
            return;
        }
    }
    FAIL() << "the form was always gone before the picture was looked at";
}

TEST_F(Preview, PassesOtherMessagesToThePicturesOwnProcedure) {
    PreviewHost host(152, 112);
    const WindowProbe picture = StartIn(host);
    const wchar_t text[] = L"a text";
    EXPECT_EQ(picture.Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)), 1);
    EXPECT_EQ(picture.Text(), text);
    EXPECT_EQ(picture.Send(WM_GETTEXTLENGTH), 6);
    EXPECT_TRUE(picture.Send(WM_CLOSE).has_value());
    EXPECT_TRUE(Ends());
}

TEST_F(Preview, EndsWhenThePreviewWindowIsDestroyed) {
    PreviewHost host(152, 112);
    const WindowProbe picture = StartIn(host);
    EXPECT_TRUE(GoesOn());
    host.DestroyWindow();
    // Two ticks, and what a busy machine needs on top.
    EXPECT_TRUE(Program().WaitForEnd(Milliseconds(1500)));
    EXPECT_EQ(Program().ExitCode(), 0U);
    EXPECT_FALSE(picture.Exists());
}

TEST_F(Preview, EndsWhenTheOwnerOfThePreviewWindowIsKilled) {
    // A second program whose window serves as the preview window.
    RunningProgram owner(Folder.Program(), L"/D");
    const auto window = WaitForWindow(owner.ProcessId(), L"Ambrio Screen Saver");
    ASSERT_TRUE(window.has_value());
    StartFor(window->Handle());
    ASSERT_TRUE(
        WaitUntil([&] { return !window->ControlsOfClass(L"AmbrioPreviewPicture").empty(); }));
    owner.Kill();
    EXPECT_TRUE(Program().WaitForEnd(Milliseconds(3000)));
}

TEST_F(Preview, LivesInAPreviewWindowWithoutAnySize) {
    PreviewHost host(0, 0);
    const WindowProbe picture = StartIn(host);
    EXPECT_EQ(SizeOf(picture).cx, 0);
    EXPECT_EQ(SizeOf(picture).cy, 0);
    EXPECT_TRUE(GoesOn());
    host.DestroyWindow();
    EXPECT_TRUE(Ends());
}

TEST_F(Preview, EndsAtItsFirstTickWithoutAPreviewWindow) {
    for (const wchar_t* arguments : {L"/p", L"/P 0", L"/p nonsense", L"/p 987654321", L"/P:5"}) {
        Start(arguments);
        EXPECT_TRUE(Ends()) << arguments;
        EXPECT_EQ(Program().ExitCode(), 0U);
    }
}

}  // namespace
}  // namespace ambrio::e2e
