#include <gesso/list/IndexRanges.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

using gesso::IndexRanges;
using gesso::NO_INDEX;

constexpr UINT LENGTH = 60;

// The same as a bit for each index.
struct Bits
{
    std::vector<bool> bits = std::vector<bool>(LENGTH);

    UINT Next(UINT from) const
    {
        const auto found = std::find(bits.begin() + std::min(from, LENGTH), bits.end(), true);
        return found == bits.end() ? NO_INDEX : static_cast<UINT>(found - bits.begin());
    }
    UINT Count() const { return static_cast<UINT>(std::count(bits.begin(), bits.end(), true)); }
    size_t Ranges() const
    {
        size_t ranges = 0;
        for (UINT i = 0; i < LENGTH; ++i) {
            ranges += bits[i] && (i == 0 || !bits[i - 1]) ? 1 : 0;
        }
        return ranges;
    }
    IndexRanges::Change Set(UINT first, UINT end, bool on)
    {
        IndexRanges::Change change;
        for (UINT i = first; i < end; ++i) {
            if (bits[i] != on) {
                change = {change.count + 1, change.mixed ^ i};
                bits[i] = on;
            }
        }
        return change;
    }
    void Insert(UINT first, UINT count)
    {
        bits.insert(bits.begin() + first, count, false);
        bits.resize(LENGTH);
    }
    void Erase(UINT first, UINT end)
    {
        bits.erase(bits.begin() + first, bits.begin() + end);
        bits.resize(LENGTH);
    }
};

IndexRanges::Change Difference(const Bits& a, const Bits& b)
{
    Bits copy = a;
    IndexRanges::Change change;
    for (UINT i = 0; i < LENGTH; ++i) {
        const auto one = copy.Set(i, i + 1, b.bits[i]);
        change = {change.count + one.count, change.mixed ^ one.mixed};
    }
    return change;
}

void ExpectSame(const IndexRanges::Change& a, const IndexRanges::Change& b)
{
    ASSERT_EQ(a.count, b.count);
    ASSERT_EQ(a.mixed, b.mixed);
}

TEST(IndexRangesTest, RangesAreWhatABitForEachIndexIs)
{
    std::mt19937 random(1);
    const auto below = [&random](UINT limit) { return static_cast<UINT>(random() % limit); };
    Bits bits, formerBits;
    IndexRanges ranges, former;
    for (int step = 0; step < 20'000; ++step) {
        const UINT first = below(LENGTH);
        const UINT end = first + below(LENGTH - first + 1);
        switch (below(5)) {
        case 0:
        case 1: ExpectSame(ranges.Add(first, end), bits.Set(first, end, true)); break;
        case 2: ExpectSame(ranges.Remove(first, end), bits.Set(first, end, false)); break;
        case 3:
            ranges.Insert(first, end - first);
            ranges.Remove(LENGTH, NO_INDEX);
            bits.Insert(first, end - first);
            break;
        default:
            ranges.Erase(first, end);
            bits.Erase(first, end);
            break;
        }
        ASSERT_TRUE(ranges.Check());
        ASSERT_EQ(ranges.Count(), bits.Count());
        ASSERT_EQ(ranges.Ranges(), bits.Ranges());
        for (UINT i = 0; i < LENGTH; ++i) {
            ASSERT_EQ(ranges.Has(i), bits.bits[i]);
            ASSERT_EQ(ranges.Next(i), bits.Next(i));
        }
        ExpectSame(ranges.DifferenceTo(former), Difference(bits, formerBits));
        if (below(8) == 0) {
            former = ranges;
            formerBits = bits;
        }
    }
}

TEST(IndexRangesTest, ManyIndicesAreFewRanges)
{
    IndexRanges ranges;
    EXPECT_EQ(ranges.Add(0, 4'000'000'000).count, 4'000'000'000);
    EXPECT_EQ(ranges.Ranges(), 1U);
    EXPECT_EQ(ranges.Remove(7, 8).mixed, 7U);
    EXPECT_EQ(ranges.Next(7), 8U);
    EXPECT_EQ(ranges.Erase(0, 3'999'999'999), 3'999'999'998U);
    EXPECT_EQ(ranges.Count(), 1U);
    EXPECT_EQ(ranges.Next(1), NO_INDEX);
}

} // namespace
