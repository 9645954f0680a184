// What one change of a caption costs on the panel that is seen:
//   CaptionCost [CHANGES]
// prints the microseconds a change, for a count, for a file's name and for a path that is too long
// for its label.

#include <algorithm>
#include <chrono>
#include <cwchar>
#include <iostream>
#include <string>
#include <vector>

#include "platform/DecimalText.h"
#include "platform/win32/windows/MessageLoop.h"
#include "platform/win32/windows/ScreenTwips.h"
#include "saver/panel/StatusPanelView.h"

namespace ambrio {
namespace {

class Form {
  public:
    Form()
        : window_(CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 1024,
                                  768, nullptr, nullptr, nullptr, nullptr)) {}
    ~Form() { DestroyWindow(window_); }
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    [[nodiscard]] HWND Handle() const { return window_; }

  private:
    HWND window_;
};

// The least of many goes, as another program may have the processor in the others.
template <typename TextOf>
void Measure(const wchar_t* name, StatusPanelView& panel, PanelLabel label, int changes,
             TextOf textOf) {
    constexpr int kChangesInAGo = 100;
    std::chrono::duration<double, std::micro> least = std::chrono::hours(1);
    std::vector<std::wstring> texts(kChangesInAGo);
    for (int i = 0; i < changes;) {
        for (std::wstring& text : texts) {
            text = textOf(i++);
        }
        const auto start = std::chrono::steady_clock::now();
        for (const std::wstring& text : texts) {
            panel.SetCaption(label, text);
        }
        least = std::min<decltype(least)>(least, std::chrono::steady_clock::now() - start);
    }
    std::wcout << name << L' ' << least.count() / kChangesInAGo << std::endl;
}

// One of many folders in a deep one.
std::wstring LongPath(int number) {
    constexpr int kLevels = 40;
    std::wstring path = L"D:\\Documents";
    for (int level = 0; level < kLevels; ++level) {
        path += L"\\Level" + DecimalText(level);
    }
    return path + L'\\' + DecimalText(number);
}

int Run(int changes) {
    const Form form;
    const ScreenTwips twips = ReadScreenTwips();
    StatusPanelView panel(form.Handle(), twips.X, twips.Y, L"", [] {});
    HandleWaitingMessages();
    Measure(L"count", panel, PanelLabel::lblChecked, changes, [](int i) { return DecimalText(i); });
    Measure(L"name", panel, PanelLabel::lblFile, changes,
            [](int i) { return L"file" + DecimalText(i) + L".txt - copying"; });
    Measure(L"path", panel, PanelLabel::lblSource, changes, &LongPath);
    return 0;
}

}  // namespace
}  // namespace ambrio

int wmain(int count, wchar_t** arguments) {
    const int changes =
        count > 1 ? static_cast<int>(std::wcstol(arguments[1], nullptr, 10)) : 20000;
    return ambrio::Run(changes);
}
