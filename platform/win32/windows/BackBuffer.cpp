#include "platform/win32/windows/BackBuffer.h"

#include <algorithm>
#include <utility>

namespace ambrio {

BackBuffer::BackBuffer(int width, int height)
    : width_(std::max(width, 1)), height_(std::max(height, 1)) {
    const WindowDC screen(nullptr);
    dc_.reset(CreateCompatibleDC(screen.get()));
    bitmap_.reset(CreateCompatibleBitmap(screen.get(), width_, height_));
    if (dc_ == nullptr || bitmap_ == nullptr) {
        dc_.reset();
        return;
    }
    selection_ = std::make_unique<SelectedObject>(dc_.get(), bitmap_.get());
    PatBlt(dc_.get(), 0, 0, width_, height_, BLACKNESS);
}

BackBuffer& BackBuffer::operator=(BackBuffer&& other) noexcept {
    selection_.reset();
    bitmap_ = std::move(other.bitmap_);
    dc_ = std::move(other.dc_);
    selection_ = std::move(other.selection_);
    width_ = other.width_;
    height_ = other.height_;
    return *this;
}

void BackBuffer::CopyTo(HDC target, int left, int top, const RECT& part) const {
    if (dc_ != nullptr) {
        BitBlt(target, left, top, part.right - part.left, part.bottom - part.top, dc_.get(),
               part.left, part.top, SRCCOPY);
    }
}

}  // namespace ambrio
