#pragma once

#include <bitset>

#include "platform/win32/windows/BackBuffer.h"

namespace ambrio {

// The last digits that a count has shown, as they were drawn. A count changes with every file, and
// nine times of ten in nothing but its last digit; to write that costs more than all else about a
// file that needs no copy. Each is kept with the digit before it, part of which lies in its cell.
class LastDigits {
  public:
    // The digits look different from now on.
    void Forget() { known_.reset(); }

    // Puts the last of these two digits into its cell of a picture, as it was drawn when it was
    // kept. False when it was not.
    [[nodiscard]] bool Show(HDC picture, const RECT& cell, wchar_t before, wchar_t last) const;
    // Keeps what the cell shows. It is of the same size each time.
    void Keep(HDC picture, const RECT& cell, wchar_t before, wchar_t last);

  private:
    static constexpr int kDigits = 10;

    [[nodiscard]] static std::size_t NumberOf(wchar_t before, wchar_t last);
    [[nodiscard]] static RECT PlaceOf(const RECT& cell, std::size_t number);

    BackBuffer pictures_;  // a cell for each pair, made with the first
    std::bitset<static_cast<std::size_t>(kDigits* kDigits)> known_;
};

}  // namespace ambrio
