#pragma once

namespace ambrio {

// True when this thread's windows are on a desktop of the system's own, on which nothing lies
// behind them: that of a saver after which the system asks for the password, or that of the logon.
[[nodiscard]] bool IsOnSecureDesktop();

}  // namespace ambrio
