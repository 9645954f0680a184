#pragma once

#include <optional>

#include "platform/win32/WindowsHeaders.h"
#include "platform/win32/system/SystemLibrary.h"
#include "saver/model/Audience.h"

namespace ambrio {

// What a message of the system says of one reason why nobody might see the screen.
struct AudienceNotice {
    Unseen Reason;
    bool Holds;
};

// While the object lives, the system tells the window of a locked or distant session and of
// displays that are switched off and on, as far as it can: older systems know less of that and tell
// nothing.
class AudienceNotices {
  public:
    // The window is not owned. It must still be there when the object goes.
    explicit AudienceNotices(HWND window);
    ~AudienceNotices();
    AudienceNotices(const AudienceNotices&) = delete;
    AudienceNotices& operator=(const AudienceNotices&) = delete;

    // What such a message says; nothing when it is another, or one that makes no sense: any program
    // can send one.
    [[nodiscard]] static std::optional<AudienceNotice> Read(UINT message, WPARAM wParam,
                                                            LPARAM lParam);

  private:
    HANDLE AskForPower(const GUID& setting) const;
    void EndPower(HANDLE registration) const;

    HWND window_;
    SystemLibrary sessions_;
    SystemLibrary power_;
    HANDLE sessionDisplays_ = nullptr;
    HANDLE monitor_ = nullptr;
};

}  // namespace ambrio
