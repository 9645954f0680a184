#include "saver/model/Audience.h"

namespace ambrio {

void Audience::Hear(Unseen reason, bool holds) {
    switch (reason) {
        case Unseen::SessionLocked:
            isSessionLocked_ = holds;
            break;
        case Unseen::SessionAway:
            isSessionAway_ = holds;
            break;
        case Unseen::SessionDisplaysOff:
            areSessionDisplaysOff_ = holds;
            break;
        case Unseen::MonitorOff:
            isMonitorOff_ = holds;
            break;
    }
}

bool Audience::IsThere() const {
    return !isSessionLocked_ && !isSessionAway_ && !areSessionDisplaysOff_.value_or(isMonitorOff_);
}

}  // namespace ambrio
