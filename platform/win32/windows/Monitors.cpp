#include "platform/win32/windows/Monitors.h"

namespace ambrio {
namespace {

BOOL CALLBACK AddPlace(HMONITOR, HDC, LPRECT place, LPARAM places) {
    reinterpret_cast<std::vector<RECT>*>(places)->push_back(*place);
    return TRUE;
}

}  // namespace

std::vector<RECT> MonitorPlaces() {
    std::vector<RECT> places;
    EnumDisplayMonitors(nullptr, nullptr, AddPlace, reinterpret_cast<LPARAM>(&places));
    return places;
}

}  // namespace ambrio
