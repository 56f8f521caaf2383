#include <mirelfrw7/items/default_discrete_item_view_model.h>
#include <mirelfrw7/items/equal_items_view_model.h>
#include <mirelfrw7/items/item_utils.h>

#include <mirel7/headless/headless_system.h>

#include "model_journal.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <random>

namespace {

using namespace mirelfrw7;
using mirel_test::CModelJournal;
using Ranges = std::vector<std::pair<int, int>>;
using Entries = std::map<int, int>;

// A model of `count` items of 20 pixels in a view of `view`, at `start`, with an empty update list.
struct CRows : CDefaultDiscreteItemViewModel {
    CRows(int count, int view, int start = 0) {
        SetCount(count);
        SetViewSize(view, false);
        SetStartItem(start);
        OnEndDraw();
    }
};

TEST(DiscreteViewModel, StartsEmptyUnlaidAndAllDirtyWithSizesScaledForTheDisplay) {
    {
        CDefaultDiscreteItemViewModel model;
        EXPECT_EQ(model.GetCount(), 0);
        EXPECT_EQ(model.GetViewSize(), -1);
        EXPECT_EQ(model.GetStartItem(), 0);
        EXPECT_EQ(model.GetDefaultItemSize(), 20) << "no system: scale 1";
        EXPECT_EQ(model.GetItemType(1000000), IDirtyItemSet::DirtyItem);
    }
    mirel7::headless::CHeadlessSystem system;
    system.SetDPIScale(1.37);
    EXPECT_EQ(CDefaultDiscreteItemViewModel().GetDefaultItemSize(), 27) << "truncated";
    CEqualItemsViewModel equal;
    EXPECT_EQ(equal.GetMinItemSize(), 68);
    EXPECT_EQ(equal.GetMaxItemSize(), 137);
}

TEST(DiscreteViewModel, AnEmptyModelHitsNothingAndStaysAtItsStart) {
    CRows model(0, 100);
    for (int pos : {-1, 0, 50, 100, 101})
        EXPECT_EQ(Utils::HitTest(model, pos), -1) << pos;
    EXPECT_EQ(Utils::GetLastVisibleItem(model), 0);
    EXPECT_EQ(Utils::CalcMaxStart(model), 0);
    EXPECT_EQ(Utils::GetWholeIndexRange(model, {0, 100}), (mirel7::range<int>{-1, -1}));
}

// When the items exactly fill the view, the last start is one item later than it could be.
TEST(DiscreteViewModel, CalcStartLeavesOneItemOfBlankOnAnExactFit) {
    struct SCase {
        int view, last, start;
    } const cases[] = {
        {40, 9, 9}, {41, 9, 8},  {39, 9, 9}, {60, 9, 8},  {61, 9, 7}, {20, 9, 9},
        {10, 9, 9}, {500, 9, 0}, {40, 0, 0}, {40, -1, 0}, {-1, 9, 9},
    };
    for (SCase const& c : cases) {
        CRows model(10, c.view);
        EXPECT_EQ(Utils::CalcStart(model, c.last), c.start) << "view " << c.view << " last " << c.last;
    }
}

TEST(DiscreteViewModel, ScrollingByOneRowShiftsTheScreenAndMarksWhatComesIn) {
    CRows model(100, 100);
    CModelJournal journal(model);
    journal.snapshot = [&] { return std::to_string(model.GetStartItem()); };
    model.SetStartItem(1);
    EXPECT_EQ(journal.Take(), (std::vector<std::string>{"scrolled 0 -20 1", "changed 1"}))
        << "the start is stored before the signals";
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{5, 99}}));

    model.OnEndDraw();
    model.SetStartItem(0);
    EXPECT_EQ(journal.Take(), (std::vector<std::string>{"scrolled 0 20 0", "changed 0"}));
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{0, 0}}));

    model.OnEndDraw();
    journal.answer = false;
    model.SetStartItem(2);
    EXPECT_EQ(journal.Take(), (std::vector<std::string>{"scrolled 0 -40 refused 2", "changed 2"}));
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{5, 99}, {0, 100}})) << "a refused shift repaints all";
}

