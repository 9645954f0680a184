#include "tests/e2e/support/SaverTest.h"

#include <stdexcept>

namespace ambrio::e2e {

SaverTest::SaverTest() {
    SetCursorPos(GetSystemMetrics(SM_CXSCREEN) / 2, GetSystemMetrics(SM_CYSCREEN) / 2);
}

WindowProbe SaverTest::Saver() {
    return WindowTitled(kSaverTitle);
}

void SaverTest::WriteOneSet(const std::wstring& name) {
    Settings.WriteSets({{name, Source.Root(), Destination()}});
}

void SaverTest::RunToTheEnd(const std::wstring& arguments) {
    Start(arguments);
    WaitForTheEndOfTheRun();
}

void SaverTest::WaitForTheEndOfTheRun(Milliseconds limit) {
    const PanelProbe panel = Panel();
    // The label is read by the thread that runs: when it answers with this text, nothing of the
    // run is left to be done that would let it answer.
    const auto ended = [&] { return panel.ShowsTheEndOfTheRun() || !Program().IsRunning(); };
    if (!WaitUntil(ended, limit)) {
        throw std::runtime_error("the run does not come to its end");
    }
}

void SaverTest::RunUntilFilesAreCopied(const std::wstring& arguments) {
    Start(arguments);
    const PanelProbe panel = Panel();
    if (!WaitUntil([&] { return panel.Number(PanelControl::lblcopied) > 0; })) {
        throw std::runtime_error("no file is copied");
    }
}

void SaverTest::EndByKey() {
    PressKey(VK_SPACE);
    const bool ended = WaitUntil(
        [this] { return !Program().IsRunning() || MessageBoxProbe::Find(Program().ProcessId()); });
    EXPECT_TRUE(ended) << "a key does not end the saver";
    if (const auto box = MessageBoxProbe::Find(Program().ProcessId())) {
        ADD_FAILURE() << "a box comes up";
        EXPECT_TRUE(box->Press());
    }
    EXPECT_TRUE(Ends());
}

void SaverTest::EndByKeyAndBox() {
    PressKey(VK_SPACE);
    EXPECT_TRUE(WaitForBox().Press());
    EXPECT_TRUE(Ends());
}

Lines SaverTest::LatestBlock() const {
    const std::vector<Lines> blocks = Log().Blocks();
    return blocks.empty() ? Lines{} : blocks.back();
}

std::wstring WaitPlateText(const WindowProbe& saver) {
    const auto plates = saver.ControlsOfClass(kWaitPlateClass);
    return plates.empty() || !plates[0].IsVisible() ? L"" : plates[0].Text();
}

}  // namespace ambrio::e2e
