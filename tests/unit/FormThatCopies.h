#pragma once

#include "saver/form/frmScreenSaver.h"
#include "tests/support/ManualClock.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/MemorySettingsStore.h"

namespace ambrio {

// A form in "/D" whose run copies one file. `Files` is a MemoryFileSystem in whose CopyFile
// something happens to the form, its member `Form`.
template <typename Files>
class FormThatCopies {
  public:
    FormThatCopies() {
        application_.Title = L"Ambrio";
        application_.ProgramFolder = L"C:\\Program";
        application_.CommandLine = L"/D";
        Disk.MakeFolder(application_.ProgramFolder);
        Disk.WriteFile(L"C:\\From\\file", "new");
        settings_.Values[{L"General", L"Sets"}] = L"A";
        settings_.Values[{L"A", L"Source"}] = L"C:\\From";
        settings_.Values[{L"A", L"Destination"}] = L"C:\\To";
    }

    // Shows the form and goes through the run.
    void Run() {
        constexpr WPARAM kRunTimer = 1;
        form_.Show();
        Disk.Form = form_.Handle();
        SendMessageW(form_.Handle(), WM_TIMER, kRunTimer, 0);
    }

    Files Disk;

  private:
    Application application_;
    MemorySettingsStore settings_;
    CopyWatch copyWatch_;
    ManualClock clock_{DateTime{2026, 11, 21, 10, 0, 0}};
    frmScreenSaver form_{application_, Disk, copyWatch_, settings_, clock_, [] {}};
};

}  // namespace ambrio
