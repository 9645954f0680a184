#include "app/model/ModeDispatch.h"

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"

namespace ambrio {
namespace {

// Writes down which modes were entered.
class RecordingModes : public Modes {
  public:
    void ShowConfiguration() override { Entered += "configuration "; }
    bool IsNotRunning(const std::wstring& title) override {
        AskedFor = title;
        return !IsRunning;
    }
    void ShowScreenSaver() override { Entered += "saver "; }
    void LoadPreview() override { Entered += "preview "; }
    void ChangePassword() override { Entered += "password "; }

    bool IsRunning = false;
    std::wstring AskedFor;
    std::string Entered;
};

struct Dispatched {
    std::string Entered;
    std::int32_t ParentWindow;

    bool operator==(const Dispatched&) const = default;
};

Dispatched Dispatch(const wchar_t* commandLine) {
    Application application;
    application.CommandLine = commandLine;
    RecordingModes modes;
    EnterMode(application, modes);
    return {modes.Entered, application.ParentWindow};
}

TEST(ModeDispatch, EntersTheModeOfTheSwitch) {
    const struct {
        const wchar_t* CommandLine;
        Dispatched Expected;
    } cases[] = {
        {L"", {"configuration ", 0}},
        {L"/C", {"configuration ", 0}},
        {L"/c:1234", {"configuration ", 0}},
        {L"/C 1234", {"configuration ", 0}},
        {L"/s", {"saver ", 0}},
        {L"/Sxyz", {"saver ", 0}},
        {L"/d", {"saver ", 0}},
        {L"/D", {"saver ", 0}},
        {L"/p 1234", {"preview ", 1234}},
        {L"/p", {"preview ", 0}},
        {L"/A 77", {"password ", 77}},
        {L"/a", {"password ", 0}},
        {L"/X", {"", 0}},
        {L"S", {"", 0}},
        {L"-s", {"", 0}},
        {L" /S", {"", 0}},
    };
    for (const auto& [commandLine, expected] : cases) {
        const Dispatched dispatched = Dispatch(commandLine);
        EXPECT_EQ(expected.Entered, dispatched.Entered) << std::wstring(commandLine).size();
        EXPECT_EQ(expected.ParentWindow, dispatched.ParentWindow);
    }
}

TEST(ModeDispatch, ShowsNoSecondScreenSaver) {
    Application application;
    application.CommandLine = L"/s";
    RecordingModes modes;
    modes.IsRunning = true;
    EnterMode(application, modes);
    EXPECT_EQ("", modes.Entered);
    EXPECT_EQ(L"Ambrio Screen Saver", modes.AskedFor);
}

TEST(ModeDispatch, EntersNothingWhenTheHandleIsOutOfRange) {
    Application application;
    application.CommandLine = L"/p 4294967296";
    RecordingModes modes;
    EXPECT_THROW(EnterMode(application, modes), RuntimeError);
    EXPECT_EQ("", modes.Entered);
}

}  // namespace
}  // namespace ambrio
