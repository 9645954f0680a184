#include "platform/win32/system/StayAwake.h"

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

StayAwake::StayAwake() {
    SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED);
}

StayAwake::~StayAwake() {
    SetThreadExecutionState(ES_CONTINUOUS);
}

}  // namespace ambrio
