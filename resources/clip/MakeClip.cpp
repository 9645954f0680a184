// Draws the clip that the panel plays while files are copied, and writes it to the file that the
// command line names: sheets of paper leave one folder, fly over and slip into another one.

#include <chrono>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <numbers>
#include <vector>

#include "AviFile.h"
#include "ClipTiming.h"
#include "Picture.h"

namespace {

using clip::Leaning;
using clip::Picture;
using clip::Point;
using clip::Rgb;
using clip::RoundedRectangle;
using clip::Shape;
using clip::Turned;

constexpr int kPictures = 30;
constexpr std::chrono::microseconds kMicroseconds = clip::kPictureTime;  // that each is shown

// The size of the copy frame at 96 dpi, which is what the shapes are drawn for, and how many pixels
// of the clip make one of these: the clip is sharp up to 192 dpi.
constexpr int kWidth = 276;
constexpr int kHeight = 55;
constexpr int kUnit = 2;
// How many sheets are on their way at a time. After one round of the clip each has taken the place
// of the next, so that the end meets the beginning.
constexpr int kSheets = 3;

constexpr double kLeftFolder = 14;
constexpr double kRightFolder = 210;
constexpr double kFolderTop = 19;
constexpr double kFolderBottom = 51;
constexpr double kFolderWidth = 46;

struct FolderColours {
    Rgb Rim;
    Rgb Back;
    Rgb Front;
    Rgb Shine;
};
constexpr FolderColours kSource{{112, 72, 8}, {206, 146, 38}, {250, 198, 78}, {255, 226, 146}};
constexpr FolderColours kTarget{{10, 66, 84}, {34, 130, 150}, {74, 186, 200}, {152, 226, 232}};

// Draws a shape with a rim of one pixel round it.
void FillRimmed(Picture& picture, Point leftTop, Point rightBottom, double radius, double slope,
                Rgb rim, Rgb inside) {
    const auto shape = [&](double inset) {
        return Leaning(
            RoundedRectangle({leftTop.X + inset, leftTop.Y + inset},
                             {rightBottom.X - inset, rightBottom.Y - inset}, radius - inset / 2),
            rightBottom.Y, slope);
    };
    picture.Fill(shape(0), rim);
    picture.Fill(shape(1), inside);
}

void DrawFolderBack(Picture& picture, double left, const FolderColours& colours) {
    FillRimmed(picture, {left + 2, kFolderTop - 5}, {left + 20, kFolderTop + 6}, 2.5, 0,
               colours.Rim, colours.Back);
    FillRimmed(picture, {left, kFolderTop}, {left + kFolderWidth, kFolderBottom}, 2.5, 0,
               colours.Rim, colours.Back);
}

// `open` is how far the front leans out, in pixels at its upper edge.
void DrawFolderFront(Picture& picture, double left, double open, const FolderColours& colours) {
    const double top = kFolderTop + 8 + open / 4;
    const double slope = open / (kFolderBottom - top);
    FillRimmed(picture, {left, top}, {left + kFolderWidth, kFolderBottom}, 2.5, slope, colours.Rim,
               colours.Front);
    picture.Fill(
        Leaning(RoundedRectangle({left + 2, top + 2}, {left + kFolderWidth - 2, top + 3.4}, 0.7),
                kFolderBottom, slope),
        colours.Shine);
}

struct Pose {
    Point Centre;
    double Angle;
};

double Smooth(double t) {
    return t * t * (3 - 2 * t);
}

// From 0, deep in the first folder, to 1, deep in the second.
Pose PoseOf(double way) {
    constexpr double kInside = 38;   // the height of a sheet's middle in a folder
    constexpr double kOutside = 18;  // when it is just out of it
    constexpr double kLeaving = 0.22;
    const double from = kLeftFolder + kFolderWidth / 2 + 2;
    const double to = kRightFolder + kFolderWidth / 2 + 2;
    if (way < kLeaving) {
        return {{from, kInside + (kOutside - kInside) * Smooth(way / kLeaving)}, 0};
    }
    if (way > 1 - kLeaving) {
        return {{to, kInside + (kOutside - kInside) * Smooth((1 - way) / kLeaving)}, 0};
    }
    const double flight = (way - kLeaving) / (1 - 2 * kLeaving);
    const double swing = std::sin(flight * 2 * std::numbers::pi);
    return {
        {from + (to - from) * Smooth(flight), kOutside - 4 * std::sin(flight * std::numbers::pi)},
        0.30 * swing};
}

void DrawSheet(Picture& picture, const Pose& pose) {
    const Rgb rim{70, 84, 104};
    const Rgb paper{250, 252, 255};
    const Rgb fold{186, 200, 220};
    const Rgb text{120, 150, 190};
    const double left = pose.Centre.X - 9;
    const double top = pose.Centre.Y - 12;
    const auto fill = [&](const Shape& shape, Rgb colour) {
        picture.Fill(Turned(shape, pose.Centre, pose.Angle, 1), colour);
    };
    fill(RoundedRectangle({left, top}, {left + 18, top + 24}, 1.5), rim);
    fill(RoundedRectangle({left + 1, top + 1}, {left + 17, top + 23}, 0.8), paper);
    fill(RoundedRectangle({left + 12, top + 1}, {left + 17, top + 6}, 0.4), fold);
    for (int line = 0; line < 5; ++line) {
        const double y = top + 5 + 3.4 * line;
        const double right = left + (line == 0 ? 10 : line == 4 ? 11 : 15);
        fill(RoundedRectangle({left + 3, y}, {right, y + 1.3}, 0.5), text);
    }
}

// `time` goes from 0 to 1 over the clip.
Picture PictureAt(double time) {
    Picture picture(kWidth * kUnit, kHeight * kUnit, kUnit);
    DrawFolderBack(picture, kLeftFolder, kSource);
    DrawFolderBack(picture, kRightFolder, kTarget);
    for (int sheet = 0; sheet < kSheets; ++sheet) {
        DrawSheet(picture, PoseOf((sheet + time) / kSheets));
    }
    // The fronts breathe as sheets pass them.
    const double breath = 1.2 * std::sin(time * 2 * std::numbers::pi);
    DrawFolderFront(picture, kLeftFolder, 6.5 + breath, kSource);
    DrawFolderFront(picture, kRightFolder, 6.5 - breath, kTarget);
    return picture;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: MakeClip FILE\n";
        return 2;
    }
    std::vector<Picture> pictures;
    for (int i = 0; i < kPictures; ++i) {
        pictures.push_back(PictureAt(static_cast<double>(i) / kPictures));
    }
    std::ofstream file(argv[1], std::ios::binary);
    file << clip::AviFile(pictures, static_cast<std::uint32_t>(kMicroseconds.count()));
    file.close();
    if (!file) {
        std::cerr << "MakeClip: cannot write " << argv[1] << '\n';
        return 1;
    }
    return 0;
}
