#pragma once

#include <string>

#include "tests/e2e/support/PanelProbe.h"
#include "tests/e2e/support/ProgramTest.h"
#include "tests/e2e/support/TestTree.h"

namespace ambrio::e2e {

// A test of the running saver. The pointer rests in the middle of the screen when it begins.
class SaverTest : public virtual ProgramTest {
  protected:
    SaverTest();

    // The saver's window, waited for; its panel.
    [[nodiscard]] WindowProbe Saver();
    [[nodiscard]] PanelProbe Panel() { return PanelProbe(Saver()); }

    // Writes the settings of one Set that copies Source to Destination().
    void WriteOneSet(const std::wstring& name = L"Documents");
    // A destination below the program's folder that is not there yet.
    [[nodiscard]] std::wstring Destination() const { return Folder.Below(L"Destination"); }

    // Starts the saver and waits until all Sets are processed and the log is closed.
    void RunToTheEnd(const std::wstring& arguments = L"/S");
    // Waits for the same after a start that a test has made itself.
    void WaitForTheEndOfTheRun(Milliseconds limit = kSoon);
    // Starts the saver and waits until at least one file of many is copied.
    void RunUntilFilesAreCopied(const std::wstring& arguments = L"/S");
    // Presses a key, which must end the program without any box.
    void EndByKey();
    // Presses a key, which must bring up the summary of failures, and closes that.
    void EndByKeyAndBox();

    // What the log of the program's folder says of the latest run; no lines without a log.
    [[nodiscard]] Lines LatestBlock() const;

    TestTree Source{Folder.Below(L"Source")};
};

// The title of the saver's window.
inline constexpr const wchar_t* kSaverTitle = L"Ambrio Screen Saver";
// The class of the plate on it that asks for patience, and what that says; empty when there is none
// to be seen.
inline constexpr const wchar_t* kWaitPlateClass = L"AmbrioWaitPlate";
[[nodiscard]] std::wstring WaitPlateText(const WindowProbe& saver);

}  // namespace ambrio::e2e
