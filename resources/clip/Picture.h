#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

// The drawing of a clip's frames: shapes in floating point, turned into pixels of a common palette.
namespace clip {

struct Rgb {
    double Red;
    double Green;
    double Blue;
};

struct Point {
    double X;
    double Y;
};

// A filled shape: true inside.
using Shape = std::function<bool(Point)>;

[[nodiscard]] Shape RoundedRectangle(Point leftTop, Point rightBottom, double radius);
// The same shape turned by an angle (radians) round a point and made larger or smaller there.
[[nodiscard]] Shape Turned(Shape shape, Point centre, double angle, double scale);
// Leans the shape to the right: by `slope` pixels for each pixel above `base`.
[[nodiscard]] Shape Leaning(Shape shape, double base, double slope);

// A picture whose pixels are a colour or nothing at all. The rim of what is drawn is hard, as there
// is no telling which colour will be behind it; inside, colours blend smoothly.
class Picture {
  public:
    static constexpr int kSamples = 4;  // in each direction of a pixel

    // Shapes are `unit` pixels to their own unit.
    Picture(int width, int height, int unit);

    // Paints over what is there.
    void Fill(const Shape& shape, Rgb colour);

    [[nodiscard]] int Width() const { return width_; }
    [[nodiscard]] int Height() const { return height_; }
    [[nodiscard]] bool IsClear(int x, int y) const;
    // 8 bits each: 0x00RRGGBB. Only for a pixel that is not clear.
    [[nodiscard]] std::uint32_t ColourAt(int x, int y) const;

  private:
    struct Sample {
        Rgb Colour;
        bool IsSet;
    };

    void FillPixel(const Shape& shape, Rgb colour, int left, int top);
    template <typename Visit>
    void VisitPixel(int x, int y, Visit visit) const;

    int width_;
    int height_;
    double unit_;
    std::vector<Sample> samples_;
};

}  // namespace clip
