#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/win32/windows/GdiHandles.h"

namespace ambrio {

// A size of letters on the panel and what it measures, in pixels. The system's font object goes
// with it and must not be selected any more then.
class PanelFont {
  public:
    PanelFont() = default;
    // For a device context like this one, which is not owned and has to live longer. `height` is
    // that of the letters.
    PanelFont(HDC dc, const wchar_t* face, int height, int weight);

    [[nodiscard]] HFONT Handle() const { return font_.get(); }
    // From the top of a line to where its letters stand, and to its end.
    [[nodiscard]] int Ascent() const { return ascent_; }
    [[nodiscard]] int LineHeight() const { return lineHeight_; }
    [[nodiscard]] int WidthOf(const std::wstring& text) const;
    // The width of a character that stands beside others without regard to what they are; nothing
    // where the system has to be asked for the text as a whole.
    [[nodiscard]] std::optional<int> PlainWidth(wchar_t unit) const;
    // Whether the width of a plain text is that of its characters together.
    [[nodiscard]] bool AddsWidthsUp() const { return !plainWidths_.empty(); }

    // Whether the system has this face.
    [[nodiscard]] static bool IsThere(HDC dc, const wchar_t* face);

  private:
    HDC dc_ = nullptr;
    UniqueFont font_;
    int ascent_ = 0;
    int lineHeight_ = 0;
    std::vector<int> plainWidths_;  // empty where the system does not tell them
    int ellipsisWidth_ = 0;
};

}  // namespace ambrio
