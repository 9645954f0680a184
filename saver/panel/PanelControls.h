#pragma once

#include <array>

#include "engine/StatusPanel.h"

namespace ambrio {

// The control ids of the panel's windows. The changing labels come first, in the order of
// PanelLabel.
enum class PanelControl : int {
    lblSet = 1001,
    lblSource,
    lblDest,
    lblFile,
    lblChecked,
    lblcopied,
    lblRemoved,
    lblfsoStatus,
    zblFixed0,
    zblFixed1,
    zblFixed2,
    zblFixed3,
    zblFixed4,
    zblFixed5,
    Label1,
    Label2,
    fraStatus,
    fraAni,
    Animation1,
};

// The control that shows a changing label.
[[nodiscard]] constexpr PanelControl ControlOf(PanelLabel label) {
    return static_cast<PanelControl>(static_cast<int>(PanelControl::lblSet) +
                                     static_cast<int>(label));
}

enum class TextAlignment { Left, Centre, Right };

// Where a control lies, in twips relative to fraStatus (fraStatus itself: to the form).
struct TwipsRect {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;

    friend bool operator==(const TwipsRect&, const TwipsRect&) = default;
};

// What a label of the panel shows before a run, and where.
struct PanelLabelDesign {
    PanelControl Control;
    const wchar_t* Caption;  // null: the slogan, from the string resources
    TwipsRect Place;
    TextAlignment Alignment;
    bool IsFixed;  // explains another label and never changes
};

inline constexpr const wchar_t* kPanelDesignTitle = L"Ambrio";
inline constexpr TwipsRect kStatusFramePlace{0, 0, 6165, 2745};
inline constexpr TwipsRect kCopyFramePlace{1935, 1650, 4140, 825};

// Some of the boxes overlap; their texts do not. Fixed labels are drawn first.
inline constexpr std::array<PanelLabelDesign, 16> kPanelLabels{{
    {PanelControl::zblFixed0, L"Set:", {120, 240, 900, 345}, TextAlignment::Left, true},
    {PanelControl::zblFixed1, L"Source:", {120, 635, 900, 345}, TextAlignment::Left, true},
    {PanelControl::zblFixed2, L"Destination:", {120, 1030, 900, 345}, TextAlignment::Left, true},
    {PanelControl::zblFixed3, L"File:", {120, 1455, 900, 345}, TextAlignment::Left, true},
    {PanelControl::zblFixed4, L"Files checked:", {120, 1920, 1035, 300}, TextAlignment::Left, true},
    {PanelControl::zblFixed5, L"Files copied:", {120, 2160, 1440, 300}, TextAlignment::Left, true},
    {PanelControl::Label2, L"Copies removed:", {120, 2400, 1320, 300}, TextAlignment::Left, true},
    {PanelControl::Label1, nullptr, {2295, 2475, 3780, 240}, TextAlignment::Right, true},
    {PanelControl::lblSet, L"-", {1155, 240, 4740, 405}, TextAlignment::Left, false},
    {PanelControl::lblSource, L"-", {1140, 640, 4740, 410}, TextAlignment::Left, false},
    {PanelControl::lblDest, L"-", {1140, 1040, 4740, 410}, TextAlignment::Left, false},
    {PanelControl::lblFile, L"-", {1140, 1440, 4740, 405}, TextAlignment::Left, false},
    {PanelControl::lblChecked, L"0", {1110, 1905, 750, 300}, TextAlignment::Right, false},
    {PanelControl::lblcopied, L"0", {1110, 2145, 750, 300}, TextAlignment::Right, false},
    {PanelControl::lblRemoved, L"0", {1395, 2385, 465, 300}, TextAlignment::Right, false},
    {PanelControl::lblfsoStatus, L"Label3", {2985, 2070, 2445, 240}, TextAlignment::Centre, false},
}};

}  // namespace ambrio
