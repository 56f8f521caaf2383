#include <mirelfrw7/items/equal_items_view_model.h>
#include <mirelfrw7/items/item_utils.h>
#include <mirelfrw7/items/non_equal_items_view_model.h>

#include "model_journal.h"

#include <gtest/gtest.h>

namespace {

using namespace mirelfrw7;
using mirel_test::CModelJournal;
using Ranges = std::vector<std::pair<int, int>>;

// Ten tabs of at least 50 and at most 100 pixels over 320 pixels: six fit, 53 pixels each.
TEST(EqualItemsViewModel, SharesTheViewAmongTheItemsThatFitAtTheMinimumSize) {
    CEqualItemsViewModel model;
    model.SetCount(10);
    model.SetViewSize(320, false);
    EXPECT_EQ(model.GetDefaultItemSize(), 53);
    EXPECT_EQ(model.GetStartItem(), 0);
    model.SetDefaultItemSize(20);
    EXPECT_EQ(model.GetDefaultItemSize(), 53) << "the size is computed";
    model.SetCount(3);
    EXPECT_EQ(model.GetDefaultItemSize(), 100) << "no larger than the maximum";
}

TEST(EqualItemsViewModel, ThePinnedItemStaysInViewWhenTheItemsGrow) {
    CEqualItemsViewModel model;
    model.SetPinnedItem(8);
    model.SetCount(10);
    model.SetViewSize(320, false);
    EXPECT_EQ(model.GetStartItem(), 3);
    EXPECT_EQ(Utils::GetLastVisibleItem(model), 8);
}

TEST(EqualItemsViewModel, WithoutAPinnedItemTheSelectionsCurrentItemStaysInView) {
    mirel_test::CCurrentOnly selection;
    CEqualItemsViewModel model;
    model.SetSelectionModel(&selection);
    model.SetCount(10);
    model.SetViewSize(320, false);
    selection.current = 9;
    model.UpdateView();
    EXPECT_EQ(model.GetStartItem(), 4);
    selection.current = 1;
    model.UpdateView();
    EXPECT_EQ(model.GetStartItem(), 1);
    model.SetPinnedItem(0);
    model.UpdateView();
    EXPECT_EQ(model.GetStartItem(), 0) << "the pinned item comes first";
}

TEST(EqualItemsViewModel, MarksThePartlyCoveredItemAtTheEndWhenTheStartFalls) {
    CEqualItemsViewModel model;
    model.SetCount(10);
    model.SetViewSize(320, false);
    model.SetStartItem(3);
    model.OnEndDraw();
    model.SetStartItem(2);
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{2, 2}, {8, 9}}));
    model.OnEndDraw();
    CModelJournal journal(model);
    model.SetViewSize(320, false);
    model.SetCount(10);
    EXPECT_TRUE(journal.entries.empty()) << "unchanged sizes and counts do nothing";
    EXPECT_TRUE(model.GetUpdates().GetRanges().empty());
}

TEST(EqualItemsViewModel, AMinimumSizeBelowOneComputesNothing) {
    CEqualItemsViewModel model;
    model.SetMinItemSize(0);
    model.SetCount(10);
    model.SetViewSize(320, false);
    EXPECT_EQ(model.GetDefaultItemSize(), 20);
    model.SetMinItemSize(50);
    model.SetViewSize(321, false);
    EXPECT_EQ(model.GetDefaultItemSize(), 53);
}

// Fifty rows of 20 pixels in a view of 100.
struct CNonEqualRows : CNonEqualItemsViewModel {
    CNonEqualRows() {
        SetCount(50);
        SetViewSize(100, false);
        OnEndDraw();
    }
};

TEST(NonEqualItemsViewModel, BringsThePinnedItemIntoViewFromEitherSide) {
    CNonEqualRows model;
    model.SetPinnedItem(20);
    model.UpdateView();
    EXPECT_EQ(model.GetStartItem(), 17) << "at the view's end, with one item of blank";
    model.SetPinnedItem(5);
    model.UpdateView();
    EXPECT_EQ(model.GetStartItem(), 5);
    model.SetPinnedItem(-1);
    model.SetStartItem(30);
    model.UpdateView();
    EXPECT_EQ(model.GetStartItem(), 30) << "nothing pinned: the start stays";
}

TEST(NonEqualItemsViewModel, MarksTheItemsAroundTheViewsEnd) {
    CNonEqualRows model;
    model.SetStartItem(17);
    model.OnEndDraw();
    model.SetViewSize(60, false);
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{50, 50}, {18, 20}}));
    model.OnEndDraw();
    model.SetStartItem(10);
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{10, 16}, {0, 50}, {12, 13}}));
}

} // namespace
