#pragma once

namespace ambrio {

// To be called first thing in the process. From then on the system looks for libraries in its own
// folder alone, whatever lies beside the program or in the current folder, and never for programs
// in the current folder; a drive that is not ready fails without a box of the system's own, which
// would wait for somebody; and a damaged heap ends the program instead of being worked with. Does
// what the system can do of it; nothing fails.
void HardenProcess();

}  // namespace ambrio
