#include "tests/e2e/support/HeldFiles.h"

#include "tests/e2e/StandIn.h"
#include "tests/e2e/support/Files.h"

namespace ambrio::e2e {

HeldFiles::HeldFiles()
    : held_(CreateEventW(nullptr, TRUE, FALSE, kHeldEvent)),
      goOn_(CreateEventW(nullptr, TRUE, FALSE, kGoOnEvent)) {}

std::wstring HeldFiles::Module() {
    return TestProgramFolder() + L"\\StandInFiles.dll";
}

bool HeldFiles::WaitUntilHeld(Milliseconds limit) const {
    return WaitForSingleObject(held_.get(), static_cast<DWORD>(limit.count())) == WAIT_OBJECT_0;
}

void HeldFiles::GoOn() const {
    SetEvent(goOn_.get());
}

void HeldFiles::HoldAgain() const {
    ResetEvent(held_.get());
    ResetEvent(goOn_.get());
}

}  // namespace ambrio::e2e
