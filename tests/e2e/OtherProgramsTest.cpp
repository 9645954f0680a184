// What other programs, screen readers among them, learn of the panel.

#include <gtest/gtest.h>

#include <array>
#include <set>

#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {
namespace {

// What the system knows of a window of another program, without asking that.
std::wstring SystemTextOf(const WindowProbe& window) {
    std::array<wchar_t, 300> text{};
    const int length = GetWindowTextW(window.Handle(), text.data(), static_cast<int>(text.size()));
    return std::wstring(text.data(), static_cast<std::size_t>(length));
}

// The windows whose change of name has been told since this object was made.
class NameChanges {
  public:
    explicit NameChanges(DWORD process)
        : hook_(SetWinEventHook(EVENT_OBJECT_NAMECHANGE, EVENT_OBJECT_NAMECHANGE, nullptr, &Hear,
                                process, 0, WINEVENT_OUTOFCONTEXT)) {
        told_.clear();
    }
    ~NameChanges() { UnhookWinEvent(hook_); }
    NameChanges(const NameChanges&) = delete;
    NameChanges& operator=(const NameChanges&) = delete;

    [[nodiscard]] bool WereToldOf(HWND window) const {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
            DispatchMessageW(&message);
        }
        return told_.contains(window);
    }

  private:
    static void CALLBACK Hear(HWINEVENTHOOK, DWORD, HWND window, LONG object, LONG child, DWORD,
                              DWORD) {
        if (object == OBJID_CLIENT && child == CHILDID_SELF) {
            told_.insert(window);
        }
    }

    static inline std::set<HWND> told_;
    HWINEVENTHOOK hook_;
};

class OtherProgramsTest : public SaverTest {
  protected:
    OtherProgramsTest() { WriteOneSet(L"Papers"); }

    [[nodiscard]] WindowProbe Label(PanelControl control) {
        return Saver().Control(static_cast<int>(control)).value();
    }
    [[nodiscard]] std::wstring Told(PanelControl control) { return SystemTextOf(Label(control)); }
};

TEST_F(OtherProgramsTest, ReadThePanelWhileTheRunGoesOn) {
    Source.AddManyFiles(L"many", 400);
    RunUntilFilesAreCopied();
    const NameChanges changes(Program().ProcessId());
    const HWND checked = Label(PanelControl::lblChecked).Handle();
    EXPECT_TRUE(WaitUntil([&] { return Told(PanelControl::lblSet) == L"Papers"; }));
    EXPECT_TRUE(WaitUntil([&] { return changes.WereToldOf(checked); }));
    EXPECT_FALSE(Panel().ShowsTheEndOfTheRun()) << "the run was over too soon for this test";
    WaitForTheEndOfTheRun();
    EndByKey();
}

TEST_F(OtherProgramsTest, ReadTheLastStateOfThePanelWhenTheRunHasEnded) {
    Source.AddManyFiles(L"some", 7);
    RunToTheEnd();
    EXPECT_TRUE(WaitUntil([&] { return Told(PanelControl::lblSet) == L"<All sets processed>"; }));
    EXPECT_EQ(Told(PanelControl::lblcopied), L"7");
    EXPECT_EQ(Told(PanelControl::lblFile), L"");
    EXPECT_EQ(Told(PanelControl::fraStatus).substr(0, 8), L"Ambrio v");
    EndByKey();
}

}  // namespace
}  // namespace ambrio::e2e
