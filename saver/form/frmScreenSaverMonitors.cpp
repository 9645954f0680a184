// frmScreenSaver: what it reaches of the monitors, and what it does not.

#include "platform/win32/windows/Monitors.h"
#include "saver/form/frmScreenSaver.h"

namespace ambrio {

std::vector<RECT> frmScreenSaver::Monitors() const {
    return MonitorPlaces();
}

void frmScreenSaver::CoverMonitors() {
    const std::vector<RECT> monitors = Monitors();
    std::vector<Area> places;
    places.reserve(monitors.size());
    for (const RECT& place : monitors) {
        places.push_back({place.left, place.top, place.right, place.bottom});
    }
    RECT form{};
    GetWindowRect(Handle(), &form);
    const Area frame{form.left, form.top, form.right, form.bottom};
    frame_->See(PartsInside(places, frame));
    blackWindows_.Cover(PartsOutside(places, frame));
}

}  // namespace ambrio
