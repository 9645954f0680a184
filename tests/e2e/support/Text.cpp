#include "tests/e2e/support/Text.h"

#include "platform/win32/WindowsHeaders.h"

namespace ambrio::e2e {

std::string Utf8(std::wstring_view text) {
    const auto length = static_cast<int>(text.size());
    std::string bytes(text.size() * 3, '\0');
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(size));
    return bytes;
}

std::wstring FromSystemCodePage(std::string_view bytes) {
    const auto size = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    text.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, text.data(), size)));
    return text;
}

std::wstring WithoutReturns(std::wstring text) {
    std::erase(text, L'\r');
    return text;
}

std::vector<std::wstring> SplitLines(std::wstring_view text) {
    std::vector<std::wstring> lines;
    while (!text.empty()) {
        const std::size_t end = text.find(L"\r\n");
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end == std::wstring_view::npos ? text.size() : end + 2);
    }
    return lines;
}

}  // namespace ambrio::e2e
