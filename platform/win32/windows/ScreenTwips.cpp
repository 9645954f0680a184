#include "platform/win32/windows/ScreenTwips.h"

#include "platform/Twips.h"
#include "platform/win32/system/SystemLibrary.h"
#include "platform/win32/windows/GdiHandles.h"

namespace ambrio {

ScreenTwips ReadScreenTwips() {
    const WindowDC screen(nullptr);
    return {TwipsPerPixel(GetDeviceCaps(screen.get(), LOGPIXELSX)),
            TwipsPerPixel(GetDeviceCaps(screen.get(), LOGPIXELSY))};
}

int DotsPerInchOf(HWND window) {
    using GetDpi = UINT(WINAPI*)(HWND);
    const SystemLibrary user(L"user32.dll");
    const auto getDpi = user.Function<GetDpi>("GetDpiForWindow");
    const UINT found = getDpi != nullptr ? getDpi(window) : 0;
    return found != 0 ? static_cast<int>(found)
                      : GetDeviceCaps(WindowDC(nullptr).get(), LOGPIXELSY);
}

ScreenTwips TwipsOf(HWND window) {
    const double twips = TwipsPerPixel(DotsPerInchOf(window));
    return {twips, twips};
}

}  // namespace ambrio
