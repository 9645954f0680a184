#include "saver/LineCanvas.h"

#include <cstring>
#include <new>
#include <utility>
#include <vector>

#include "platform/win32/windows/GdiHandles.h"
#include "platform/win32/windows/PixelBuffer.h"
#include "saver/animation/LightBuffer.h"
#include "saver/animation/LineSet.h"

namespace ambrio {
namespace {

constexpr int kCallsBetweenTries = 99;

SIZE ClientSize(const Window& window) {
    RECT client{};
    GetClientRect(window.Handle(), &client);
    return {client.right, client.bottom};
}

bool IsSame(const SIZE& one, const SIZE& other) {
    return one.cx == other.cx && one.cy == other.cy;
}

}  // namespace

class LineCanvas::Buffer {
  public:
    // Null without memory for it.
    static std::unique_ptr<Buffer> Make(const SIZE& size, const ScreenTwips& twips);

    [[nodiscard]] bool Covers(const SIZE& size) const { return IsSame(picture_->Size(), size); }
    [[nodiscard]] bool Fits(const SIZE& size, const ScreenTwips& twips) const {
        return Covers(size) && twips_ == twips;
    }

    // The parts that have to be copied to the window.
    std::span<const PixelRect> Show(std::span<const Line> lines, const Palette& palette) {
        GdiFlush();  // copies that are still going on must not see half of the new picture
        if (palette_ != palette) {
            palette_ = palette;
            light_.SetPalette(palette);
        }
        lines_.Show(lines, light_);
        return light_.TakeChanges();
    }

    // In one call for all parts, as a call costs more than copying most of them.
    void CopyTo(HDC target, std::span<const PixelRect> parts);
    void CopyTo(HDC target, const RECT& part) const { picture_->CopyTo(target, part); }

    Buffer(std::unique_ptr<PixelBuffer> picture, const ScreenTwips& twips)
        : picture_(std::move(picture)),
          twips_(twips),
          light_(picture_->Size().cx, picture_->Size().cy, picture_->Pixels().data(),
                 LineSet::Thickness(twips.Y)),
          lines_(twips.X, twips.Y) {}

  private:
    std::unique_ptr<PixelBuffer> picture_;
    ScreenTwips twips_;
    Palette palette_{};  // black, and thus another one than the first
    LightBuffer light_;
    LineSet lines_;
    std::vector<RECT> region_;  // the first two make room for the header of the region
};

std::unique_ptr<LineCanvas::Buffer> LineCanvas::Buffer::Make(const SIZE& size,
                                                             const ScreenTwips& twips) {
    std::unique_ptr<PixelBuffer> picture = PixelBuffer::Make(size);
    if (picture == nullptr) {
        return nullptr;
    }
    try {
        return std::make_unique<Buffer>(std::move(picture), twips);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void LineCanvas::Buffer::CopyTo(HDC target, std::span<const PixelRect> parts) {
    constexpr std::size_t kHeader = 2;
    static_assert(sizeof(RGNDATAHEADER) == kHeader * sizeof(RECT));
    region_.resize(kHeader);
    for (const PixelRect& part : parts) {
        region_.push_back({part.Left, part.Top, part.Right, part.Bottom});
    }
    const SIZE size = picture_->Size();
    const RECT all{0, 0, size.cx, size.cy};
    const RGNDATAHEADER header{sizeof(RGNDATAHEADER), RDH_RECTANGLES,
                               static_cast<DWORD>(parts.size()), 0, all};
    std::memcpy(region_.data(), &header, sizeof header);
    // Without memory for the region all of the picture is copied, which looks the same.
    const UniqueRegion region(ExtCreateRegion(nullptr,
                                              static_cast<DWORD>(region_.size() * sizeof(RECT)),
                                              reinterpret_cast<const RGNDATA*>(region_.data())));
    SelectClipRgn(target, region.get());
    picture_->CopyTo(target, all);
    SelectClipRgn(target, nullptr);
}

LineCanvas::LineCanvas(const Window& window) : window_(window) {}

LineCanvas::~LineCanvas() = default;

// The window shows the new buffer, or black without one, as soon as it paints itself.
void LineCanvas::MakeBuffer(const ScreenTwips& twips) {
    const SIZE size = ClientSize(window_);
    const bool isRefused = IsSame(size, refused_);
    if (isRefused && callsToNextTry_-- > 0) {
        return;
    }
    buffer_.reset();  // before the next one is made: each is as large as the screen
    buffer_ = Buffer::Make(size, twips);
    refused_ = buffer_ == nullptr ? size : SIZE{};
    callsToNextTry_ = kCallsBetweenTries;
    if (!isRefused || buffer_ != nullptr) {
        InvalidateRect(window_.Handle(), nullptr, FALSE);
    }
}

void LineCanvas::Draw(std::span<const Line> lines, const Palette& palette,
                      const ScreenTwips& twips) {
    const SIZE size = ClientSize(window_);
    if (size.cx <= 0 || size.cy <= 0) {
        buffer_.reset();
        return;
    }
    if (buffer_ == nullptr || !buffer_->Fits(size, twips)) {
        MakeBuffer(twips);
    }
    if (buffer_ == nullptr) {
        return;
    }
    const std::span<const PixelRect> changes = buffer_->Show(lines, palette);
    if (!changes.empty()) {
        buffer_->CopyTo(WindowDC(window_.Handle()).get(), changes);
    }
}

void LineCanvas::Repaint(const RECT& part) const {
    if (window_.Handle() != nullptr) {
        Paint(WindowDC(window_.Handle()).get(), part);
    }
}

void LineCanvas::Paint(HDC target, const RECT& part) const {
    if (buffer_ != nullptr && buffer_->Covers(ClientSize(window_))) {
        buffer_->CopyTo(target, {part.left, part.top, part.right, part.bottom});
    } else {
        FillRect(target, &part, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    }
}

}  // namespace ambrio
