#include <mirelfrw7/items/default_column_view_model.h>
#include <mirelfrw7/items/item_utils.h>
#include <mirelfrw7/items/one_item_view_model.h>
#include <mirelfrw7/items/simple_continuous_item_view_model.h>

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
using Log = std::vector<std::string>;

// `count` columns of 70 pixels in a view of `view`, at `offset`, with an empty update list; the cache of the
// full size shows.
struct CColumns : CDefaultColumnViewModel {
    CColumns(int count, int view, int offset = 0) {
        SetCount(count);
        SetViewSize(view, false);
        SetOffset(offset);
        OnEndDraw();
    }
    int Cache() const { return m_fullSize; }
};

// More items than entries: the default size for the items without one. Otherwise only the entries count,
// and an item without one counts 0.
TEST(ColumnViewModel, FullSizeHasTwoWaysOfSumming) {
    struct SCase {
        int count;
        Entries sizes;
        int full;
    } const cases[] = {
        {5, {{1, 100}, {9, 5}}, 380},         {5, {}, 350},      {2, {{0, 50}, {1, 60}, {5, 10}}, 110},
        {3, {{0, 50}, {2, 60}, {7, 1}}, 110}, {0, {{0, 50}}, 0},
    };
    for (SCase const& c : cases) {
        CColumns model(0, -1);
        for (auto [index, size] : c.sizes)
            model.SetItemSize(index, size);
        model.SetCount(c.count);
        EXPECT_EQ(model.GetFullItemsSize(), c.full) << "count " << c.count;
    }
}

TEST(ColumnViewModel, TheCachedFullSizeFollowsSizeChangesOnlyWhileKnown) {
    CColumns model(3, 100);
    EXPECT_EQ(model.Cache(), 210);
    model.SetItemSize(1, 100);
    EXPECT_EQ(model.Cache(), 240);
    model.SetItemSize(1, 0);
    EXPECT_EQ(model.Cache(), 210) << "back to the default";
    model.SetDefaultItemSize(50);
    EXPECT_EQ(model.Cache(), 0) << "not known";
    model.SetItemSize(0, 80);
    EXPECT_EQ(model.Cache(), 0) << "a size change does not make an unknown cache a wrong one";
    EXPECT_EQ(model.GetFullItemsSize(), 180);
    EXPECT_EQ(model.Cache(), 180);
    model.SetCount(4);
    EXPECT_EQ(model.GetFullItemsSize(), 230);
    model.SetDefaultItemSize(50);
    EXPECT_EQ(model.Cache(), 230) << "an unchanged default size changes nothing";
}

TEST(ColumnViewModel, TheOffsetIsClampedToTheItemsOnceLaidOutAndAtZeroAlways) {
    CDefaultColumnViewModel model;
    model.SetCount(10);
    model.SetOffset(-40);
    EXPECT_EQ(model.GetOffset(), 0) << "before the first layout too";
    model.SetOffset(5000);
    EXPECT_EQ(model.GetOffset(), 5000) << "but no further bound before it";
    model.SetViewSize(300, false);
    EXPECT_EQ(model.GetOffset(), 400) << "the view pulls it back to its end";
    model.SetOffset(INT_MAX);
    EXPECT_EQ(model.GetOffset(), 400);
    model.SetOffset(INT_MIN);
    EXPECT_EQ(model.GetOffset(), 0);
}

TEST(ColumnViewModel, ScrollingMarksTheItemsThatComeIntoView) {
    CColumns model(10, 150);
    CModelJournal journal(model);
    journal.snapshot = [&] { return std::to_string(model.GetOffset()); };
    model.SetOffset(10);
    EXPECT_EQ(journal.Take(), (Log{"scrolled 0 -10 10", "changed 10"}));
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{2, 2}}));

    model.OnEndDraw();
    model.SetOffset(100);
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{2, 3}}));

    model.OnEndDraw();
    model.SetOffset(0);
    EXPECT_EQ(journal.Take().back(), "changed 0");
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{0, 1}}));

    model.OnEndDraw();
    journal.answer = false;
    model.SetOffset(600);
    EXPECT_EQ(model.GetOffset(), 550);
    EXPECT_EQ(journal.Take(), (Log{"scrolled 0 -550 refused 550", "changed 550"}));
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{0, 10}})) << "nothing of the old view is left to mark";
}

