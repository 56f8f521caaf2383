#include <mirelfrw7/layout/grid_layout.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <tuple>
#include <vector>

namespace {

using namespace mirelfrw7;
using R = mirel7::rectangle<int>;
using S = mirel7::size<int>;
using Placed = std::vector<std::tuple<int, int, R>>;

// Cells by row; gaps per column and per row; journals every rectangle it is handed, in order.
struct CGridSite : IGridLayoutSite {
    std::vector<std::vector<S>> cells;
    int columns = 0;
    std::vector<int> columnSpace, rowSpace;
    int top = 0, left = 0;
    int throwAtColumn = -1;
    int sizeQueries = 0;
    Placed placed;

    int GetColumnCount() override { return columns; }
    int GetRowCount() override { return int(cells.size()); }
    S GetCellSize(int row, int column) override {
        ++sizeQueries;
        return cells[std::size_t(row)][std::size_t(column)];
    }
    void SetCellRect(int row, int column, R const& r) override { placed.emplace_back(row, column, r); }
    int GetColumnSpace(int column) override {
        if (column == throwAtColumn) throw std::runtime_error("site failed");
        return columnSpace[std::size_t(column)];
    }
    int GetRowSpace(int row) override { return rowSpace[std::size_t(row)]; }
    int GetTop() override { return top; }
    int GetLeft() override { return left; }
};

struct SGrid {
    char const* name;
    std::vector<std::vector<S>> cells;
    int columns;
    std::vector<int> columnSpace, rowSpace;
    int left, top;
    Placed placed;
    S size;
};

// clang-format off
SGrid const Grids[] = {
    {"widest cell per column, highest per row, column by column",
     {{{10, 4}, {20, 6}, {5, 2}}, {{12, 3}, {8, 9}, {30, 1}}}, 3, {1, 2, 3}, {4, 5}, 5, 7,
     {{0, 0, {5, 7, 17, 13}}, {1, 0, {5, 18, 17, 27}}, {0, 1, {19, 7, 39, 13}}, {1, 1, {19, 18, 39, 27}},
      {0, 2, {42, 7, 72, 13}}, {1, 2, {42, 18, 72, 27}}}, {76, 33}},
    {"a row of no height takes neither its gap nor a pixel", {{{5, 4}}, {{6, 0}}, {{7, 3}}}, 1, {0}, {2, 2, 2}, 0, 0,
     {{0, 0, {0, 0, 7, 4}}, {1, 0, {0, 7, 7, 7}}, {2, 0, {0, 7, 7, 10}}}, {8, 13}},
    {"no rows: the column gaps and the top", {}, 2, {1, 1}, {}, 3, 4, {}, {7, 4}},
    {"no columns: nothing", {{{5, 4}}}, 0, {}, {1}, 3, 4, {}, {0, 0}},
};
// clang-format on

TEST(GridLayout, PlacesCellsAsTabled) {
    for (SGrid const& v : Grids) {
        CGridSite site;
        site.cells = v.cells, site.columns = v.columns, site.columnSpace = v.columnSpace;
        site.rowSpace = v.rowSpace, site.left = v.left, site.top = v.top;
        CGridLayout layout;
        layout.SetSite(&site);
        layout.Update();
        EXPECT_EQ(site.placed, v.placed) << v.name;
        EXPECT_EQ(layout.GetSize(), v.size) << v.name;
    }
}

TEST(GridLayout, EachColumnAsksEachCellOnceAndAThrowKeepsTheLastFinishedColumn) {
    CGridSite site;
    site.cells = Grids[0].cells, site.columns = 3, site.columnSpace = {1, 2, 3}, site.rowSpace = {4, 5};
    site.left = 5, site.top = 7;
    CGridLayout layout;
    layout.SetSite(&site);
    layout.Update();
    EXPECT_EQ(site.sizeQueries, 2 * 3 * 3);
    site.throwAtColumn = 1;
    site.placed.clear();
    EXPECT_THROW(layout.Update(), std::runtime_error);
    EXPECT_EQ(layout.GetSize(), S(19, 33));
    EXPECT_EQ(site.placed.size(), 4u) << "the rectangles already set stay";
    layout.SetSite(nullptr);
    layout.Update();
    EXPECT_EQ(layout.GetSize(), S(19, 33)) << "without a site the size stays";
}

} // namespace
