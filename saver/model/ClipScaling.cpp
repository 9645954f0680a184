#include "saver/model/ClipScaling.h"

#include <algorithm>
#include <cmath>

namespace ambrio {
namespace {

// Which pixels of a row make one of the scaled row, and with which weights, 1 in all.
struct Part {
    int First;
    std::vector<float> Weights;
};

// The weights fall off evenly from the middle: between two neighbours where the picture becomes
// larger, over all that share the pixel where it becomes smaller.
std::vector<Part> PartsOf(int size, int scaledSize, double scale) {
    const double reach = std::max(1.0, 1 / scale);
    std::vector<Part> parts;
    for (int i = 0; i < scaledSize; ++i) {
        const double middle = (i + 0.5) / scale - 0.5;
        const int first = std::max(static_cast<int>(std::ceil(middle - reach)), 0);
        const int last = std::min(static_cast<int>(std::floor(middle + reach)), size - 1);
        Part part{first, {}};
        double sum = 0;
        for (int j = first; j <= last; ++j) {
            const double weight = std::max(0.0, 1 - std::fabs(j - middle) / reach);
            part.Weights.push_back(static_cast<float>(weight));
            sum += weight;
        }
        for (float& weight : part.Weights) {
            weight /= static_cast<float>(sum);
        }
        parts.push_back(std::move(part));
    }
    return parts;
}

int Scaled(int size, double scale) {
    return std::max(1, static_cast<int>(std::lround(size * scale)));
}

// The weighted sum of neighbours that lie `step` apart.
template <typename Pixel>
Pixel Sum(const Pixel* first, std::size_t step, const std::vector<float>& weights) {
    Pixel sum;
    for (std::size_t i = 0; i < weights.size(); ++i) {
        const Pixel& pixel = first[i * step];
        sum.Red += pixel.Red * weights[i];
        sum.Green += pixel.Green * weights[i];
        sum.Blue += pixel.Blue * weights[i];
        sum.Share += pixel.Share * weights[i];
    }
    return sum;
}

}  // namespace

ScaledPicture::Pixel ScaledPicture::PixelOf(std::uint32_t pixel, std::uint32_t clear) {
    if (pixel == clear) {
        return {};
    }
    const auto part = [pixel](int shift) {
        return static_cast<float>((pixel >> shift) & 0xFF) / 255;
    };
    return {part(16), part(8), part(0), 1};
}

ScaledPicture::ScaledPicture(std::span<const std::uint32_t> pixels, int width, std::uint32_t clear,
                             double scale) {
    if (width <= 0 || pixels.empty() || scale <= 0) {
        return;
    }
    const int height = static_cast<int>(pixels.size()) / width;
    width_ = Scaled(width, scale);
    height_ = Scaled(height, scale);
    std::vector<Pixel> whole(pixels.size());
    std::transform(pixels.begin(), pixels.end(), whole.begin(),
                   [clear](std::uint32_t pixel) { return PixelOf(pixel, clear); });
    const auto wide = static_cast<std::size_t>(width);
    const auto scaledWide = static_cast<std::size_t>(width_);
    const std::vector<Part> across = PartsOf(width, width_, scale);
    std::vector<Pixel> narrow(scaledWide * static_cast<std::size_t>(height));
    for (std::size_t i = 0; i < narrow.size(); ++i) {
        const Part& part = across[i % scaledWide];
        const std::size_t first = i / scaledWide * wide + static_cast<std::size_t>(part.First);
        narrow[i] = Sum(&whole[first], 1, part.Weights);
    }
    const std::vector<Part> down = PartsOf(height, height_, scale);
    pixels_.resize(scaledWide * static_cast<std::size_t>(height_));
    for (std::size_t i = 0; i < pixels_.size(); ++i) {
        const Part& part = down[i / scaledWide];
        const std::size_t first = static_cast<std::size_t>(part.First) * scaledWide;
        pixels_[i] = Sum(&narrow[first + i % scaledWide], scaledWide, part.Weights);
    }
}

std::uint32_t ScaledPicture::Over(const Pixel& pixel, std::uint32_t below) {
    const auto part = [&](float component, int shift) {
        const float rest = static_cast<float>((below >> shift) & 0xFF) * (1 - pixel.Share);
        const long mixed = std::lround(component * 255 + rest);
        return static_cast<std::uint32_t>(std::clamp(mixed, 0L, 255L)) << shift;
    };
    return part(pixel.Red, 16) | part(pixel.Green, 8) | part(pixel.Blue, 0);
}

void ScaledPicture::DrawInto(std::span<std::uint32_t> target, int width) const {
    if (width <= 0) {
        return;
    }
    const int height = static_cast<int>(target.size()) / width;
    const int left = (width - width_) / 2;
    const int top = (height - height_) / 2;
    for (int y = std::max(top, 0); y < std::min(top + height_, height); ++y) {
        for (int x = std::max(left, 0); x < std::min(left + width_, width); ++x) {
            std::uint32_t& below =
                target[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                       static_cast<std::size_t>(x)];
            below = Over(pixels_[static_cast<std::size_t>((y - top) * width_ + x - left)], below);
        }
    }
}

double ClipScale(int width, int height, int roomAcross, int roomDown, double pixelSize) {
    if (width <= 0 || height <= 0) {
        return 0;
    }
    return std::min({pixelSize, static_cast<double>(roomAcross) / width,
                     static_cast<double>(roomDown) / height});
}

}  // namespace ambrio
