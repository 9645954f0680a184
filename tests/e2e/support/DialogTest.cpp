#include "tests/e2e/support/DialogTest.h"

#include <algorithm>
#include <stdexcept>

namespace ambrio::e2e {
namespace {

std::wstring EntryOf(const WindowProbe& list, WPARAM entry) {
    const LRESULT length = list.Send(LB_GETTEXTLEN, entry).value_or(0);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    if (!list.Send(LB_GETTEXT, entry, reinterpret_cast<LPARAM>(text.data()))) {
        return {};
    }
    text.resize(static_cast<std::size_t>(length));
    return text;
}

}  // namespace

WindowProbe DialogTest::OpenConfiguration() {
    Start(L"/C");
    return WindowTitled(kConfiguration);
}

WindowProbe DialogTest::At(const WindowProbe& dialog, int control) {
    const auto found = dialog.Control(control);
    if (!found) {
        throw std::runtime_error("no control " + std::to_string(control));
    }
    return *found;
}

void DialogTest::Tell(const WindowProbe& control, UINT message, WPARAM wParam, LPARAM lParam) {
    EXPECT_TRUE(control.Send(message, wParam, lParam)) << message;
}

void DialogTest::Press(const WindowProbe& dialog, int button) {
    At(dialog, button).Post(BM_CLICK);
}

WindowProbe DialogTest::Open(const WindowProbe& dialog, int button, const std::wstring& title) {
    Press(dialog, button);
    return WindowTitled(title);
}

bool DialogTest::Closes(const WindowProbe& dialog, int button) {
    Press(dialog, button);
    return WaitUntil([&] { return !dialog.Exists(); });
}

bool DialogTest::ClosesByItsBox(const WindowProbe& dialog) {
    dialog.Post(WM_SYSCOMMAND, SC_CLOSE);
    return WaitUntil([&] { return !dialog.Exists(); });
}

void DialogTest::Choose(const WindowProbe& dialog, int combo, LRESULT entry) {
    const WindowProbe box = At(dialog, combo);
    Tell(box, CB_SETCURSEL, static_cast<WPARAM>(entry));
    dialog.Post(WM_COMMAND, MAKEWPARAM(combo, CBN_SELCHANGE),
                reinterpret_cast<LPARAM>(box.Handle()));
}

void DialogTest::SetText(const WindowProbe& dialog, int control, const std::wstring& text) {
    Tell(At(dialog, control), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

std::wstring DialogTest::TextOf(const WindowProbe& dialog, int control) {
    return At(dialog, control).Text();
}

bool DialogTest::ShowsTooltip(const WindowProbe& control, const std::wstring& text) {
    const POINT place = control.Centre();
    MovePointerTo({place.x - 2, place.y});
    MovePointerTo(place);
    return WaitUntil([&] {
        const std::vector<WindowProbe> windows = TopLevelWindows(Program().ProcessId());
        return std::any_of(windows.begin(), windows.end(), [&text](const WindowProbe& window) {
            return window.ClassName() == TOOLTIPS_CLASSW && window.IsVisible() &&
                   window.Text() == text;
        });
    });
}

WindowProbe DialogTest::OpenProperties(const std::wstring& set) {
    Settings.Write(L"General", L"Sets", set);
    return Open(OpenConfiguration(), IDC_CMD_PROPERTIES, set + L" Properties");
}

void DialogTest::CloseConfiguration() {
    EXPECT_TRUE(ClosesByItsBox(WindowTitled(kConfiguration)));
    EXPECT_TRUE(Ends());
}

void DialogTest::AddSet(const WindowProbe& configuration, const std::wstring& name,
                        const std::wstring& source, const std::wstring& destination) {
    const WindowProbe properties = Open(configuration, IDC_CMD_NEW, kNewSet);
    SetText(properties, IDC_TXT_SET, name);
    SetText(properties, IDC_TXT_FOLDER_0, source);
    SetText(properties, IDC_TXT_FOLDER_1, destination);
    EXPECT_TRUE(Closes(properties, IDOK));
}

std::wstring DialogTest::SetsOf(const WindowProbe& configuration) {
    const WindowProbe list = At(configuration, IDC_LST_SETS);
    const LRESULT count = list.Send(LB_GETCOUNT).value_or(0);
    const LRESULT current = list.Send(LB_GETCURSEL).value_or(LB_ERR);
    std::wstring text;
    for (LRESULT i = 0; i < count; ++i) {
        const auto entry = static_cast<WPARAM>(i);
        text += i == current ? L">" : L"";
        text += list.Send(LB_GETITEMDATA, entry) == 1 ? L"+" : L"";
        text += EntryOf(list, entry) + L"|";
    }
    return text;
}

void DialogTest::TypeIntoSets(const WindowProbe& configuration, wchar_t key) {
    Tell(At(configuration, IDC_LST_SETS), WM_CHAR, key);
}

void DialogTest::MakeCurrent(const WindowProbe& configuration, int entry) {
    Tell(At(configuration, IDC_LST_SETS), LB_SETCURSEL, static_cast<WPARAM>(entry));
}

bool DialogTest::SetsBecome(const WindowProbe& configuration, const std::wstring& expected) {
    return WaitUntil([&] { return SetsOf(configuration) == expected; });
}

}  // namespace ambrio::e2e
