#pragma once

#include <string>
#include <vector>

#include "resources/DialogIds.h"
#include "tests/e2e/support/ProgramTest.h"

namespace ambrio::e2e {

// A test of the program's dialogs, which are used as a user would, by messages of the controls.
class DialogTest : public virtual ProgramTest {
  protected:
    static constexpr const wchar_t* kConfiguration = L"Ambrio Configuration";
    static constexpr const wchar_t* kNewSet = L"New Set Properties";

    // Starts the program with "/C" and waits for its dialog.
    WindowProbe OpenConfiguration();

    [[nodiscard]] static WindowProbe At(const WindowProbe& dialog, int control);
    // Sends a control a message, which it must answer.
    static void Tell(const WindowProbe& control, UINT message, WPARAM wParam = 0,
                     LPARAM lParam = 0);
    // Presses a button without waiting for what that leads to.
    static void Press(const WindowProbe& dialog, int button);
    // Presses a button and waits for the dialog that it opens.
    [[nodiscard]] WindowProbe Open(const WindowProbe& dialog, int button,
                                   const std::wstring& title);
    // Presses a button and waits until the dialog is gone; false when it stays.
    [[nodiscard]] static bool Closes(const WindowProbe& dialog, int button);
    [[nodiscard]] static bool ClosesByItsBox(const WindowProbe& dialog);
    // Makes an entry of a combo box current as a user would, without waiting for what that leads
    // to.
    static void Choose(const WindowProbe& dialog, int combo, LRESULT entry);
    static void SetText(const WindowProbe& dialog, int control, const std::wstring& text);
    [[nodiscard]] static std::wstring TextOf(const WindowProbe& dialog, int control);

    // Rests the pointer on a control and waits until a tooltip says this.
    [[nodiscard]] bool ShowsTooltip(const WindowProbe& control, const std::wstring& text);

    // Opens the properties of a Set, which becomes the only one in the list.
    [[nodiscard]] WindowProbe OpenProperties(const std::wstring& set);
    // Closes the configuration dialog by its box, which must end the program.
    void CloseConfiguration();

    // Adds a Set through the dialogs, with the folders given.
    void AddSet(const WindowProbe& configuration, const std::wstring& name,
                const std::wstring& source, const std::wstring& destination);

    // The entries of the list of Sets, a plus before each ticked one and an arrow before the
    // current one, a stroke after each.
    [[nodiscard]] static std::wstring SetsOf(const WindowProbe& configuration);
    // Sends the list of Sets a key as text.
    static void TypeIntoSets(const WindowProbe& configuration, wchar_t key);
    static void MakeCurrent(const WindowProbe& configuration, int entry);

    // Waits until the list of Sets looks like this.
    [[nodiscard]] static bool SetsBecome(const WindowProbe& configuration,
                                         const std::wstring& expected);
};

}  // namespace ambrio::e2e