TEST(ColumnViewModel, AGrowingViewAtTheEndPullsTheOffsetBack) {
    CColumns model(10, 300, 400);
    CModelJournal journal(model);
    model.SetViewSize(350, false);
    EXPECT_EQ(model.GetOffset(), 350);
    EXPECT_EQ(journal.Take(), (Log{"scrolled 0 50", "changed", "changed"}));
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{5, 5}, {9, 10}, {10, 10}}));
    model.OnEndDraw();
    model.SetViewSize(1000, true);
    EXPECT_EQ(model.GetOffset(), 0);
    EXPECT_EQ(model.GetUpdates().GetRanges().back(), (std::pair{0, 10}));
}

TEST(ColumnViewModel, AResizedColumnShiftsWhatFollowsIt) {
    CColumns model(10, 300, 35);
    CModelJournal journal(model);
    journal.snapshot = [&] { return std::to_string(model.GetItemSize(1)); };
    model.SetItemSize(1, 0);
    EXPECT_TRUE(journal.entries.empty()) << "0 is the default size, which it has";
    journal.answer = false;
    model.SetItemSize(1, 100);
    EXPECT_EQ(journal.Take(), (Log{"scrolled 105 30 refused 70", "changed 100"}));
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{1, 10}}));
    EXPECT_EQ(model.GetItemSizes().GetEntries(), (Entries{{1, 100}}));

    model.OnEndDraw();
    journal.answer = true;
    model.SetItemSize(1, 50);
    EXPECT_EQ(journal.Take(), (Log{"scrolled 135 -50 100", "changed 50"}));
    EXPECT_EQ(model.GetUpdates().GetRanges(), (Ranges{{1, 2}, {4, 10}}));
}

TEST(ColumnViewModel, TranslationsMoveTheSizesButNotTheOffset) {
    CColumns model(10, 300, 100);
    model.SetItemSize(2, 90);
    model.SetItemSize(6, 10);
    CModelJournal journal(model);
    auto removed = mirel_test::AddRemove(1, -3);
    model.UpdateModelState(&removed);
    EXPECT_EQ(model.GetItemSizes().GetEntries(), (Entries{{3, 10}}));
    EXPECT_EQ(model.GetOffset(), 100);
    EXPECT_EQ(journal.Take(), (Log{"changed"}));
    auto ignored = mirel_test::CFunctionTranslator([](int i, bool*) { return i; }, false);
    model.UpdateModelState(&ignored);
    EXPECT_TRUE(journal.entries.empty());
}

// The header's half of a continuous model: the sizes, the view and the full size kept by the subclass.
struct CHeaderLike : CSimpleContinuousItemViewModel {
    void UpdateModelState(IIndexTranslator*) override {}
    void SetCount(int count) override { sizes.assign(std::size_t(count), 70); }
    int GetCount() const override { return int(sizes.size()); }
    void SetDefaultItemSize(int) override {}
    int GetDefaultItemSize() const override { return 70; }
    int GetItemSize(int index) const override { return sizes[std::size_t(index)]; }
    int GetViewSize() const override { return view; }
    int GetFullItemsSize() const override { return full; }

    void SaveItemWidth(int index, int size) override {
        calls.push_back("item " + std::to_string(index) + " " + std::to_string(size));
        sizes[std::size_t(index)] = size;
    }
    void SaveViewWidth(int size) override {
        calls.push_back("view " + std::to_string(size));
        view = size;
    }
    void UpdateFullWidth(int delta) override {
        calls.push_back("full " + std::to_string(delta));
        full += delta;
    }

    std::vector<int> sizes;
    int view = -1, full = 0;
    Log calls;
};

TEST(SimpleContinuousViewModel, StoresThroughItsSubclassAndAnnouncesLast) {
    CHeaderLike model;
    model.SetCount(4);
    model.full = 280;
    model.SetViewSize(100, false);
    model.SetOffset(500);
    EXPECT_EQ(model.GetOffset(), 180);
    CModelJournal journal(model);
    journal.snapshot = [&] { return "calls " + std::to_string(model.calls.size()); };
    model.calls.clear();
    model.SetItemSize(3, 0);
    EXPECT_EQ(model.calls, (Log{"item 3 0", "full -70"})) << "0 is a size like any other here";
    EXPECT_EQ(journal.Take(), (Log{"scrolled 100 -70 refused calls 0", "changed calls 2"}));
    EXPECT_EQ(model.GetFullItemsSize(), 210);
    model.SetViewSize(150, false);
    EXPECT_EQ(model.calls.back(), "view 150");
    EXPECT_EQ(model.GetOffset(), 60) << "the view keeps to the items";
    model.SetItemSize(0, 70);
    EXPECT_EQ(model.calls.size(), 3u) << "an unchanged size stores nothing";
}

