#include "config/SoleConfiguration.h"

#include <chrono>

namespace ambrio {
namespace {

constexpr DWORD kBetweenLooks = 20;  // milliseconds
// Whoever has the name but shows no dialog for so long keeps nobody from a dialog of his own.
constexpr std::chrono::seconds kPatience{3};

bool BringToFront(const std::wstring& caption) {
    constexpr const wchar_t* kDialogClass = L"#32770";
    const HWND dialog = FindWindowW(kDialogClass, caption.c_str());
    if (dialog == nullptr || IsWindowVisible(dialog) == FALSE) {
        return false;
    }
    if (IsIconic(dialog) != FALSE) {
        ShowWindowAsync(dialog, SW_RESTORE);
    }
    SetForegroundWindow(GetLastActivePopup(dialog));
    return true;
}

}  // namespace

SoleConfiguration::SoleConfiguration(const std::wstring& caption)
    : mutex_(
          MakeHandle<UniqueHandle>(CreateMutexW(nullptr, FALSE, (L"Local\\" + caption).c_str()))) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    DWORD state = WaitForSingleObject(mutex_.get(), 0);
    while (state == WAIT_TIMEOUT && std::chrono::steady_clock::now() < end) {
        if (BringToFront(caption)) {
            isSole_ = false;
            return;
        }
        state = WaitForSingleObject(mutex_.get(), kBetweenLooks);
    }
    // Also when its last owner was ended by force.
    isOwner_ = state == WAIT_OBJECT_0 || state == WAIT_ABANDONED;
}

SoleConfiguration::~SoleConfiguration() {
    if (isOwner_) {
        ReleaseMutex(mutex_.get());
    }
}

}  // namespace ambrio
