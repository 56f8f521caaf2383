#include <mirelfrw7/items/update_storage.h>

#include <mirel7/recording_painter.h>

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <vector>

namespace {

using namespace mirelfrw7;
using Ranges = std::vector<std::pair<int, int>>;

// The list as the model's contract describes it: a linear scan.
IDirtyItemSet::DirtyType Scan(Ranges const& ranges, int index) {
    if (ranges.empty()) return IDirtyItemSet::NoDirtyItems;
    for (auto const& [from, to] : ranges)
        if (from <= index && index <= to) return IDirtyItemSet::DirtyItem;
    return IDirtyItemSet::CleanItem;
}

TEST(UpdateStorage, KeepsRangesInTheOrderGivenLowEndFirstWithDuplicates) {
    CUpdateStorage updates;
    EXPECT_EQ(updates.GetItemType(0), IDirtyItemSet::NoDirtyItems);
    updates.Add(7, 3);
    updates.Add(1, 1);
    updates.Add(7, 3);
    EXPECT_EQ(updates.GetRanges(), (Ranges{{3, 7}, {1, 1}, {3, 7}}));
    EXPECT_EQ(updates.GetItemType(5), IDirtyItemSet::DirtyItem);
    EXPECT_EQ(updates.GetItemType(2), IDirtyItemSet::CleanItem);
    EXPECT_EQ(CUpdateStorage(true).GetRanges(), (Ranges{{0, INT_MAX}})) << "a model is born all dirty";
}

TEST(UpdateStorage, ClearEmptiesTheListAndKeepsItsStorage) {
    CUpdateStorage updates;
    for (int i = 0; i < 100; ++i)
        updates.Add(i, i + 1);
    EXPECT_EQ(updates.GetItemType(50), IDirtyItemSet::DirtyItem);
    std::size_t const capacity = updates.GetRanges().capacity();
    updates.Clear();
    EXPECT_EQ(updates.GetItemType(50), IDirtyItemSet::NoDirtyItems);
    EXPECT_EQ(updates.GetRanges().capacity(), capacity);
    updates.Add(3, 3);
    EXPECT_EQ(updates.GetItemType(50), IDirtyItemSet::CleanItem) << "no range from before the clear survives";
}

TEST(UpdateStorage, ARangeToTheEndHoldsEverythingFromItsStartOnly) {
    CUpdateStorage updates;
    updates.Add(10, IDirtyItemSet::ToEnd);
    updates.Add(2, 3);
    EXPECT_EQ(updates.GetItemType(INT_MAX), IDirtyItemSet::DirtyItem);
    EXPECT_EQ(updates.GetItemType(10), IDirtyItemSet::DirtyItem);
    EXPECT_EQ(updates.GetItemType(9), IDirtyItemSet::CleanItem);
    EXPECT_EQ(updates.GetItemType(3), IDirtyItemSet::DirtyItem);
    updates.Clear();
    updates.Add(INT_MAX, INT_MAX);
    EXPECT_EQ(updates.GetItemType(INT_MAX), IDirtyItemSet::DirtyItem);
    EXPECT_EQ(updates.GetItemType(INT_MAX - 1), IDirtyItemSet::CleanItem);
}

// Queries between additions, so that the merged view is rebuilt many times over lists of every shape:
// nested, touching, duplicated, negative and open-ended ranges.
TEST(UpdateStorage, AnswersLikeALinearScanOverRandomLists) {
    std::mt19937 random(7);
    auto const pick = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (int round = 0; round < 200; ++round) {
        CUpdateStorage updates;
        Ranges reference;
        for (int step = pick(0, 12); step > 0; --step) {
            int const a = pick(-5, 60), b = pick(0, 4) == 0 ? INT_MAX : pick(-5, 60);
            updates.Add(a, b);
            reference.emplace_back(std::min(a, b), std::max(a, b));
            for (int i : {INT_MIN, -6, -5, -1, 0, 1, 17, 30, 59, 60, 61, INT_MAX - 1, INT_MAX})
                ASSERT_EQ(updates.GetItemType(i), Scan(reference, i)) << "round " << round << " index " << i;
        }
        EXPECT_EQ(updates.GetRanges(), reference);
    }
}

TEST(CellUpdateType, TheSmallerStateWinsUnlessThePainterRedrawsEverything) {
    using T = IDirtyItemSet::DirtyType;
    T const states[] = {IDirtyItemSet::DirtyItem, IDirtyItemSet::CleanItem, IDirtyItemSet::NoDirtyItems};
    int const table[3][3] = {{0, 0, 0}, {0, 1, 1}, {0, 1, 2}};
    mirel7::CRecordingPainter painter({10, 10});
    ASSERT_TRUE(painter.NeedsFullRepaint()) << "a new surface is drawn whole";
    for (T a : states)
        for (T b : states)
            EXPECT_EQ(GetCellUpdateType(&painter, a, b), IDirtyItemSet::DirtyItem);
    painter.BeginPaint(mirel7::IPainter::PaintWindow);
    painter.EndPaint();
    ASSERT_FALSE(painter.NeedsFullRepaint());
    for (T a : states)
        for (T b : states) {
            EXPECT_EQ(GetCellUpdateType(&painter, a, b), table[a][b]);
            EXPECT_EQ(GetCellUpdateType(nullptr, a, b), table[a][b]);
        }
}

} // namespace
