#include "saver/panel/PanelFont.h"

#include <string_view>

#include "saver/model/Ellipsis.h"

namespace ambrio {
namespace {

constexpr wchar_t kFirstPlain = L' ';
constexpr wchar_t kLastPlain = L'~';

UniqueFont MakeFont(const wchar_t* face, int pixels, int weight) {
    return UniqueFont(CreateFontW(-pixels, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                  OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                                  VARIABLE_PITCH | FF_SWISS, face));
}

}  // namespace

PanelFont::PanelFont(HDC dc, const wchar_t* face, int height, int weight)
    : dc_(dc), font_(MakeFont(face, height, weight)) {
    const SelectedObject selected(dc, font_.get());
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc, &metrics);
    ascent_ = metrics.tmAscent;
    lineHeight_ = metrics.tmHeight;
    plainWidths_.resize(kLastPlain - kFirstPlain + 1);
    if (GetCharWidth32W(dc, kFirstPlain, kLastPlain, plainWidths_.data()) == FALSE ||
        GetCharWidth32W(dc, kEllipsis, kEllipsis, &ellipsisWidth_) == FALSE) {
        plainWidths_.clear();
    }
}

// The ellipsis counts as plain: a path that is too long is measured some ten times with it, and a
// long text takes the system a millisecond.
std::optional<int> PanelFont::PlainWidth(wchar_t unit) const {
    const auto place = static_cast<std::size_t>(unit - kFirstPlain);
    if (unit >= kFirstPlain && place < plainWidths_.size()) {
        return plainWidths_[place];
    }
    return unit == kEllipsis && AddsWidthsUp() ? std::optional(ellipsisWidth_) : std::nullopt;
}

int PanelFont::WidthOf(const std::wstring& text) const {
    int width = 0;
    for (const wchar_t unit : text) {
        const std::optional<int> plain = PlainWidth(unit);
        if (!plain) {
            const SelectedObject selected(dc_, font_.get());
            SIZE size{};
            GetTextExtentPoint32W(dc_, text.c_str(), static_cast<int>(text.size()), &size);
            return size.cx;
        }
        width += *plain;
    }
    return width;
}

bool PanelFont::IsThere(HDC dc, const wchar_t* face) {
    constexpr int kAnyHeight = 16;
    const UniqueFont font = MakeFont(face, kAnyHeight, FW_NORMAL);
    const SelectedObject selected(dc, font.get());
    wchar_t chosen[LF_FACESIZE];
    GetTextFaceW(dc, LF_FACESIZE, chosen);
    return std::wstring_view(chosen) == face;
}

}  // namespace ambrio
