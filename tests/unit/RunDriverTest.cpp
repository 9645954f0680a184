#include "engine/RunDriver.h"

#include <gtest/gtest.h>

#include "engine/EngineTexts.h"
#include "settings/SettingKeys.h"
#include "tests/support/EngineBench.h"

namespace ambrio {
namespace {

using Lines = std::vector<std::wstring>;

const std::wstring kNow = L"11/21/2026 3:49:46 PM";

class RunDriverTest : public testing::Test {
  protected:
    RunDriverTest() {
        Bench.Files.WriteFile(L"C:\\Data\\a.txt", "a");
        Bench.AddSet(L"Letters", L"C:\\Data", L"C:\\Copy");
    }

    [[nodiscard]] bool Has(const std::wstring& line) {
        const Lines log = Bench.Log();
        return std::find(log.begin(), log.end(), line) != log.end();
    }
    // A copy that must be replaced and cannot be.
    void MakeOneCopyFail() {
        Bench.Files.WriteFile(L"C:\\Copy\\a.txt", "old", kAttributeReadOnly, 1);
    }

    EngineBench Bench;
};

TEST_F(RunDriverTest, ACleanRunLogsItsBlockAndLeavesTheFormUp) {
    Bench.Run();
    EXPECT_EQ(Bench.Log(), (Lines{kSeparatorLine, L"Ambrio start " + kNow, L"'Letters' start",
                                  L"'Letters' complete",
                                  L"Of 1 files checked, 1 were copied; 0 copies were removed.",
                                  L"Ambrio completed " + kNow, kSeparatorLine}));
    EXPECT_EQ(Bench.Host.Actions, (Lines{L"show pointer", L"leave topmost"}));
    EXPECT_EQ(Bench.FailureSummary, L"");
    EXPECT_EQ(Bench.Files.Content(L"C:\\Copy\\a.txt"), "a");
}

}  // namespace
}  // namespace ambrio
