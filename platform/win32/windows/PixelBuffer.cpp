#include "platform/win32/windows/PixelBuffer.h"

#include <utility>

namespace ambrio {
namespace {

UniqueBitmap MakeBitmap(HDC dc, const SIZE& size, std::uint32_t** pixels) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = size.cx;
    info.bmiHeader.biHeight = -size.cy;  // the top row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    UniqueBitmap bitmap(CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    *pixels = static_cast<std::uint32_t*>(bits);
    return bitmap;
}

}  // namespace

std::unique_ptr<PixelBuffer> PixelBuffer::Make(const SIZE& size) {
    UniqueMemoryDC dc(CreateCompatibleDC(nullptr));
    std::uint32_t* pixels = nullptr;
    UniqueBitmap bitmap = MakeBitmap(dc.get(), size, &pixels);
    if (dc == nullptr || bitmap == nullptr) {
        return nullptr;
    }
    return std::make_unique<PixelBuffer>(size, std::move(dc), std::move(bitmap), pixels);
}

PixelBuffer::PixelBuffer(const SIZE& size, UniqueMemoryDC dc, UniqueBitmap bitmap,
                         std::uint32_t* pixels)
    : size_(size),
      dc_(std::move(dc)),
      bitmap_(std::move(bitmap)),
      selection_(dc_.get(), bitmap_.get()),
      pixels_(pixels, static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy)) {}

void PixelBuffer::CopyTo(HDC target, const RECT& part) const {
    BitBlt(target, part.left, part.top, part.right - part.left, part.bottom - part.top, dc_.get(),
           part.left, part.top, SRCCOPY);
}

}  // namespace ambrio
