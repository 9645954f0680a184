#pragma once

namespace ambrio {

// Lets everything that waits in this thread's message queue run, and returns when nothing waits
// any more. When the program is to end, it returns and leaves that for RunMessageLoop.
void HandleWaitingMessages();

// Handles messages until the program is to end.
void RunMessageLoop();

}  // namespace ambrio
