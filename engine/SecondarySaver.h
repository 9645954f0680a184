#pragma once

#include <string>

#include "engine/RunHost.h"
#include "platform/FileSystem.h"

namespace ambrio {

// What became of the program.
enum class HandOver { Stayed, Ended };

// Starts the screen saver of that name: hidden when it lies in the Windows folder, in a normal
// window when only a System folder holds it, and wherever else one may lie. When it
// started, shows `EndWord` in a box, which waits behind it, and ends the program. Otherwise says
// what is wrong and unloads the form. An empty name is no screen saver; nothing happens then.
[[nodiscard]] HandOver StartSecondarySaver(FileSystem& fileSystem, RunHost& host,
                                           const std::wstring& name, const std::wstring& EndWord);

}  // namespace ambrio
