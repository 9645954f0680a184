#pragma once

#include <string>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// The full path of the program that belongs to an extension (without its dot); empty when there is
// none. To ask, it makes a file "~temp." of that extension in the current directory and removes it
// again. Where that cannot be made, or a file of that name is there already, which is left alone,
// it makes one in the folder for temporary files, there with a number in its name if need be; where
// none can be made, there is no program either.
[[nodiscard]] std::wstring GetBrowserPath(const std::wstring& ext);

// Has the shell open a program with these arguments, in a normal window and on behalf of `owner`,
// and does not wait for it. False when it did not start.
[[nodiscard]] bool ShellOpen(const std::wstring& program, const std::wstring& arguments,
                             HWND owner);

}  // namespace ambrio
