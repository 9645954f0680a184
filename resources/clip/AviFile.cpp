#include "AviFile.h"

#include <algorithm>
#include <map>

namespace clip {
namespace {

constexpr std::size_t kColours = 256;
constexpr std::uint32_t kClearColour =
    0xFF00FF;  // the first of the palette; nothing is drawn in it
constexpr std::uint32_t kKeyFrame = 0x10;

std::string Number(std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text += static_cast<char>(value >> (8 * i) & 0xFF);
    }
    return text;
}
std::string Long(std::uint32_t value) {
    return Number(value, 4);
}
std::string Short(std::uint32_t value) {
    return Number(value, 2);
}

std::string Chunk(const std::string& id, const std::string& data) {
    const std::string padding(data.size() % 2, '\0');
    return id + Long(static_cast<std::uint32_t>(data.size())) + data + padding;
}
std::string List(const std::string& type, const std::string& chunks) {
    return Chunk("LIST", type + chunks);
}

// The colours of all pictures, as fine as 255 of them allow.
class Palette {
  public:
    explicit Palette(const std::vector<Picture>& pictures) {
        for (drop_ = 0; !Collect(pictures); ++drop_) {
        }
    }

    [[nodiscard]] char IndexAt(const Picture& picture, int x, int y) const {
        return picture.IsClear(x, y) ? '\0' : indices_.at(Coarse(picture.ColourAt(x, y)));
    }

    [[nodiscard]] std::string Table() const {
        std::vector<std::uint32_t> colours(kColours);
        colours[0] = kClearColour;
        for (const auto& [colour, index] : indices_) {
            colours[static_cast<unsigned char>(index)] = colour;
        }
        std::string table;
        for (const std::uint32_t colour : colours) {
            table += Long(colour);
        }
        return table;
    }

  private:
    // Without the lowest bits of each component, and with the middle of what they can be.
    [[nodiscard]] std::uint32_t Coarse(std::uint32_t colour) const {
        const std::uint32_t dropped = (1U << drop_) - 1;
        return (colour & ~(dropped * 0x010101)) | ((dropped / 2 + 1) * 0x010101 * (drop_ > 0));
    }

    bool Collect(const std::vector<Picture>& pictures) {
        indices_.clear();
        for (const Picture& picture : pictures) {
            for (int i = 0; i < picture.Width() * picture.Height(); ++i) {
                const int x = i % picture.Width();
                const int y = i / picture.Width();
                if (!picture.IsClear(x, y)) {
                    const auto next = static_cast<char>(indices_.size() + 1);
                    indices_.try_emplace(Coarse(picture.ColourAt(x, y)), next);
                }
                if (indices_.size() >= kColours) {
                    return false;
                }
            }
        }
        return true;
    }

    int drop_ = 0;
    std::map<std::uint32_t, char> indices_;
};

std::string Compressed(const Picture& picture, const Palette& palette) {
    constexpr int kLongestRun = 255;
    std::string data;
    for (int y = picture.Height() - 1; y >= 0; --y) {  // the bottom row comes first
        for (int x = 0; x < picture.Width();) {
            const char index = palette.IndexAt(picture, x, y);
            int run = 1;
            while (run < kLongestRun && x + run < picture.Width() &&
                   palette.IndexAt(picture, x + run, y) == index) {
                ++run;
            }
            data += static_cast<char>(run);
            data += index;
            x += run;
        }
        data += std::string("\0\0", 2);
    }
    return data + std::string("\0\1", 2);
}

std::string MainHeader(const Picture& first, std::uint32_t count, std::uint32_t microseconds,
                       std::uint32_t largest) {
    constexpr std::uint32_t kHasIndex = 0x10;
    return Long(microseconds) + Long(0) + Long(0) + Long(kHasIndex) + Long(count) + Long(0) +
           Long(1) + Long(largest) + Long(static_cast<std::uint32_t>(first.Width())) +
           Long(static_cast<std::uint32_t>(first.Height())) + std::string(16, '\0');
}

std::string StreamHeader(const Picture& first, std::uint32_t count, std::uint32_t microseconds,
                         std::uint32_t largest) {
    constexpr std::uint32_t kSecond = 1000000;
    return "vidsmrle" + Long(0) + Long(0) + Long(0) + Long(microseconds) + Long(kSecond) + Long(0) +
           Long(count) + Long(largest) + Long(0xFFFFFFFF) + Long(0) + Short(0) + Short(0) +
           Short(static_cast<std::uint32_t>(first.Width())) +
           Short(static_cast<std::uint32_t>(first.Height()));
}

std::string StreamFormat(const Picture& first, const Palette& palette) {
    constexpr std::uint32_t kRunLength8 = 1;
    const auto width = static_cast<std::uint32_t>(first.Width());
    const auto height = static_cast<std::uint32_t>(first.Height());
    return Long(40) + Long(width) + Long(height) + Short(1) + Short(8) + Long(kRunLength8) +
           Long((width + 3) / 4 * 4 * height) + Long(0) + Long(0) + Long(kColours) + Long(0) +
           palette.Table();
}

}  // namespace

std::string AviFile(const std::vector<Picture>& pictures, std::uint32_t microsecondsPerPicture) {
    const Palette palette(pictures);
    std::string frames;
    std::string index;
    std::uint32_t largest = 0;
    for (const Picture& picture : pictures) {
        const std::string data = Compressed(picture, palette);
        const auto size = static_cast<std::uint32_t>(data.size());
        largest = std::max(largest, size);
        index += "00dc" + Long(kKeyFrame) + Long(static_cast<std::uint32_t>(4 + frames.size())) +
                 Long(size);
        frames += Chunk("00dc", data);
    }
    const auto count = static_cast<std::uint32_t>(pictures.size());
    const Picture& first = pictures.front();
    const std::string stream =
        List("strl", Chunk("strh", StreamHeader(first, count, microsecondsPerPicture, largest)) +
                         Chunk("strf", StreamFormat(first, palette)));
    const std::string header = List(
        "hdrl", Chunk("avih", MainHeader(first, count, microsecondsPerPicture, largest)) + stream);
    return Chunk("RIFF", "AVI " + header + List("movi", frames) + Chunk("idx1", index));
}

}  // namespace clip
