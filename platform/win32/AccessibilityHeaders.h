#pragma once

// What WindowsHeaders.h leaves out: the system's headers of what screen readers see, which hardly
// anything needs.

#include "platform/win32/WindowsHeaders.h"
// Needs the one above.
#include <oleacc.h>
