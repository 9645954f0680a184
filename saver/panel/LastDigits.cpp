#include "saver/panel/LastDigits.h"

namespace ambrio {

std::size_t LastDigits::NumberOf(wchar_t before, wchar_t last) {
    return static_cast<std::size_t>((before - L'0') * kDigits + (last - L'0'));
}

RECT LastDigits::PlaceOf(const RECT& cell, std::size_t number) {
    const LONG width = cell.right - cell.left;
    const LONG height = cell.bottom - cell.top;
    const LONG left = static_cast<LONG>(number % kDigits) * width;
    const LONG top = static_cast<LONG>(number / kDigits) * height;
    return {left, top, left + width, top + height};
}

bool LastDigits::Show(HDC picture, const RECT& cell, wchar_t before, wchar_t last) const {
    const std::size_t number = NumberOf(before, last);
    if (known_[number]) {
        pictures_.CopyTo(picture, cell.left, cell.top, PlaceOf(cell, number));
    }
    return known_[number];
}

void LastDigits::Keep(HDC picture, const RECT& cell, wchar_t before, wchar_t last) {
    if (pictures_.Width() == 0) {
        pictures_ =
            BackBuffer((cell.right - cell.left) * kDigits, (cell.bottom - cell.top) * kDigits);
    }
    const std::size_t number = NumberOf(before, last);
    const RECT place = PlaceOf(cell, number);
    known_[number] = pictures_.DC() != nullptr &&
                     BitBlt(pictures_.DC(), place.left, place.top, place.right - place.left,
                            place.bottom - place.top, picture, cell.left, cell.top, SRCCOPY) != 0;
}

}  // namespace ambrio
