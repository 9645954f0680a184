#pragma once

namespace ambrio {

// Lets what waits in this thread's message queue run, what the user did before all else, and comes
// back in time for the caller's own work: each timer ticks once at most, and the last message is
// taken before 20 ms are over. What then still waits is left for the next call. When the program is
// to end, it returns and leaves that for RunMessageLoop.
void HandleWaitingMessages();

// Handles messages until this program has called EndMessageLoop and nothing else waits any more.
void RunMessageLoop();

// Lets RunMessageLoop return, on this thread, and every box and dialog above it close.
void EndMessageLoop();

}  // namespace ambrio
