#include "platform/win32/windows/ScreenTwips.h"

#include "platform/Twips.h"
#include "platform/win32/windows/GdiHandles.h"

namespace ambrio {

ScreenTwips ReadScreenTwips() {
    const WindowDC screen(nullptr);
    return {TwipsPerPixel(GetDeviceCaps(screen.get(), LOGPIXELSX)),
            TwipsPerPixel(GetDeviceCaps(screen.get(), LOGPIXELSY))};
}

}  // namespace ambrio
