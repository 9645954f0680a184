#include "platform/win32/windows/CheckBoxTheme.h"

namespace ambrio {

// Not linked: the system would take a file of that name from beside the program.
CheckBoxTheme::CheckBoxTheme()
    : library_(L"uxtheme.dll"),
      open_(library_.Function<decltype(open_)>("OpenThemeData")),
      close_(library_.Function<decltype(close_)>("CloseThemeData")),
      draw_(library_.Function<decltype(draw_)>("DrawThemeBackground")) {}

bool CheckBoxTheme::Draw(HWND window, HDC dc, const RECT& box, bool ticked) const {
    if (open_ == nullptr || close_ == nullptr || draw_ == nullptr) {
        return false;
    }
    const HTHEME theme = open_(window, L"BUTTON");
    if (theme == nullptr) {
        return false;
    }
    const HRESULT result = draw_(theme, dc, BP_CHECKBOX,
                                 ticked ? CBS_CHECKEDNORMAL : CBS_UNCHECKEDNORMAL, &box, nullptr);
    close_(theme);
    return SUCCEEDED(result);
}

}  // namespace ambrio
