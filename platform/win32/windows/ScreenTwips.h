#pragma once

namespace ambrio {

// The screen's twips per pixel, across and down, as the system tells a system-dpi-aware program.
struct ScreenTwips {
    double X = 15;
    double Y = 15;

    bool operator==(const ScreenTwips&) const = default;
};

[[nodiscard]] ScreenTwips ReadScreenTwips();

}  // namespace ambrio
