#pragma once

namespace ambrio {

// How the first window of a program that is started is to appear.
enum class WindowState { Hidden, MinimisedFocus, NormalFocus };

}  // namespace ambrio