TEST(DiscreteViewModel, AFarJumpRepaintsEverythingAndClampsAtTheLastStart) {
    CRows model(100, 100);
    CModelJournal journal(model);
    model.SetStartItem(1000);
    EXPECT_EQ(model.GetStartItem(), 96);
    EXPECT_EQ(journal.Take(), (std::vector<std::string>{"scrolled 0 1 refused", "changed"}));
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{5, 99}, {0, 100}}));

    model.OnEndDraw();
    model.SetStartItem(96);
    EXPECT_TRUE(journal.entries.empty()) << "the same start does nothing";
    model.SetStartItem(97);
    EXPECT_TRUE(journal.entries.empty()) << "a start clamped back to where it was is no scroll";
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{99, 100}}))
        << "but what lies behind the old last item is marked anyway, with the reversed range turned";
    model.SetStartItem(-5);
    EXPECT_EQ(model.GetStartItem(), 0);
}

TEST(DiscreteViewModel, BeforeTheFirstLayoutTheStartIsOnlyClampedAtZero) {
    CDefaultDiscreteItemViewModel model;
    model.SetCount(10);
    model.SetStartItem(1000);
    EXPECT_EQ(model.GetStartItem(), 1000);
    model.SetStartItem(-3);
    EXPECT_EQ(model.GetStartItem(), 0);
    model.SetViewSize(0, false);
    model.SetStartItem(50);
    EXPECT_EQ(model.GetStartItem(), 50) << "an empty view does not clamp either";
}

TEST(DiscreteViewModel, AViewGrowingAtTheEndPullsTheStartBack) {
    CRows model(100, 100, 96);
    CModelJournal journal(model);
    journal.snapshot = [&] { return std::to_string(model.GetViewSize()); };
    model.SetViewSize(140, false);
    EXPECT_EQ(model.GetStartItem(), 94);
    EXPECT_EQ(journal.Take(), (std::vector<std::string>{"scrolled 0 40 140", "changed 140", "changed 140"}));
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{94, 95}, {100, 100}}));

    CRows top(100, 100);
    top.SetViewSize(140, false);
    EXPECT_EQ(top.GetStartItem(), 0);
    EXPECT_EQ(top.GetUpdates().GetRanges(), (Ranges{{5, 100}, {100, 100}})) << "from the old end on";

    top.OnEndDraw();
    top.SetViewSize(100, false);
    EXPECT_EQ(top.GetUpdates().GetRanges(), (Ranges{{100, 100}})) << "shrinking marks the empty area only";
    top.OnEndDraw();
    CModelJournal topJournal(top);
    top.SetViewSize(100, true);
    EXPECT_EQ(top.GetUpdates().GetRanges(), (Ranges{{0, 100}}));
    EXPECT_TRUE(topJournal.entries.empty()) << "forcing an unchanged size announces nothing";
}

TEST(DiscreteViewModel, CountAndDefaultSizeAlwaysRepaintAll) {
    CRows model(100, 100, 50);
    CModelJournal journal(model);
    journal.snapshot = [&] {
        return std::to_string(model.GetCount()) + "/" + std::to_string(model.GetStartItem());
    };
    model.SetCount(60);
    EXPECT_EQ(model.GetStartItem(), 50) << "a start still below the count stays";
    journal.Take();
    model.SetCount(10);
    EXPECT_EQ(journal.Take(),
              (std::vector<std::string>{"scrolled 0 1 refused 10/0", "changed 10/0", "changed 10/0"}));
    model.OnEndDraw();
    model.SetDefaultItemSize(25);
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{0, INT_MAX}}));
    EXPECT_EQ(journal.Take(), (std::vector<std::string>{"changed 10/0"}));
    model.SetCount(-4);
    EXPECT_EQ(model.GetCount(), 0);
}

TEST(DiscreteViewModel, AResizedItemShiftsWhatFollowsWhileTheOldSizeIsInForce) {
    CRows model(100, 200);
    CModelJournal journal(model);
    journal.snapshot = [&] { return std::to_string(model.GetItemSize(2)); };
    model.SetItemSize(2, 40);
    EXPECT_EQ(journal.Take(), (std::vector<std::string>{"scrolled 60 20 20", "changed 40"}));
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{2, 4}, {9, 100}}));

    model.OnEndDraw();
    journal.answer = false;
    model.SetItemSize(2, 30);
    EXPECT_EQ(journal.Take(), (std::vector<std::string>{"scrolled 80 -10 refused 40", "changed 30"}));
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{2, 100}}));

    model.OnEndDraw();
    model.SetItemSize(2, 30);
    EXPECT_TRUE(journal.entries.empty());
    model.SetItemSize(8, 50);
    EXPECT_EQ(journal.Take(), (std::vector<std::string>{"changed 30"})) << "near the view's end: no shift";
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{8, 100}}));
}

