#pragma once

#include <set>
#include <string>

#include "tests/model/ModelDisk.h"
#include "tests/model/RunOutcome.h"
#include "tests/model/Stage.h"

namespace ambrio {

// All that a run depends on.
struct ModelWorld {
    ModelSettings Settings;
    ModelDisk Disk;
    ModelCaptions Captions;
    std::wstring Version;  // "1.0"
    std::wstring ProgramFolder;
    std::wstring LocalDataFolder;
    FileSeconds Now = 0;   // what files get that are written to
    std::wstring NowText;  // in the locale's general date format, such as "11/21/2026 3:49:46 PM"
    bool Interrupted = false;                   // before the run has begun
    std::set<std::wstring> InputAtCopyOf = {};  // sources; input interrupts while they are copied
};

// What a run in this world, with these faults, must come to. It tells the whole run in its own
// words, without any code of the program but the names of error numbers, attributes and temporary
// files. It knows no links, no Sets whose folders overlap and no names that differ in case only.
[[nodiscard]] RunOutcome Foretell(const ModelWorld& world, const FaultPlan& fails);

}  // namespace ambrio
