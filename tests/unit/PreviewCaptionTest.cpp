#include "app/preview/model/PreviewCaption.h"

#include <gtest/gtest.h>

#include <vector>

namespace ambrio {
namespace {

const std::wstring kSentence =
    L"This does more than just pootle around your screen; it actually backs up important files "
    L"for you as soon as you relax!    ";

std::vector<std::wstring> Captions(std::size_t count) {
    PreviewCaption caption;
    std::vector<std::wstring> captions;
    while (captions.size() < count) {
        if (const auto next = caption.Tick()) {
            captions.push_back(*next);
        }
    }
    return captions;
}

TEST(PreviewCaption, ChangesAtTheThirdTickAndThenAtEverySecond) {
    PreviewCaption caption;
    std::string changes;
    for (int tick = 1; tick <= 9; ++tick) {
        changes += caption.Tick() ? '*' : '-';
    }
    EXPECT_EQ(changes, "--*-*-*-*");
}

TEST(PreviewCaption, GrowsInAndThenMovesLeftThroughItsFirstFiftyUpdates) {
    ASSERT_EQ(kSentence.size(), 122U);
    const std::vector<std::wstring> captions = Captions(50);
    for (std::size_t update = 1; update <= 10; ++update) {
        EXPECT_EQ(captions[update - 1],
                  std::wstring(10 - update, L' ') + kSentence.substr(0, update));
    }
    for (std::size_t update = 11; update <= 50; ++update) {
        EXPECT_EQ(captions[update - 1], kSentence.substr(update - 10, 10));
    }
    EXPECT_EQ(captions[0], L"         T");
    EXPECT_EQ(captions[9], L"This does ");
    EXPECT_EQ(captions[10], L"his does m");
}

TEST(PreviewCaption, KeepsItsEndRightAlignedAndStartsOver) {
    const std::vector<std::wstring> captions = Captions(300);
    EXPECT_EQ(captions[121], L"relax!    ");
    EXPECT_EQ(captions[122], L" elax!    ");
    EXPECT_EQ(captions[129], L"          ");
    constexpr std::size_t kRound = 131;  // ten updates to grow in, 121 to move out
    EXPECT_EQ(captions[kRound - 1], L"          ");
    for (std::size_t update = 0; update < 150; ++update) {
        EXPECT_EQ(captions[kRound + update], captions[update]) << update;
    }
}

}  // namespace
}  // namespace ambrio
