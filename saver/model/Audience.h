#pragma once

#include <optional>

namespace ambrio {

// Why nobody can see the screen. The displays of the session are what the system tells of since
// Windows 8; before, it only knows of the monitor, which in a remote session is not the one that is
// looked at.
enum class Unseen { SessionLocked, SessionAway, SessionDisplaysOff, MonitorOff };

// Whether anybody can see what the saver draws, as far as the system has told.
class Audience {
  public:
    // Takes what the system says of one reason.
    void Hear(Unseen reason, bool holds);
    // True until the system has told of a reason why nobody can.
    [[nodiscard]] bool IsThere() const;

  private:
    bool isSessionLocked_ = false;
    bool isSessionAway_ = false;
    bool isMonitorOff_ = false;
    std::optional<bool> areSessionDisplaysOff_;  // once told, more than the monitor
};

}  // namespace ambrio
