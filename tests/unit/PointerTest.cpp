#include "saver/form/Pointer.h"

#include <gtest/gtest.h>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {
namespace {

// The count as it is; asking for it changes it and back.
int DisplayCount() {
    ShowCursor(TRUE);
    return ShowCursor(FALSE);
}

TEST(Pointer, IsShownAndHiddenWhateverTheCountWas) {
    const int before = DisplayCount();
    for (const int start : {-9, 0, 9}) {
        while (ShowCursor(DisplayCount() < start) != start) {
        }
        HidePointerSurely();
        EXPECT_LE(DisplayCount(), -6);
        ShowPointerSurely();
        EXPECT_GE(DisplayCount(), 6);
    }
    while (DisplayCount() > before) {
        ShowCursor(FALSE);
    }
}

TEST(Pointer, IsShownAgainByOneCallMore) {
    const int before = DisplayCount();
    ShowPointerSurely();
    const int shown = DisplayCount();
    ShowPointerSurely();
    EXPECT_EQ(shown + 1, DisplayCount());
    while (DisplayCount() > before) {
        ShowCursor(FALSE);
    }
}

}  // namespace
}  // namespace ambrio
