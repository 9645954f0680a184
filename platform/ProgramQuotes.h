#pragma once

#include <string>

namespace ambrio {

// The command line with its program, which ends with the first ".scr" or ".exe" before a blank or
// the end, in quotes where it has blanks; so it is not taken for a shorter name with arguments. A
// line whose program has quotes already, or in which no program can be told, stays as it is.
[[nodiscard]] std::wstring WithQuotedProgram(const std::wstring& commandLine);

// The program that a command line starts, told as above, without quotes; up to the first blank
// where that tells nothing.
[[nodiscard]] std::wstring ProgramOf(const std::wstring& commandLine);

}  // namespace ambrio
