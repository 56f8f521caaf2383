#include <mirelfrw7/items/sparse_item_sizes.h>

#include <gtest/gtest.h>

#include <climits>

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

} // namespace
