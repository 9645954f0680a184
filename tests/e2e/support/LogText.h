#pragma once

#include <string>
#include <vector>

namespace ambrio::e2e {

// Stands in LogText's lines where the log has a date and time of the last few minutes.
inline constexpr const wchar_t* kNow = L"<now>";
inline constexpr const wchar_t* kSeparator = L"~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~";

using Lines = std::vector<std::wstring>;

// The run log, read once. A log that does not exist has no lines.
class LogText {
  public:
    explicit LogText(const std::wstring& path);

    [[nodiscard]] bool Exists() const { return exists_; }
    [[nodiscard]] const Lines& AllLines() const { return lines_; }
    // The lines run by run, each with its separators.
    [[nodiscard]] std::vector<Lines> Blocks() const;
    // True when some line is exactly this.
    [[nodiscard]] bool Contains(const std::wstring& line) const;

  private:
    bool exists_ = false;
    Lines lines_;
};

// True when the text is a date and time of the last few minutes, in the user's locale or in ISO
// form.
[[nodiscard]] bool IsOfTheLastMinutes(std::wstring text);
// The present date and time as text that every locale can read.
[[nodiscard]] std::wstring PresentTime();

// A run's whole block: the separator, the start line, `inner`, the line with `endWord` (" completed
// " and so on, blanks included) and the separator.
[[nodiscard]] Lines Block(const Lines& inner, const std::wstring& endWord);

}  // namespace ambrio::e2e
