#include "saver/form/Pointer.h"

#include "platform/win32/WindowsHeaders.h"
#include "saver/model/FormConstants.h"

namespace ambrio {

void ShowPointerSurely() {
    while (ShowCursor(TRUE) < kPointerShownCount) {
    }
}

void HidePointerSurely() {
    while (ShowCursor(FALSE) > kPointerHiddenCount) {
    }
}

}  // namespace ambrio
