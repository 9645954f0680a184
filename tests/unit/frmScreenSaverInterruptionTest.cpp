#include <gtest/gtest.h>

#include "saver/form/frmScreenSaver.h"
#include "tests/support/ManualClock.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/MemorySettingsStore.h"

namespace ambrio {
namespace {

// A key is pressed while a file is copied, which takes its time.
class KeyDuringCopy : public MemoryFileSystem {
  public:
    void CopyFile(const std::wstring& source, const std::wstring& destination, bool overwrite,
                  const Yield& yield) override {
        yield();
        BeforeTheKey = Nothings;
        PostMessageW(Form, WM_KEYDOWN, VK_SPACE, 0);
        yield();
        AfterTheKey = Nothings;
        MemoryFileSystem::CopyFile(source, destination, overwrite, yield);
    }
    void ExpectNothing() override { ++Nothings; }

    HWND Form = nullptr;
    int Nothings = 0;
    int BeforeTheKey = -1;
    int AfterTheKey = -1;
};

// What was copied ahead must not lie about until a long copy has come to its end.
TEST(frmScreenSaverInterruptionTest, NothingIsExpectedAnyMoreAsSoonAsAKeyIsPressed) {
    Application application;
    application.Title = L"Ambrio";
    application.ProgramFolder = L"C:\\Program";
    application.CommandLine = L"/D";
    KeyDuringCopy files;
    files.MakeFolder(application.ProgramFolder);
    files.WriteFile(L"C:\\From\\file", "new");
    MemorySettingsStore settings;
    settings.Values[{L"General", L"Sets"}] = L"A";
    settings.Values[{L"A", L"Source"}] = L"C:\\From";
    settings.Values[{L"A", L"Destination"}] = L"C:\\To";
    CopyWatch copyWatch;
    ManualClock clock{DateTime{2026, 11, 21, 10, 0, 0}};
    frmScreenSaver form(application, files, copyWatch, settings, clock, [] {});
    form.Show();
    files.Form = form.Handle();
    constexpr WPARAM kRunTimer = 1;
    SendMessageW(form.Handle(), WM_TIMER, kRunTimer, 0);
    EXPECT_EQ(files.BeforeTheKey, 0);
    EXPECT_EQ(files.AfterTheKey, 1);
}

}  // namespace
}  // namespace ambrio
