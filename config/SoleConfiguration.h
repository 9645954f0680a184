#pragma once

#include <string>

#include "platform/win32/system/Handle.h"

namespace ambrio {

// Two configuration dialogs at once would overwrite each other's list of Sets, so there is one in a
// session. To be made before the dialog is, and to live as long.
class SoleConfiguration {
  public:
    // Brings the dialog with this caption, which an earlier start of the program has open, and
    // whatever dialog it has open in turn, to the front. Waits a moment when it is just coming up.
    explicit SoleConfiguration(const std::wstring& caption);
    ~SoleConfiguration();
    SoleConfiguration(const SoleConfiguration&) = delete;
    SoleConfiguration& operator=(const SoleConfiguration&) = delete;

    // False when there is another dialog, which has been brought to the front.
    [[nodiscard]] bool IsSole() const { return isSole_; }

  private:
    UniqueHandle mutex_;  // owned while the dialog is open; null where the system refuses one
    bool isOwner_ = false;
    bool isSole_ = true;
};

}  // namespace ambrio
