#include "config/model/CentreForm.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

TEST(CentreForm, PutsTheMiddlesOnEachOther) {
    FormPlace child{7, 7, 300, 201};
    CentreForm(child, {100, 50, 400, 300});
    EXPECT_EQ(150.0F, child.Left);
    EXPECT_EQ(99.5F, child.Top);
    EXPECT_EQ(300.0F, child.Width);
}

TEST(CentreForm, LetsALargerChildStandOutOnBothSides) {
    FormPlace child{0, 0, 500, 500};
    CentreForm(child, {10, 10, 100, 100});
    EXPECT_EQ(-190.0F, child.Left);
    EXPECT_EQ(-190.0F, child.Top);
}

}  // namespace
}  // namespace ambrio
