#include <mirelfrw7/layout/flow_layout.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>
#include <vector>

namespace {

using namespace mirelfrw7;
using R = mirel7::rectangle<int>;
using S = mirel7::size<int>;

// Items of given sizes and gaps; journals every rectangle it is handed, in order.
struct CFlowSite : IFlowLayoutSite {
    std::vector<S> sizes;
    int itemSpace = 0, lineSpace = 0, top = 0, left = 0;
    int throwAt = -1;
    std::vector<std::pair<int, R>> placed;

    int GetItemCount() override { return int(sizes.size()); }
    S GetItemSize(int item) override {
        if (item == throwAt) throw std::runtime_error("site failed");
        return sizes[std::size_t(item)];
    }
    void SetItemRect(int item, R const& r) override { placed.emplace_back(item, r); }
    int GetItemSpace(int) override { return itemSpace; }
    int GetLineSpace() override { return lineSpace; }
    int GetTop() override { return top; }
    int GetLeft() override { return left; }
};

using Placed = std::vector<std::pair<int, R>>;

struct FlowLayout : testing::Test {
    CFlowSite site;
    CFlowLayout layout;

    void Run(int width) {
        layout.SetSite(&site);
        layout.SetWidth(width);
        layout.Update();
    }
};

TEST_F(FlowLayout, NoItemsPlaceNothingAndGiveOneLineOfPixelsBelowTheTop) {
    site.top = 5;
    Run(100);
    EXPECT_TRUE(site.placed.empty());
    EXPECT_EQ(layout.GetSize(), S(100, 6));
}

TEST_F(FlowLayout, ALoneItemThatFitsGetsNoHeight) {
    site.sizes = {{30, 10}};
    site.lineSpace = 4;
    Run(100);
    EXPECT_EQ(site.placed, (Placed{{0, R(0, 0, 30, 0)}}));
    EXPECT_EQ(layout.GetSize(), S(100, 6));
}

TEST_F(FlowLayout, TheClosingItemsHeightIsLeftOutOfItsLine) {
    site.sizes = {{30, 10}, {40, 25}};
    Run(100);
    EXPECT_EQ(site.placed, (Placed{{0, R(0, 0, 30, 10)}, {1, R(30, 0, 70, 10)}}));
    EXPECT_EQ(layout.GetSize(), S(100, 12));
}

TEST_F(FlowLayout, ItemsWrapWhenTheNextOneWouldPassTheLimitAndLinesAreAPixelApart) {
    site.sizes = {{40, 10}, {30, 20}, {50, 5}, {20, 8}};
    site.itemSpace = 2;
    site.lineSpace = 3;
    Run(100);
    EXPECT_EQ(
        site.placed,
        (Placed{{0, R(0, 0, 40, 20)}, {1, R(42, 0, 72, 20)}, {2, R(0, 24, 50, 29)}, {3, R(52, 24, 72, 29)}}));
    EXPECT_EQ(layout.GetSize(), S(100, 34));
}

TEST_F(FlowLayout, TheGapOfTheCandidateIsNotPartOfTheTest) {
    site.sizes = {{45, 10}, {45, 10}};
    site.itemSpace = 10;
    Run(100);
    EXPECT_EQ(site.placed, (Placed{{0, R(0, 0, 45, 10)}, {1, R(55, 0, 100, 10)}}));
}

TEST_F(FlowLayout, ALimitOfZeroGivesEveryItemALineAndTheLastOneALineTheHeightLeavesOut) {
    site.sizes = {{10, 5}, {20, 6}, {30, 7}};
    site.left = 2;
    site.top = 3;
    site.itemSpace = 1;
    site.lineSpace = 4;
    Run(0);
    // The first line, 3 to 8, stays empty: the first item did not fit and had nothing before it.
    EXPECT_EQ(site.placed, (Placed{{0, R(2, 8, 12, 13)}, {1, R(2, 18, 22, 24)}, {2, R(2, 29, 32, 36)}}));
    EXPECT_EQ(layout.GetSize(), S(0, 30));
}

TEST_F(FlowLayout, AnOverWideItemLeadsALineRegardlessOfTheLimit) {
    site.sizes = {{60, 10}, {120, 10}, {30, 10}};
    Run(100);
    EXPECT_EQ(site.placed, (Placed{{0, R(0, 0, 60, 10)}, {1, R(0, 11, 120, 21)}, {2, R(0, 22, 30, 32)}}));
    EXPECT_EQ(layout.GetSize(), S(100, 23));
}

TEST_F(FlowLayout, AnOverWideFirstItemFollowsAnEmptyLine) {
    site.sizes = {{150, 10}, {20, 10}};
    site.lineSpace = 2;
    Run(100);
    EXPECT_EQ(site.placed, (Placed{{0, R(0, 3, 150, 13)}, {1, R(0, 16, 20, 26)}}));
    EXPECT_EQ(layout.GetSize(), S(100, 17));
}

TEST_F(FlowLayout, WithoutASiteUpdateKeepsTheSize) {
    site.sizes = {{30, 10}, {40, 10}};
    Run(100);
    S const before = layout.GetSize();
    layout.SetSite(nullptr);
    layout.SetWidth(10);
    layout.Update();
    EXPECT_EQ(layout.GetSize(), S(10, before.cy));
}

TEST_F(FlowLayout, ASiteThatThrowsLeavesTheLastHeightAndTheRectanglesAlreadySet) {
    site.sizes = {{60, 10}, {60, 10}, {60, 10}};
    Run(100);
    S const before = layout.GetSize();
    site.placed.clear();
    site.throwAt = 2;
    site.sizes[0] = {60, 30};
    EXPECT_THROW(layout.Update(), std::runtime_error);
    EXPECT_EQ(layout.GetSize(), before);
    EXPECT_EQ(site.placed, (Placed{{0, R(0, 0, 60, 30)}}));
}

} // namespace
