#include <gtest/gtest.h>

#include "platform/win32/WindowsHeaders.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // Rectangles and pointer places are then real pixels, whatever the scaling.
    SetProcessDPIAware();
    return RUN_ALL_TESTS();
}
