#include "saver/model/WaitText.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

TEST(WaitText, NamesTheFileAndTheShareThatIsDone) {
    EXPECT_EQ(L"Please wait while the current file is copied...\nholiday & sun.mov\n47 %",
              WaitText(L"holiday & sun.mov", 47));
}

}  // namespace
}  // namespace ambrio