TEST(DiscreteViewModel, ASizeBelowOneRestoresTheDefaultAndDropsTheEntry) {
    CRows model(100, 200);
    model.SetItemSize(3, 50);
    model.SetItemSize(5, 20);
    EXPECT_EQ(model.GetItemSizes().GetEntries(), (Entries{{3, 50}}));
    model.SetItemSize(3, 0);
    EXPECT_EQ(model.GetItemSize(3), 20);
    EXPECT_TRUE(model.GetItemSizes().GetEntries().empty());
    model.SetItemSize(4, -7);
    EXPECT_TRUE(model.GetItemSizes().GetEntries().empty());
}

TEST(DiscreteViewModel, ShrinkingItemsAtTheEndPullsTheStartBackFirst) {
    CRows model(10, 100);
    model.SetItemSize(9, 200);
    model.SetStartItem(9);
    EXPECT_EQ(model.GetStartItem(), 9);
    CModelJournal journal(model);
    journal.snapshot = [&] {
        return std::to_string(model.GetStartItem()) + ":" + std::to_string(model.GetItemSize(9));
    };
    model.SetItemSize(9, 0);
    EXPECT_EQ(journal.Take(), (std::vector<std::string>{"changed 9:20"}));
    // The last start was still computed with the old size: the model catches up at the next change.
    model.SetItemSize(0, 0);
    EXPECT_EQ(model.GetStartItem(), 6);
}

TEST(DiscreteViewModel, TranslationsCarryTheStartAndTheSizesAlong) {
    CRows model(100, 100, 10);
    model.SetItemSize(12, 30);
    model.SetItemSize(20, 40);
    model.SetItemSize(21, 50);
    CModelJournal journal(model);
    journal.snapshot = [&] {
        return std::to_string(model.GetStartItem()) + ":" + std::to_string(model.GetItemSize(17));
    };

    auto removed = mirel_test::AddRemove(11, -9); // items 12..20 go
    model.UpdateModelState(&removed);
    EXPECT_EQ(model.GetStartItem(), 10);
    EXPECT_EQ(model.GetItemSizes().GetEntries(), (Entries{{12, 50}}));
    EXPECT_EQ(journal.Take(), (std::vector<std::string>{"changed 10:20"}));

    auto added = mirel_test::AddRemove(5, 5);
    model.UpdateModelState(&added);
    EXPECT_EQ(model.GetStartItem(), 15);
    EXPECT_EQ(model.GetItemSizes().GetEntries(), (Entries{{17, 50}}));
    EXPECT_EQ(journal.Take(), (std::vector<std::string>{"changed 15:20", "changed 15:50"}))
        << "the start's announcement comes before the sizes moved";

    // Two entries landing on one index: the later one wins.
    model.SetItemSize(18, 60);
    auto merge = mirel_test::CFunctionTranslator([](int i, bool*) { return i == 18 ? 17 : i; });
    model.UpdateModelState(&merge);
    EXPECT_EQ(model.GetItemSizes().GetEntries(), (Entries{{17, 60}}));

    auto far = mirel_test::AddRemove(0, 1000);
    journal.Take();
    model.UpdateModelState(&far);
    EXPECT_EQ(model.GetStartItem(), 96) << "no further than the last start";

    auto front = mirel_test::AddRemove(-1, -200);
    model.UpdateModelState(&front);
    EXPECT_EQ(model.GetStartItem(), 0) << "the first items gone: -1 is no start";

    auto ignored = mirel_test::CFunctionTranslator([](int i, bool*) { return i + 3; }, false);
    journal.Take();
    model.UpdateModelState(&ignored);
    model.UpdateModelState(nullptr);
    EXPECT_TRUE(journal.entries.empty());
}

