#include "platform/ProgramQuotes.h"

#include <algorithm>
#include <string_view>

#include "platform/AsciiCase.h"

namespace ambrio {
namespace {

bool IsExtension(std::wstring_view text, std::wstring_view wanted) {
    return std::equal(text.begin(), text.end(), wanted.begin(), wanted.end(),
                      [](wchar_t a, wchar_t b) { return AsciiUpperCase(a) == AsciiUpperCase(b); });
}

// Where the program's name ends, or 0.
std::size_t ProgramEnd(std::wstring_view line) {
    constexpr std::size_t kLength = 4;
    for (std::size_t dot = line.find(L'.'); dot != std::wstring_view::npos;
         dot = line.find(L'.', dot + 1)) {
        const std::wstring_view extension = line.substr(dot, kLength);
        const std::size_t end = dot + kLength;
        if ((IsExtension(extension, L".scr") || IsExtension(extension, L".exe")) &&
            (end == line.size() || line[end] == L' ')) {
            return end;
        }
    }
    return 0;
}

}  // namespace

std::wstring WithQuotedProgram(const std::wstring& commandLine) {
    const std::size_t end = ProgramEnd(commandLine);
    if (commandLine.find(L' ') >= end || commandLine.find(L'"') < end) {
        return commandLine;
    }
    return L'"' + commandLine.substr(0, end) + L'"' + commandLine.substr(end);
}

std::wstring ProgramOf(const std::wstring& commandLine) {
    const std::wstring line = WithQuotedProgram(commandLine);
    const bool isQuoted = line.starts_with(L'"');
    const std::size_t begin = isQuoted ? 1 : 0;
    return line.substr(begin, line.find(isQuoted ? L'"' : L' ', begin) - begin);
}

}  // namespace ambrio
