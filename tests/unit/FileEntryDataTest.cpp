#include "platform/win32/files/FileEntryData.h"

#include <gtest/gtest.h>

namespace ambrio {
namespace {

TEST(SettableAttributes, HoldEveryBitThatTheSystemLetsBeSet) {
    constexpr FileAttributes kBits[] = {0x1,
                                        0x2,
                                        0x4,
                                        0x20,
                                        0x100,
                                        0x1000,
                                        0x2000,
                                        0x20000 /* not looked over */,
                                        0x80000 /* pinned */,
                                        0x100000 /* unpinned */};
    for (const FileAttributes bit : kBits) {
        EXPECT_EQ(bit, SettableAttributes(bit)) << bit;
    }
}

TEST(SettableAttributes, LackWhatTheSystemSetsItself) {
    // A folder, sparse, a link, compressed, encrypted.
    for (const FileAttributes bit : {0x10U, 0x200U, 0x400U, 0x800U, 0x4000U}) {
        EXPECT_EQ(0x2U, SettableAttributes(0x2 | bit)) << bit;
        EXPECT_EQ(0x80U, SettableAttributes(bit)) << bit;  // "normal", as 0 changes nothing
    }
}

}  // namespace
}  // namespace ambrio
