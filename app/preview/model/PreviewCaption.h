#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace ambrio {

// The sentence that scrolls through the caption of the preview's frame, ten characters wide: it
// grows in from the right, moves left by a character at a time, and starts over at its end.
class PreviewCaption {
  public:
    // To be called at every tick of the preview. The caption to show from now on, or nothing when
    // it stays: the third tick brings the first one, then every second tick the next.
    [[nodiscard]] std::optional<std::wstring> Tick();

  private:
    void Advance();
    [[nodiscard]] std::wstring Shown() const;

    std::int16_t tickCount_ = 0;
    std::int16_t start_ = 0;  // in the sentence, counted from 1; 0 before it has begun
    std::int16_t count_ = 0;  // characters shown
};

}  // namespace ambrio
