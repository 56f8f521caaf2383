#include <mirelfrw7/items/sparse_item_sizes.h>

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <vector>

namespace {

using mirelfrw7::CSparseItemSizes;

// Items of size 0 take no room, so a run of them may span more than an int: the search steps over it whole
// and lands on the range's start.
TEST(SparseItemSizes, FindFirstFittingOverRunsOfEmptyItemsWiderThanAnInt) {
    struct SCase {
        int from, to;
        std::int64_t room;
        int sizedItem, expected;
    };
    SCase const cases[] = {
        {INT_MIN, INT_MAX, 10, -1, INT_MIN}, {INT_MIN + 1, INT_MAX, 1, -1, INT_MIN + 1},
        {INT_MIN, INT_MAX, 10, 0, INT_MIN},  {INT_MIN, INT_MAX, 5, 0, 1},
        {INT_MIN, INT_MAX, 0, -1, INT_MAX},
    };
    for (SCase const& c : cases) {
        CSparseItemSizes sizes;
        if (c.sizedItem >= 0) sizes.Set(c.sizedItem, 5, 0);
        EXPECT_EQ(sizes.FindFirstFitting(c.from, c.to, c.room, 0), c.expected)
            << c.from << ".." << c.to << " in " << c.room;
    }
}

// Random changes against a plain array of every item's size, answer for answer: sizes, sums, the item at a
// pixel and the first item that fits, over ranges anywhere in the list. Enough entries to fill many blocks.
TEST(SparseItemSizes, AnswersAsAPlainArrayOfSizes) {
    struct SCase {
        unsigned seed;
        int items, defaultSize, minSize, maxSize, changes;
    };
    SCase const cases[] = {
        {1, 50, 20, 0, 40, 200},
        {2, 3000, 20, 1, 60, 3000},
        {3, 3000, 0, 0, 9, 2500},
        {4, 800, 5, 0, 5, 2000},
    };
    for (SCase const& c : cases) {
        SCOPED_TRACE(c.seed);
        std::mt19937 random(c.seed);
        auto pick = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
        std::vector<int> plain(std::size_t(c.items), c.defaultSize);
        CSparseItemSizes sizes;
        auto extent = [&](int from, int to) {
            std::int64_t sum = 0;
            for (int i = from; i < to; ++i)
                sum += plain[std::size_t(i)];
            return sum;
        };
        for (int step = 0; step < c.changes; ++step) {
            int const index = pick(0, c.items - 1), size = pick(c.minSize, c.maxSize);
            plain[std::size_t(index)] = size;
            sizes.Set(index, size, c.defaultSize);
            int const probe = pick(0, c.items - 1);
            ASSERT_EQ(sizes.Get(probe, c.defaultSize), plain[std::size_t(probe)]) << probe;

            int from = pick(0, c.items), to = pick(0, c.items);
            if (from > to) std::swap(from, to);
            ASSERT_EQ(sizes.Extent(from, to, c.defaultSize), extent(from, to)) << from << ".." << to;

            std::int64_t const pixel = pick(-2, int(extent(from, to)) + 2);
            int at = from;
            std::int64_t start = 0;
            while (at < to && start + plain[std::size_t(at)] <= pixel)
                start += plain[std::size_t(at++)];
            std::int64_t foundStart = -1;
            ASSERT_EQ(sizes.FindAt(from, to, pixel, c.defaultSize, &foundStart), at) << pixel;
            ASSERT_EQ(foundStart, start);

            std::int64_t const room = pick(-1, int(extent(from, to)) + 2);
            int first = to;
            while (room > 0 && first > from && extent(first - 1, to) < room)
                --first;
            ASSERT_EQ(sizes.FindFirstFitting(from, to, room, c.defaultSize), first) << room;
        }
        std::map<int, int> expected;
        for (int i = 0; i < c.items; ++i)
            if (plain[std::size_t(i)] != c.defaultSize) expected[i] = plain[std::size_t(i)];
        EXPECT_EQ(sizes.GetEntries(), expected);
    }
}

} // namespace
