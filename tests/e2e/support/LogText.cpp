#include "tests/e2e/support/LogText.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/Text.h"

namespace ambrio::e2e {

namespace {

constexpr const wchar_t* kStart = L"Ambrio start ";

std::wstring WithoutTime(const std::wstring& line) {
    for (const wchar_t* lead :
         {kStart, L"Ambrio completed ", L"Ambrio ended ", L"Ambrio interrupted "}) {
        const std::wstring prefix = lead;
        if (line.starts_with(prefix) && IsOfTheLastMinutes(line.substr(prefix.size()))) {
            return prefix + kNow;
        }
    }
    return line;
}

}  // namespace

LogText::LogText(const std::wstring& path) : exists_(FileExists(path)) {
    if (exists_) {
        lines_ = SplitLines(FromSystemCodePage(ReadFileBytes(path)));
        std::transform(lines_.begin(), lines_.end(), lines_.begin(), WithoutTime);
    }
}

std::vector<Lines> LogText::Blocks() const {
    std::vector<Lines> blocks;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const bool opens =
            lines_[i] == kSeparator && i + 1 < lines_.size() && lines_[i + 1].starts_with(kStart);
        if (opens || blocks.empty()) {
            blocks.emplace_back();
        }
        blocks.back().push_back(lines_[i]);
    }
    return blocks;
}

bool LogText::Contains(const std::wstring& line) const {
    return std::find(lines_.begin(), lines_.end(), line) != lines_.end();
}

bool IsOfTheLastMinutes(std::wstring text) {
    DATE date = 0;
    if (FAILED(VarDateFromStr(text.data(), LOCALE_USER_DEFAULT, 0, &date))) {
        return false;
    }
    SYSTEMTIME now{};
    GetLocalTime(&now);
    DATE today = 0;
    SystemTimeToVariantTime(&now, &today);
    constexpr double kFewMinutes = 5.0 / (24 * 60);
    return std::abs(today - date) < kFewMinutes;
}

std::wstring PresentTime() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    wchar_t text[32];
    std::swprintf(text, 32, L"%04d-%02d-%02d %02d:%02d:%02d", now.wYear, now.wMonth, now.wDay,
                  now.wHour, now.wMinute, now.wSecond);
    return text;
}

Lines Block(const Lines& inner, const std::wstring& endWord) {
    Lines lines{kSeparator, std::wstring(kStart) + kNow};
    lines.insert(lines.end(), inner.begin(), inner.end());
    lines.push_back(L"Ambrio" + endWord + kNow);
    lines.emplace_back(kSeparator);
    return lines;
}

}  // namespace ambrio::e2e
