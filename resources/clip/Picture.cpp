#include "Picture.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace clip {

Shape RoundedRectangle(Point leftTop, Point rightBottom, double radius) {
    return [=](Point p) {
        const double x = std::max({leftTop.X + radius - p.X, p.X - (rightBottom.X - radius), 0.0});
        const double y = std::max({leftTop.Y + radius - p.Y, p.Y - (rightBottom.Y - radius), 0.0});
        return std::hypot(x, y) <= radius;
    };
}

Shape Turned(Shape shape, Point centre, double angle, double scale) {
    const double cosine = std::cos(angle) / scale;
    const double sine = std::sin(angle) / scale;
    return [=, shape = std::move(shape)](Point p) {
        const double x = p.X - centre.X;
        const double y = p.Y - centre.Y;
        return shape({centre.X + x * cosine + y * sine, centre.Y - x * sine + y * cosine});
    };
}

Shape Leaning(Shape shape, double base, double slope) {
    return [=, shape = std::move(shape)](Point p) {
        const double x = p.X - (base - p.Y) * slope;
        return shape({x, p.Y});
    };
}

Picture::Picture(int width, int height, int unit)
    : width_(width),
      height_(height),
      unit_(unit),
      samples_(static_cast<std::size_t>(width * kSamples) *
               static_cast<std::size_t>(height * kSamples)) {}

void Picture::Fill(const Shape& shape, Rgb colour) {
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            FillPixel(shape, colour, x * kSamples, y * kSamples);
        }
    }
}

// A pixel whose corners all lie inside or all outside lies there as a whole: no shape is as thin as
// a pixel.
void Picture::FillPixel(const Shape& shape, Rgb colour, int left, int top) {
    constexpr int kLast = kSamples - 1;
    const auto isInside = [&](int x, int y) {
        return shape({(left + x + 0.5) / kSamples / unit_, (top + y + 0.5) / kSamples / unit_});
    };
    const int corners =
        isInside(0, 0) + isInside(kLast, 0) + isInside(0, kLast) + isInside(kLast, kLast);
    if (corners == 0) {
        return;
    }
    for (int y = 0; y < kSamples; ++y) {
        for (int x = 0; x < kSamples; ++x) {
            if (corners == 4 || isInside(x, y)) {
                const int index = (top + y) * width_ * kSamples + left + x;
                samples_[static_cast<std::size_t>(index)] = {colour, true};
            }
        }
    }
}

template <typename Visit>
void Picture::VisitPixel(int x, int y, Visit visit) const {
    for (int row = y * kSamples; row < (y + 1) * kSamples; ++row) {
        for (int column = x * kSamples; column < (x + 1) * kSamples; ++column) {
            const auto index = static_cast<std::size_t>(row * width_ * kSamples + column);
            if (samples_[index].IsSet) {
                visit(samples_[index].Colour);
            }
        }
    }
}

bool Picture::IsClear(int x, int y) const {
    int set = 0;
    VisitPixel(x, y, [&](const Rgb&) { ++set; });
    return set < kSamples * kSamples / 2;
}

std::uint32_t Picture::ColourAt(int x, int y) const {
    Rgb sum{0, 0, 0};
    int set = 0;
    VisitPixel(x, y, [&](const Rgb& colour) {
        sum = {sum.Red + colour.Red, sum.Green + colour.Green, sum.Blue + colour.Blue};
        ++set;
    });
    const auto part = [=](double component) {
        return static_cast<std::uint32_t>(std::lround(component / std::max(set, 1)));
    };
    return part(sum.Red) << 16 | part(sum.Green) << 8 | part(sum.Blue);
}

}  // namespace clip
