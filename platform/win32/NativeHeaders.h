#pragma once

// What WindowsHeaders.h leaves out: the calls below the system's own interface, which hardly
// anything needs.

#include "platform/win32/WindowsHeaders.h"
// Needs the one above.
#include <winternl.h>
