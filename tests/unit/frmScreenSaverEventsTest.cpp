// How often the form asks the system whether events wait, while a run looks at files.

#include <gtest/gtest.h>

#include <chrono>
#include <memory>

#include "saver/form/frmScreenSaver.h"
#include "tests/support/ManualClock.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/MemorySettingsStore.h"
#include "tests/support/win32/ReplacedImport.h"

namespace ambrio {
namespace {

using namespace std::chrono_literals;

int questions = 0;

template <typename Function>
Function* OfTheSystem(Function*, const char* name) {
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

DWORD WINAPI CountedStatus(UINT kinds) {
    static const auto system = OfTheSystem(&GetQueueStatus, "GetQueueStatus");
    ++questions;
    return system(kinds);
}

class frmScreenSaverEventsTest : public testing::Test {
  protected:
    frmScreenSaverEventsTest() {
        application_.CommandLine = L"/D";
        form_ = std::make_unique<frmScreenSaver>(application_, files_, copyWatch_, settings_,
                                                 clock_, [] {});
        form_->Show();
        form_->DoEvents();
        questions = 0;
    }

    Application application_;
    MemoryFileSystem files_;
    CopyWatch copyWatch_;
    MemorySettingsStore settings_;
    ManualClock clock_{DateTime{2026, 11, 21, 10, 0, 0}};
    std::unique_ptr<frmScreenSaver> form_;
    ReplacedImport status_{L"user32.dll", "GetQueueStatus",
                           reinterpret_cast<void*>(&CountedStatus)};
};

TEST_F(frmScreenSaverEventsTest, AfterFilesThatWereOnlyLookedAtItAsksOnceAMillisecondAtMost) {
    const auto start = std::chrono::steady_clock::now();
    int files = 0;
    for (; std::chrono::steady_clock::now() - start < 40ms; ++files) {
        form_->DoEventsSoon();
    }
    const auto lasted = std::chrono::steady_clock::now() - start;
    EXPECT_LE(questions, lasted / 1ms + 1) << files;
    EXPECT_GE(questions, files > 1 ? 1 : 0);
}

// Every fifty milliseconds it asks in another way, which is not counted here.
TEST_F(frmScreenSaverEventsTest, AfterACopyItAsksEachTime) {
    constexpr int kCopies = 40;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kCopies; ++i) {
        form_->DoEvents();
    }
    const auto lasted = std::chrono::steady_clock::now() - start;
    EXPECT_GE(questions, kCopies - lasted / 50ms - 1);
}

}  // namespace
}  // namespace ambrio
