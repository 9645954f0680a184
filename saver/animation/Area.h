#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace ambrio {

// A rectangle in any measure; right and bottom are the first places outside.
struct Area {
    std::int32_t Left = 0;
    std::int32_t Top = 0;
    std::int32_t Right = 0;
    std::int32_t Bottom = 0;

    [[nodiscard]] bool IsEmpty() const { return Left >= Right || Top >= Bottom; }

    bool operator==(const Area&) const = default;
};

// What two areas share; empty when they do not touch.
[[nodiscard]] Area Shared(const Area& one, const Area& other);

// The parts of the areas that lie inside `frame`, in places relative to its top left corner. None
// is empty.
[[nodiscard]] std::vector<Area> PartsInside(std::span<const Area> areas, const Area& frame);

// What of the areas lies outside `frame`, in as few parts as may be, without overlaps as long as
// the areas have none. None is empty.
[[nodiscard]] std::vector<Area> PartsOutside(std::span<const Area> areas, const Area& frame);

// A stretch along one axis; `To` is the first place outside.
struct Stretch {
    std::int32_t From = 0;
    std::int32_t To = 0;

    bool operator==(const Stretch&) const = default;
};

// How far something can be moved to the left and to the right with all of it, from `rows.From` to
// `rows.To`, staying on the areas: the stretch that `at` lies in, or else the nearest one. Empty
// where some of these rows are on no area at all, and when there are none.
[[nodiscard]] Stretch FreeAcross(std::span<const Area> areas, const Stretch& rows, std::int32_t at);

// The areas with across and down exchanged.
[[nodiscard]] std::vector<Area> Turned(std::span<const Area> areas);

}  // namespace ambrio
