#include <mirelfrw7/layout/flow_layout.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>
#include <vector>

namespace {

using namespace mirelfrw7;
using R = mirel7::rectangle<int>;
using S = mirel7::size<int>;
using Placed = std::vector<std::pair<int, R>>;

// Items of given sizes and gaps; journals every rectangle it is handed, in order.
struct CFlowSite : IFlowLayoutSite {
    std::vector<S> sizes;
    int itemSpace = 0, lineSpace = 0, top = 0, left = 0;
    int throwAt = -1;
    Placed placed;

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

struct SFlow {
    char const* name;
    std::vector<S> sizes;
    int itemSpace, lineSpace, top, left, width;
    Placed placed;
    S size;
};

// clang-format off
SFlow const Flows[] = {
    {"no items: one line of pixels below the top", {}, 0, 0, 5, 0, 100, {}, {100, 6}},
    {"a lone item that fits gets no height", {{30, 10}}, 0, 4, 0, 0, 100, {{0, {0, 0, 30, 0}}}, {100, 6}},
    {"the closing item's height is left out of its line", {{30, 10}, {40, 25}}, 0, 0, 0, 0, 100,
     {{0, {0, 0, 30, 10}}, {1, {30, 0, 70, 10}}}, {100, 12}},
    {"wraps before passing the limit, lines a pixel apart", {{40, 10}, {30, 20}, {50, 5}, {20, 8}}, 2, 3, 0, 0, 100,
     {{0, {0, 0, 40, 20}}, {1, {42, 0, 72, 20}}, {2, {0, 24, 50, 29}}, {3, {52, 24, 72, 29}}}, {100, 34}},
    {"the candidate's gap is not tested", {{45, 10}, {45, 10}}, 10, 0, 0, 0, 100,
     {{0, {0, 0, 45, 10}}, {1, {55, 0, 100, 10}}}, {100, 12}},
    {"a limit of zero: a line each, the first one empty", {{10, 5}, {20, 6}, {30, 7}}, 1, 4, 3, 2, 0,
     {{0, {2, 8, 12, 13}}, {1, {2, 18, 22, 24}}, {2, {2, 29, 32, 36}}}, {0, 30}},
    {"an over-wide item leads a line", {{60, 10}, {120, 10}, {30, 10}}, 0, 0, 0, 0, 100,
     {{0, {0, 0, 60, 10}}, {1, {0, 11, 120, 21}}, {2, {0, 22, 30, 32}}}, {100, 23}},
    {"an over-wide first item follows an empty line", {{150, 10}, {20, 10}}, 0, 2, 0, 0, 100,
     {{0, {0, 3, 150, 13}}, {1, {0, 16, 20, 26}}}, {100, 17}},
};
// clang-format on

TEST(FlowLayout, PlacesItemsInLinesAsTabled) {
    for (SFlow const& v : Flows) {
        CFlowSite site;
        site.sizes = v.sizes;
        site.itemSpace = v.itemSpace, site.lineSpace = v.lineSpace, site.top = v.top, site.left = v.left;
        CFlowLayout layout;
        layout.SetSite(&site);
        layout.SetWidth(v.width);
        layout.Update();
        EXPECT_EQ(site.placed, v.placed) << v.name;
        EXPECT_EQ(layout.GetSize(), v.size) << v.name;
    }
}

TEST(FlowLayout, WithoutASiteOrWhenTheSiteThrowsTheLastHeightStays) {
    CFlowSite site;
    site.sizes = {{60, 10}, {60, 10}, {60, 10}};
    CFlowLayout layout;
    layout.SetSite(&site);
    layout.SetWidth(100);
    layout.Update();
    S const before = layout.GetSize();
    site.placed.clear();
    site.throwAt = 2;
    site.sizes[0] = {60, 30};
    EXPECT_THROW(layout.Update(), std::runtime_error);
    EXPECT_EQ(layout.GetSize(), before);
    EXPECT_EQ(site.placed, (Placed{{0, R(0, 0, 60, 30)}})) << "the rectangles already set stay";
    layout.SetSite(nullptr);
    layout.SetWidth(10);
    layout.Update();
    EXPECT_EQ(layout.GetSize(), S(10, before.cy));
}

} // namespace
