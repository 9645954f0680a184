#include "platform/win32/windows/DialogTemplate.h"

#include <cstring>
#include <span>
#include <string>

#include "platform/RuntimeError.h"
#include "platform/win32/windows/GdiHandles.h"

namespace ambrio {
namespace {

constexpr std::size_t kItemAlignment = 4;
constexpr std::size_t kStyleOffset = 12;  // two words, help id, extended style
constexpr std::size_t kTextsOffset = 26;  // style, number of items, four words of place
constexpr std::uint16_t kOrdinalMark = 0xFFFF;
constexpr int kPointsPerInch = 72;

std::span<const std::uint8_t> LoadLayout(HINSTANCE instance, int id) {
    const HRSRC resource = FindResourceW(instance, MAKEINTRESOURCEW(id), RT_DIALOG);
    const HGLOBAL loaded = resource != nullptr ? LoadResource(instance, resource) : nullptr;
    const void* bytes = loaded != nullptr ? LockResource(loaded) : nullptr;
    if (bytes == nullptr) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
    return {static_cast<const std::uint8_t*>(bytes), SizeofResource(instance, resource)};
}

std::uint16_t WordAt(std::span<const std::uint8_t> bytes, std::size_t offset) {
    return static_cast<std::uint16_t>(bytes[offset] | (bytes[offset + 1] << 8));
}

// The offset behind a text, or behind the ordinal that stands in its place.
std::size_t Behind(std::span<const std::uint8_t> bytes, std::size_t offset) {
    if (WordAt(bytes, offset) == kOrdinalMark) {
        return offset + 4;
    }
    while (WordAt(bytes, offset) != 0) {
        offset += 2;
    }
    return offset + 2;
}

LOGFONTW MessageFont() {
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof(metrics);
    if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0) == FALSE) {
        // Systems before Vista know a shorter structure.
        metrics.cbSize = sizeof(metrics) - sizeof(metrics.iPaddedBorderWidth);
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    }
    return metrics.lfMessageFont;
}

int PointsOf(const LOGFONTW& font) {
    const int dotsPerInch = GetDeviceCaps(WindowDC(nullptr).get(), LOGPIXELSY);
    return MulDiv(-font.lfHeight, kPointsPerInch, dotsPerInch);
}

void AppendWord(std::vector<std::uint8_t>& bytes, unsigned word) {
    bytes.push_back(static_cast<std::uint8_t>(word));
    bytes.push_back(static_cast<std::uint8_t>(word >> 8));
}

void AppendFont(std::vector<std::uint8_t>& bytes, const LOGFONTW& font) {
    AppendWord(bytes, static_cast<unsigned>(PointsOf(font)));
    AppendWord(bytes, static_cast<unsigned>(font.lfWeight));
    bytes.push_back(font.lfItalic);
    bytes.push_back(font.lfCharSet);
    for (const wchar_t* c = font.lfFaceName; *c != L'\0'; ++c) {
        AppendWord(bytes, *c);
    }
    AppendWord(bytes, 0);
}

std::size_t Aligned(std::size_t offset) {
    return (offset + kItemAlignment - 1) / kItemAlignment * kItemAlignment;
}

}  // namespace

std::vector<std::uint8_t> DialogTemplateInMessageFont(HINSTANCE instance, int id) {
    const auto layout = LoadLayout(instance, id);
    const bool hasFont = (WordAt(layout, kStyleOffset) & DS_SETFONT) != 0;
    if (WordAt(layout, 2) != kOrdinalMark || !hasFont) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
    // Menu, class and caption stand before the font.
    const std::size_t font = Behind(layout, Behind(layout, Behind(layout, kTextsOffset)));
    constexpr std::size_t kFontNumbers = 6;
    const std::size_t items = Aligned(Behind(layout, font + kFontNumbers));
    std::vector<std::uint8_t> result(layout.begin(), layout.begin() + static_cast<int>(font));
    const LOGFONTW messageFont = MessageFont();
    if (PointsOf(messageFont) > 0) {
        AppendFont(result, messageFont);
    } else {
        result.insert(result.end(), layout.begin() + static_cast<int>(font),
                      layout.begin() + static_cast<int>(items));
    }
    result.resize(Aligned(result.size()));
    result.insert(result.end(), layout.begin() + static_cast<int>(items), layout.end());
    return result;
}

}  // namespace ambrio