TEST(OneItemViewModel, ScrollsOverItsItemAndMarksItWhole) {
    COneItemViewModel model;
    CModelJournal journal(model);
    journal.snapshot = [&] { return std::to_string(model.GetOffset()); };
    model.SetItemSize(7, 300);
    model.SetDefaultItemSize(300);
    EXPECT_TRUE(journal.entries.empty()) << "sizes are stored silently";
    EXPECT_EQ(model.GetFullItemsSize(), 300);
    EXPECT_EQ(model.GetCount(), 1);
    model.SetCount(5);
    model.AddDirtyItems(0, 0);
    EXPECT_EQ(model.GetCount(), 1);
    EXPECT_EQ(model.GetItemType(0), IDirtyItemSet::CleanItem);

    model.SetViewSize(100, false);
    EXPECT_EQ(journal.Take(), (Log{"changed 0"}));
    EXPECT_EQ(model.GetItemType(0), IDirtyItemSet::DirtyItem);
    model.OnEndDraw();
    model.SetOffset(500);
    EXPECT_EQ(model.GetOffset(), 200);
    EXPECT_EQ(journal.Take(), (Log{"scrolled 0 -200 0", "changed 200"}))
        << "the whole view moves, and the offset is stored after the shift was offered";
    model.SetOffset(200);
    EXPECT_TRUE(journal.entries.empty());
    model.SetViewSize(150, true);
    EXPECT_EQ(model.GetOffset(), 150);
    EXPECT_EQ(journal.Take(), (Log{"scrolled 0 50 200"})) << "already dirty: no second announcement";
    model.OnEndDraw();
    model.SetViewSize(120, false);
    EXPECT_EQ(journal.Take(), (Log{})) << "shrinking leaves the item clean";
    model.SetOffset(-20);
    EXPECT_EQ(model.GetOffset(), 0);
}

// Reference answers from prefix sums of the column sizes, over random sparse sizes and offsets.
TEST(ColumnViewModel, HitTestsAgreeWithPrefixSumsOfTheItemSizes) {
    std::mt19937 random(5);
    auto const pick = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (int round = 0; round < 300; ++round) {
        CDefaultColumnViewModel model;
        model.SetDefaultItemSize(pick(1, 80));
        model.SetCount(pick(0, 30));
        for (int n = pick(0, 8); n > 0; --n)
            model.SetItemSize(pick(0, 35), pick(1, 150));
        model.SetViewSize(pick(0, 400), false);
        model.SetOffset(pick(0, 2000));
        model.SetLastItemExpanded(pick(0, 1) == 1);
        int const count = model.GetCount(), view = model.GetViewSize(), offset = model.GetOffset();
        SCOPED_TRACE("round " + std::to_string(round));
        for (int pos = -1; pos <= view + 1; ++pos) {
            int expected = -1;
            if (pos >= 0 && pos <= view)
                for (int i = 0; i < count && expected == -1; ++i) {
                    auto end = model.IBaseItemViewModel::GetItemsExtent(0, i + 1);
                    if (model.IsLastItemExpanded() && i == count - 1) end = std::max<std::int64_t>(end, view);
                    if (pos + offset < end) expected = i;
                }
            ASSERT_EQ(Utils::HitTest(model, pos), expected) << "pos " << pos;
        }
    }
}

// Every index of the one item answers its size: sums and searches over 2^31 indices are arithmetic.
TEST(OneItemViewModel, SumsAndSearchesOverAllOfIntAreArithmetic) {
    COneItemViewModel model;
    model.SetItemSize(0, 3);
    EXPECT_EQ(model.GetItemsExtent(0, INT_MAX), 3LL * INT_MAX);
    EXPECT_EQ(model.GetItemsExtent(INT_MIN, INT_MAX), 3 * (1LL << 32) - 3);
    std::int64_t start = -1;
    EXPECT_EQ(model.FindItemAt(0, INT_MAX, 3LL * INT_MAX - 1, &start), INT_MAX - 1);
    EXPECT_EQ(start, 3LL * INT_MAX - 3);
    EXPECT_EQ(model.FindFirstFitting(0, INT_MAX, 3LL * INT_MAX), 1) << "all of them take the room, not less";
    EXPECT_EQ(model.FindFirstFitting(0, INT_MAX, 7), INT_MAX - 2);
    model.SetItemSize(0, 0);
    EXPECT_EQ(model.FindItemAt(0, INT_MAX, 0, &start), INT_MAX) << "items of size 0 hold no pixel";
}

} // namespace
