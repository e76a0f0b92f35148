// Where the parts of a scroll bar lie and what they look like, without a window.

#include <gesso/framework/ScrollBarLook.h>

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

using namespace gesso;

// The part that is painted at a distance from the bar's start; what is painted later lies above.
WORD PaintedAt(const BarTraits& traits, const BarLayout& layout, int nAt)
{
    const POINT pt = IsVertical(traits) ? POINT{0, nAt} : POINT{nAt, 0};
    if (PtInRect(&layout.rcThumb, pt)) {
        return traits.wThumb;
    }
    if (PtInRect(&layout.rcLast, pt)) {
        return traits.wLast;
    }
    return PtInRect(&layout.rcFirst, pt) ? traits.wFirst : WORD{0};
}

TEST(ScrollBarParts, WhatIsPaintedIsWhatIsHit)
{
    std::mt19937 random(5);
    for (int n = 0; n < 200; n++) {
        const BarTraits& traits = BARS[n % 2];
        const int nArrow = static_cast<int>(random() % 20 + 1);
        const int nThumbLength = static_cast<int>(random() % 40 + 1);
        const int nThumb = nArrow + static_cast<int>(random() % 60);
        const int nLength = nThumb + nThumbLength + nArrow + static_cast<int>(random() % 60);
        const BarStops stops{nLength, nArrow, nThumb, nThumbLength};
        const BarLayout layout =
            LayOutBar(traits, IsVertical(traits) ? RECT{0, 0, 9, nLength} : RECT{0, 0, nLength, 9}, stops);
        for (int nAt = 0; nAt < nLength; nAt++) {
            const WORD wBare = nAt < nThumb ? traits.wPageFirst : traits.wPageLast;
            const WORD wPainted = PaintedAt(traits, layout, nAt);
            // The ends of the thumb and of the track are hit one pixel farther than they are painted.
            const bool fEnd = nAt == nThumb + nThumbLength || nAt == nLength - nArrow;
            EXPECT_TRUE(fEnd || PartAt(traits, stops, nAt) == (wPainted ? wPainted : wBare)) << nAt;
        }
    }
}

TEST(ScrollBarParts, ThumbThatIsTooSmallTakesFromItsTrack)
{
    int nTrack = 100;
    int nLength = 5;
    EnlargeThumb(17, &nTrack, &nLength);
    EXPECT_EQ(std::pair(nTrack, nLength), std::pair(88, 17));
    EnlargeThumb(17, &nTrack, &nLength);
    EXPECT_EQ(std::pair(nTrack, nLength), std::pair(88, 17)) << "large enough";
}

TEST(ScrollBarParts, EachShowsWhatThePointerDoes)
{
    const auto states = [](WORD wDown, WORD wNow, DWORD dwFlags = 0, bool fHovers = true) {
        const BarStates bar = StatesOf(BARS[SB_VERT], {wDown, wNow}, dwFlags, fHovers);
        return std::to_string(bar.nTrack) + " " + std::to_string(bar.nFirst) + " " +
               std::to_string(bar.nLast) + " " + std::to_string(bar.nThumb);
    };
    EXPECT_EQ(states(0, 0), "1 4 8 1") << "idle arrows look disabled";
    EXPECT_EQ(states(SBH_LEFT, SBH_LEFT), "1 4 8 1") << "the other bar's";
    EXPECT_EQ(states(0, SBH_ABOVE), "1 17 18 5");
    EXPECT_EQ(states(0, SBH_UP), "1 2 18 5");
    EXPECT_EQ(states(SBH_UP, SBH_UP), "1 3 18 5");
    EXPECT_EQ(states(SBH_UP, 0), "1 2 5 1") << "held, from outside";
    EXPECT_EQ(states(SBH_UP, SBH_DOWN), "1 2 18 5") << "the other arrow is not hot";
    EXPECT_EQ(states(0, SBH_VTHUMB), "1 17 18 2");
    EXPECT_EQ(states(SBH_VTHUMB, 0), "1 1 5 3");
    EXPECT_EQ(states(SBH_UP, SBH_UP, GSB_DISABLED), "4 4 8 1");
    EXPECT_EQ(states(0, SBH_UP, GSB_DISABLE_FIRST), "1 4 18 5");
    EXPECT_EQ(states(SBH_VTHUMB, SBH_VTHUMB, GSB_DISABLE_THUMB), "1 17 18 1");
    EXPECT_EQ(states(0, SBH_ABOVE, 0, false), "1 1 5 1") << "a bar that does not hover";
    EXPECT_EQ(states(SBH_UP, SBH_UP, 0, false), "1 3 5 1");
}

} // namespace
