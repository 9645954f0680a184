#pragma once

// Plain macros, because the resource compiler reads this file too.
#define IDI_AMBRIO 1
#define IDS_SLOGAN 101
