#include "saver/animation/Area.h"

#include <algorithm>
#include <limits>

namespace ambrio {
namespace {

// Sorted and without overlaps; neighbours that touch are one.
using Stretches = std::vector<Stretch>;

Stretches Joined(Stretches stretches) {
    std::sort(stretches.begin(), stretches.end(),
              [](const Stretch& one, const Stretch& other) { return one.From < other.From; });
    Stretches joined;
    for (const Stretch& next : stretches) {
        if (!joined.empty() && next.From <= joined.back().To) {
            joined.back().To = std::max(joined.back().To, next.To);
        } else {
            joined.push_back(next);
        }
    }
    return joined;
}

Stretches Shared(const Stretches& one, const Stretches& other) {
    Stretches shared;
    for (const Stretch& a : one) {
        for (const Stretch& b : other) {
            if (std::max(a.From, b.From) < std::min(a.To, b.To)) {
                shared.push_back({std::max(a.From, b.From), std::min(a.To, b.To)});
            }
        }
    }
    return shared;
}

// What the areas that hold all these rows cover of them.
Stretches CoveredIn(std::span<const Area> areas, const Stretch& rows) {
    Stretches covered;
    for (const Area& area : areas) {
        if (area.Top <= rows.From && rows.To <= area.Bottom) {
            covered.push_back({area.Left, area.Right});
        }
    }
    return Joined(covered);
}

// The rows at which the areas begin and end, within `rows`, and the ends of these.
std::vector<std::int32_t> EdgesIn(std::span<const Area> areas, const Stretch& rows) {
    std::vector<std::int32_t> edges{rows.From, rows.To};
    for (const Area& area : areas) {
        for (const std::int32_t edge : {area.Top, area.Bottom}) {
            if (rows.From < edge && edge < rows.To) {
                edges.push_back(edge);
            }
        }
    }
    std::sort(edges.begin(), edges.end());
    return edges;
}

std::int64_t Distance(const Stretch& stretch, std::int32_t at) {
    return std::max(
        {std::int64_t{stretch.From} - at, std::int64_t{at} - stretch.To + 1, std::int64_t{0}});
}

}  // namespace

Area Shared(const Area& one, const Area& other) {
    const Area shared{std::max(one.Left, other.Left), std::max(one.Top, other.Top),
                      std::min(one.Right, other.Right), std::min(one.Bottom, other.Bottom)};
    return shared.IsEmpty() ? Area{} : shared;
}

std::vector<Area> PartsInside(std::span<const Area> areas, const Area& frame) {
    std::vector<Area> parts;
    for (const Area& area : areas) {
        const Area part = Shared(area, frame);
        if (!part.IsEmpty()) {
            parts.push_back({part.Left - frame.Left, part.Top - frame.Top, part.Right - frame.Left,
                             part.Bottom - frame.Top});
        }
    }
    return parts;
}

std::vector<Area> PartsOutside(std::span<const Area> areas, const Area& frame) {
    std::vector<Area> parts;
    for (const Area& area : areas) {
        const Area inside = Shared(area, frame);
        if (inside.IsEmpty()) {
            parts.push_back(area);
            continue;
        }
        for (const Area& part : {Area{area.Left, area.Top, area.Right, inside.Top},
                                 Area{area.Left, inside.Top, inside.Left, inside.Bottom},
                                 Area{inside.Right, inside.Top, area.Right, inside.Bottom},
                                 Area{area.Left, inside.Bottom, area.Right, area.Bottom}}) {
            if (!part.IsEmpty()) {
                parts.push_back(part);
            }
        }
    }
    return parts;
}

Stretch FreeAcross(std::span<const Area> areas, const Stretch& rows, std::int32_t at) {
    if (rows.From >= rows.To) {
        return {};
    }
    using Limits = std::numeric_limits<std::int32_t>;
    Stretches free{{Limits::min(), Limits::max()}};
    const std::vector<std::int32_t> edges = EdgesIn(areas, rows);
    for (std::size_t i = 0; i + 1 < edges.size(); ++i) {
        if (edges[i] < edges[i + 1]) {
            free = Shared(free, CoveredIn(areas, {edges[i], edges[i + 1]}));
        }
    }
    const auto nearest =
        std::min_element(free.begin(), free.end(), [at](const Stretch& one, const Stretch& other) {
            return Distance(one, at) < Distance(other, at);
        });
    return nearest == free.end() ? Stretch{} : *nearest;
}

std::vector<Area> Turned(std::span<const Area> areas) {
    std::vector<Area> turned;
    for (const Area& area : areas) {
        turned.push_back({area.Top, area.Left, area.Bottom, area.Right});
    }
    return turned;
}

}  // namespace ambrio
