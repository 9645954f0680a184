#include "app/preview/model/PreviewCaption.h"

namespace ambrio {
namespace {

constexpr std::int16_t kWindow = 10;
constexpr std::int16_t kTicksPerUpdate = 2;
// The blanks let the sentence leave before it comes in again.
constexpr std::wstring_view kSentence =
    L"This does more than just pootle around your screen; it actually backs up important files "
    L"for you as soon as you relax!    ";

}  // namespace

void PreviewCaption::Advance() {
    if (count_ >= kWindow) {
        ++start_;
    } else {
        ++count_;
    }
    if (start_ == 0) {
        start_ = 1;
    }
}

std::wstring PreviewCaption::Shown() const {
    const std::wstring padded = std::wstring(kWindow, L' ') +
                                std::wstring(kSentence.substr(static_cast<std::size_t>(start_ - 1),
                                                              static_cast<std::size_t>(count_)));
    return padded.substr(padded.size() - kWindow);
}

std::optional<std::wstring> PreviewCaption::Tick() {
    std::optional<std::wstring> caption;
    if (tickCount_ == kTicksPerUpdate) {
        Advance();
        caption = Shown();
        tickCount_ = 0;
        if (start_ == static_cast<std::int16_t>(kSentence.size())) {
            start_ = 0;
            count_ = 0;
        }
    }
    ++tickCount_;
    return caption;
}

}  // namespace ambrio
