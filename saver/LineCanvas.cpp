#include "saver/LineCanvas.h"

#include <new>
#include <utility>

#include "platform/win32/windows/GdiHandles.h"
#include "saver/animation/LightBuffer.h"
#include "saver/animation/LineSet.h"

namespace ambrio {
namespace {

struct Size {
    int Width;
    int Height;
};

Size ClientSize(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

UniqueBitmap MakeBitmap(HDC dc, Size size, std::uint32_t** pixels) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = size.Width;
    info.bmiHeader.biHeight = -size.Height;  // the top row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    UniqueBitmap bitmap(CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    *pixels = static_cast<std::uint32_t*>(bits);
    return bitmap;
}

}  // namespace

class LineCanvas::Buffer {
  public:
    // Null without memory for it.
    static std::unique_ptr<Buffer> Make(Size size, std::int16_t pixelTwipsX,
                                        std::int16_t pixelTwipsY);

    [[nodiscard]] bool Covers(Size size) const {
        return size_.Width == size.Width && size_.Height == size.Height;
    }
    [[nodiscard]] bool Fits(Size size, std::int16_t pixelTwipsX, std::int16_t pixelTwipsY) const {
        return Covers(size) && pixelTwipsX_ == pixelTwipsX && pixelTwipsY_ == pixelTwipsY;
    }

    // The parts that have to be copied to the window.
    std::span<const PixelRect> Show(std::span<const Line> lines) {
        GdiFlush();  // copies that are still going on must not see half of the new picture
        lines_.Show(lines, light_);
        return light_.TakeChanges();
    }

    void CopyTo(HDC target, const PixelRect& part) const {
        BitBlt(target, part.Left, part.Top, part.Right - part.Left, part.Bottom - part.Top,
               dc_.get(), part.Left, part.Top, SRCCOPY);
    }

    Buffer(Size size, std::int16_t pixelTwipsX, std::int16_t pixelTwipsY, UniqueMemoryDC dc,
           UniqueBitmap bitmap, std::uint32_t* pixels)
        : size_(size),
          pixelTwipsX_(pixelTwipsX),
          pixelTwipsY_(pixelTwipsY),
          dc_(std::move(dc)),
          bitmap_(std::move(bitmap)),
          selection_(dc_.get(), bitmap_.get()),
          light_(size.Width, size.Height, pixels, LineSet::Thickness(pixelTwipsY)),
          lines_(pixelTwipsX, pixelTwipsY) {}

  private:
    Size size_;
    std::int16_t pixelTwipsX_;
    std::int16_t pixelTwipsY_;
    // The order matters: the selection ends before bitmap and device context go away.
    UniqueMemoryDC dc_;
    UniqueBitmap bitmap_;
    SelectedObject selection_;
    LightBuffer light_;
    LineSet lines_;
};

std::unique_ptr<LineCanvas::Buffer> LineCanvas::Buffer::Make(Size size, std::int16_t pixelTwipsX,
                                                             std::int16_t pixelTwipsY) {
    UniqueMemoryDC dc(CreateCompatibleDC(nullptr));
    std::uint32_t* pixels = nullptr;
    UniqueBitmap bitmap = MakeBitmap(dc.get(), size, &pixels);
    if (dc == nullptr || bitmap == nullptr) {
        return nullptr;
    }
    try {
        return std::make_unique<Buffer>(size, pixelTwipsX, pixelTwipsY, std::move(dc),
                                        std::move(bitmap), pixels);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

LineCanvas::LineCanvas(HWND window) : window_(window) {}

LineCanvas::~LineCanvas() = default;

void LineCanvas::Draw(std::span<const Line> lines, std::int16_t pixelTwipsX,
                      std::int16_t pixelTwipsY) {
    const Size size = ClientSize(window_);
    if (size.Width <= 0 || size.Height <= 0) {
        buffer_.reset();
        return;
    }
    if (buffer_ == nullptr || !buffer_->Fits(size, pixelTwipsX, pixelTwipsY)) {
        buffer_.reset();  // before the next one is made: each is as large as the screen
        buffer_ = Buffer::Make(size, pixelTwipsX, pixelTwipsY);
        InvalidateRect(window_, nullptr, FALSE);
    }
    if (buffer_ == nullptr) {
        return;
    }
    const std::span<const PixelRect> changes = buffer_->Show(lines);
    if (changes.empty()) {
        return;
    }
    const WindowDC target(window_);
    for (const PixelRect& part : changes) {
        buffer_->CopyTo(target.get(), part);
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