// Reference answers from prefix sums of GetItemsSize and from the plain walks, over random sparse sizes (some
// of them 0 through the default size), random starts and views, with and without an expanded last item.
TEST(DiscreteViewModel, HitTestsAgreeWithPrefixSumsOfTheItemSizes) {
    std::mt19937 random(11);
    auto const pick = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (int round = 0; round < 300; ++round) {
        CDefaultDiscreteItemViewModel model;
        model.SetDefaultItemSize(pick(0, 4) == 0 ? 0 : pick(1, 30));
        model.SetCount(pick(0, 40));
        for (int n = pick(0, 10); n > 0; --n)
            model.SetItemSize(pick(0, 45), pick(1, 60));
        model.SetViewSize(pick(0, 200), false);
        model.SetStartItem(pick(0, 40));
        model.SetLastItemExpanded(pick(0, 1) == 1);
        int const start = model.GetStartItem(), count = model.GetCount(), view = model.GetViewSize();
        SCOPED_TRACE("round " + std::to_string(round));

        for (int pos = -2; pos <= view + 2; ++pos) {
            int expected = -1;
            if (pos >= 0 && pos <= view)
                for (int i = start; i < count && expected == -1; ++i) {
                    int end = Utils::GetItemsSize(model, start, i + 1);
                    if (model.IsLastItemExpanded() && i == count - 1) end = std::max(end, view);
                    if (pos < end) expected = i;
                }
            ASSERT_EQ(Utils::HitTest(model, pos), expected) << "pos " << pos;
        }
        int last = start;
        for (int i = start; i < count && Utils::GetItemsSize(model, start, i + 1) <= view; ++i)
            last = i;
        ASSERT_EQ(Utils::GetLastVisibleItem(model), last);
        // CalcStart as a plain walk: step back while the room left is larger than the item before.
        for (int end = 0; end < count; ++end) {
            int start = end;
            std::int64_t room = std::int64_t(view) - model.GetItemSize(end);
            if (room > 0 && end > 0)
                while (start > 0 && room > model.GetItemSize(start - 1))
                    room -= model.GetItemSize(--start);
            ASSERT_EQ(Utils::CalcStart(model, end), start) << "last " << end;
        }
        // The sparse sums and searches answer what the plain walk over every item answers.
        for (int a = -3; a <= 46; a += 7)
            for (int b = a; b <= 48; b += 5) {
                ASSERT_EQ(model.GetItemsExtent(a, b), model.IBaseItemViewModel::GetItemsExtent(a, b));
                for (std::int64_t pixel : {-1, 0, 13, 100, 400}) {
                    std::int64_t at = -1, walked = -1;
                    ASSERT_EQ(model.FindItemAt(a, b, pixel, &at),
                              model.IBaseItemViewModel::FindItemAt(a, b, pixel, &walked));
                    ASSERT_EQ(at, walked);
                    ASSERT_EQ(model.FindFirstFitting(a, b, pixel),
                              model.IBaseItemViewModel::FindFirstFitting(a, b, pixel));
                }
            }
    }
}

TEST(DiscreteViewModel, TheUniformModelSearchesBothWaysByDivision) {
    CSimpleDiscreteItemViewModel model;
    for (int size : {0, 1, 20}) {
        model.SetDefaultItemSize(size);
        for (auto [from, to] : {std::pair{0, 0}, {0, 50}, {7, 30}, {30, 7}})
            for (std::int64_t pixel : {-5, 0, 19, 20, 21, 599, 600, 10000}) {
                std::int64_t at = -1, walked = -1;
                EXPECT_EQ(model.FindItemAt(from, to, pixel, &at),
                          model.IBaseItemViewModel::FindItemAt(from, to, pixel, &walked));
                EXPECT_EQ(at, walked);
                EXPECT_EQ(model.GetItemsExtent(from, to), model.IBaseItemViewModel::GetItemsExtent(from, to));
                EXPECT_EQ(model.FindFirstFitting(from, to, pixel),
                          model.IBaseItemViewModel::FindFirstFitting(from, to, pixel));
            }
    }
    model.SetItemSize(3, 99);
    EXPECT_EQ(model.GetItemSize(3), 20) << "all items have the default size";
}

TEST(DiscreteViewModel, ExtentsOfHugeListsDoNotOverflow) {
    CDefaultDiscreteItemViewModel model;
    model.SetCount(INT_MAX);
    model.SetDefaultItemSize(70);
    model.SetItemSize(INT_MAX - 1, 100);
    EXPECT_EQ(model.GetItemsExtent(0, INT_MAX), std::int64_t(INT_MAX) * 70 + 30);
    EXPECT_EQ(Utils::GetItemsSize(model, 0, INT_MAX), INT_MAX) << "saturated";
    model.SetViewSize(1000, false);
    model.SetStartItem(INT_MAX);
    EXPECT_EQ(model.GetStartItem(), INT_MAX - 13);
    EXPECT_EQ(Utils::HitTest(model, 939), INT_MAX - 1);
    EXPECT_EQ(Utils::HitTest(model, 940), -1);
}

} // namespace
