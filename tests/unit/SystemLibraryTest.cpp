#include "platform/win32/system/SystemLibrary.h"

#include <gtest/gtest.h>

#include "platform/win32/windows/ResourceText.h"
#include "resources/ResourceIds.h"
#include "saver/form/Windows9x.h"

namespace ambrio {
namespace {

TEST(SystemLibrary, GivesTheFunctionsThatExist) {
    const SystemLibrary kernel(L"kernel32.dll");
    using TickFunction = DWORD(WINAPI*)();
    EXPECT_NE(nullptr, kernel.Function<TickFunction>("GetTickCount"));
    EXPECT_EQ(nullptr, kernel.Function<TickFunction>("NoSuchFunctionAnywhere"));
}

TEST(SystemLibrary, GivesNothingWhereThereIsNone) {
    const SystemLibrary none(L"no such library.dll");
    EXPECT_EQ(nullptr, none.Function<void (*)()>("GetTickCount"));
}

TEST(Windows9x, IsNotWhatTheTestsRunOn) {
    EXPECT_EQ(kPlatformNt, GetPlatform());
}

TEST(Windows9x, LetsTheUserBackInWithoutAPasswordModule) {
    EXPECT_TRUE(VerifyScreenSavePwd(nullptr));
}

TEST(ResourceText, ReadsTheStringTable) {
    EXPECT_EQ(L"Ambrio", ResourceText(1));
    EXPECT_FALSE(ResourceText(IDS_SLOGAN).empty());
    EXPECT_EQ(L"", ResourceText(60000));
}

}  // namespace
}  // namespace ambrio
