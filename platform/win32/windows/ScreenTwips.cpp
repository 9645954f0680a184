#include "platform/win32/windows/ScreenTwips.h"

#include "platform/Twips.h"
#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

ScreenTwips ReadScreenTwips() {
    const HDC screen = GetDC(nullptr);
    const ScreenTwips twips{TwipsPerPixel(GetDeviceCaps(screen, LOGPIXELSX)),
                            TwipsPerPixel(GetDeviceCaps(screen, LOGPIXELSY))};
    ReleaseDC(nullptr, screen);
    return twips;
}

}  // namespace ambrio
