#pragma once

#include <array>

namespace ambrio {

// What Wine does not do as Windows does it, also with the module that answers for it where it can,
// by the test that would find it. A real Windows runs every test.
struct WineGap {
    const char* Test;
    const char* Reason;
};

inline constexpr std::array<WineGap, 8> kWineGaps{{
    {"LinksToFoldersAreFollowedAndMarked", "links cannot be made"},
    {"ALinkToAFileIsDescribedByItsTargetAndDeletedAlone", "links cannot be made"},
    {"ALinkThatLeadsNowhereSaysSo", "links cannot be made"},
    {"AnotherUsersLinksAreNotFollowed", "links cannot be made"},
    {"TheFirstSecondOfTheCalendarIsKept", "the system below may not go back beyond 1901"},
    {"ANameThatIsTooLongIsABadName", "it counts as a missing file"},
    {"NamesWithALoneSurrogate", "the system below has names in UTF-8"},
    {"PathsCloseToTheSystemsLimit", "the system below takes paths of 4096 bytes at most"},
}};

}  // namespace ambrio
