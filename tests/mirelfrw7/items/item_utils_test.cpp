#include <mirelfrw7/items/default_column_view_model.h>
#include <mirelfrw7/items/default_discrete_item_view_model.h>
#include <mirelfrw7/items/item_utils.h>

#include <gtest/gtest.h>

namespace {

using namespace mirelfrw7;
using mirel7::range;

range<int> const None{-1, -1};

// `count` items of 20 pixels in a view of `view`, from `start`.
struct CRows : CDefaultDiscreteItemViewModel {
    CRows(int count, int view, int start) {
        SetCount(count);
        SetViewSize(view, false);
        SetStartItem(start);
    }
};

// `count` columns of 70 pixels in a view of `view`, at `offset`.
struct CColumns : CDefaultColumnViewModel {
    CColumns(int count, int view, int offset) {
        SetCount(count);
        SetViewSize(view, false);
        SetOffset(offset);
    }
};

TEST(ItemRanges, DiscreteItemsLieFromTheStartItemAndAreClippedToTheView) {
    CRows const model(10, 50, 2);
    struct SCase {
        int index;
        range<int> view, clipped, ex;
    } const cases[] = {
        {2, {0, 50}, {0, 19}, {0, 19}},   {4, {0, 50}, {40, 50}, {40, 50}},  {5, {0, 50}, None, None},
        {1, {0, 50}, None, None},         {10, {0, 50}, None, None},         {-1, {0, 50}, None, None},
        {2, {10, 30}, {10, 19}, {0, 19}}, {3, {10, 30}, {20, 30}, {20, 30}}, {4, {10, 30}, None, None},
    };
    for (SCase const& c : cases) {
        EXPECT_EQ(Utils::GetItemIndexRange(model, c.index, c.view), c.clipped) << c.index;
        EXPECT_EQ(Utils::GetItemIndexRangeEx(model, c.index, c.view), c.ex) << c.index;
    }
    EXPECT_EQ(Utils::GetItemRange(model, 45, {0, 50}), (range<int>{40, 50}));
    EXPECT_EQ(Utils::GetItemRange(model, 51, {0, 60}), None) << "beyond the view nothing is hit";
}

TEST(ItemRanges, TheWholeRangeCountsThePixelsBeforeTheStartFromTheSizes) {
    CRows model(10, 50, 2);
    EXPECT_EQ(Utils::GetWholeIndexRange(model, {0, 50}), (range<int>{-40, 50}));
    model.SetItemSize(0, 50);
    model.SetItemSize(7, 5);
    EXPECT_EQ(Utils::GetWholeIndexRange(model, {0, 50}), (range<int>{-70, 50}));

    CRows const shortList(3, 100, 0);
    EXPECT_EQ(Utils::GetWholeIndexRange(shortList, {0, 100}), (range<int>{0, 59}));
    EXPECT_EQ(Utils::GetWholeIndexRange(shortList, {0, 30}), (range<int>{0, 30}));
}

TEST(ItemRanges, AnExpandedLastItemReachesTheViewsEndWhereHitTestsFindIt) {
    CRows model(3, 100, 0);
    EXPECT_EQ(Utils::HitTest(model, 90), -1);
    model.SetLastItemExpanded(true);
    EXPECT_EQ(Utils::HitTest(model, 40), 2);
    EXPECT_EQ(Utils::HitTest(model, 99), 2);
    EXPECT_EQ(Utils::HitTest(model, 100), -1) << "the view's last position is past every item's last pixel";
    EXPECT_EQ(Utils::GetItemIndexRange(model, 2, {0, 100}), (range<int>{40, 99}));
    EXPECT_EQ(Utils::GetItemIndexRange(model, 1, {0, 100}), (range<int>{20, 39}));
    EXPECT_EQ(Utils::GetWholeIndexRange(model, {0, 100}), (range<int>{0, 99}));
    EXPECT_EQ(Utils::GetItemRange(model, 70, {0, 100}), (range<int>{40, 99}));

    CRows single(1, 100, 0);
    single.SetLastItemExpanded(true);
    EXPECT_EQ(Utils::HitTest(single, 99), 0) << "a single item is the first and the last";
}

TEST(ItemRanges, ContinuousItemsMayBeCutOffAtTheStart) {
    CColumns const model(5, 100, 30);
    struct SCase {
        int index;
        range<int> clipped, ex;
    } const cases[] = {
        {0, {0, 39}, {-30, 39}}, {1, {40, 100}, {40, 100}}, {2, None, None},
        {5, None, None},         {-1, None, None},
    };
    for (SCase const& c : cases) {
        EXPECT_EQ(Utils::GetItemIndexRange(model, c.index, {0, 100}), c.clipped) << c.index;
        EXPECT_EQ(Utils::GetItemIndexRangeEx(model, c.index, {0, 100}), c.ex) << c.index;
    }
    EXPECT_EQ(Utils::GetWholeIndexRange(model, {0, 100}), (range<int>{-30, 100}));
    EXPECT_EQ(Utils::GetItemRange(model, 0, {0, 100}), (range<int>{0, 39}));

    CColumns const atEnd(5, 100, 250);
    EXPECT_EQ(Utils::GetWholeIndexRange(atEnd, {0, 100}), (range<int>{-250, 99}));
    EXPECT_EQ(Utils::GetWholeIndexRange(CColumns(0, 100, 0), {0, 100}), None);
}

TEST(ItemSums, SizesStopAtTheCountAndOffsetsDoNot) {
    CRows const rows(10, 50, 0);
    EXPECT_EQ(Utils::GetItemsSize(rows, 8, 30), 40);
    EXPECT_EQ(Utils::GetItemsSize(rows, 7, 3), 80);
    EXPECT_EQ(Utils::GetItemsSize(rows, 5, 5), 0);
    CColumns const columns(5, 100, 0);
    EXPECT_EQ(Utils::GetItemOffset(columns, -3), 0);
    EXPECT_EQ(Utils::GetItemOffset(columns, 0), 0);
    EXPECT_EQ(Utils::GetItemOffset(columns, 3), 210);
    EXPECT_EQ(Utils::GetItemOffset(columns, 7), 490);
}

} // namespace
