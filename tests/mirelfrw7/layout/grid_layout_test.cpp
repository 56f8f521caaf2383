#include <mirelfrw7/layout/grid_layout.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <tuple>
#include <vector>

namespace {

using namespace mirelfrw7;
using R = mirel7::rectangle<int>;
using S = mirel7::size<int>;

// Cells by row; gaps per column and per row; journals every rectangle it is handed, in order.
struct CGridSite : IGridLayoutSite {
    std::vector<std::vector<S>> cells;
    int columns = 0;
    std::vector<int> columnSpace, rowSpace;
    int top = 0, left = 0;
    int throwAtColumn = -1;
    int sizeQueries = 0;
    std::vector<std::tuple<int, int, R>> placed;

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

using Placed = std::vector<std::tuple<int, int, R>>;

struct GridLayout : testing::Test {
    CGridSite site;
    CGridLayout layout;

    void Run() {
        layout.SetSite(&site);
        layout.Update();
    }

    // Two rows of three columns from (5, 7).
    void TwoByThree() {
        site.cells = {{{10, 4}, {20, 6}, {5, 2}}, {{12, 3}, {8, 9}, {30, 1}}};
        site.columns = 3;
        site.columnSpace = {1, 2, 3};
        site.rowSpace = {4, 5};
        site.left = 5;
        site.top = 7;
    }
};

TEST_F(GridLayout, ColumnsTakeTheirWidestCellAndRowsTheirHighestColumnByColumn) {
    TwoByThree();
    Run();
    EXPECT_EQ(site.placed, (Placed{{0, 0, R(5, 7, 17, 13)},
                                   {1, 0, R(5, 18, 17, 27)},
                                   {0, 1, R(19, 7, 39, 13)},
                                   {1, 1, R(19, 18, 39, 27)},
                                   {0, 2, R(42, 7, 72, 13)},
                                   {1, 2, R(42, 18, 72, 27)}}));
    EXPECT_EQ(layout.GetSize(), S(76, 33));
    EXPECT_EQ(site.sizeQueries, 2 * 3 * 3) << "every column asks every cell once";
}

TEST_F(GridLayout, ARowOfNoHeightTakesNeitherItsGapNorAPixel) {
    site.cells = {{{5, 4}}, {{6, 0}}, {{7, 3}}};
    site.columns = 1;
    site.columnSpace = {0};
    site.rowSpace = {2, 2, 2};
    Run();
    EXPECT_EQ(site.placed, (Placed{{0, 0, R(0, 0, 7, 4)}, {1, 0, R(0, 7, 7, 7)}, {2, 0, R(0, 7, 7, 10)}}));
    EXPECT_EQ(layout.GetSize(), S(8, 13));
}

TEST_F(GridLayout, NoColumnsResetTheSizeToZeroAndPlaceNothing) {
    TwoByThree();
    Run();
    site.placed.clear();
    site.columns = 0;
    Run();
    EXPECT_TRUE(site.placed.empty());
    EXPECT_EQ(layout.GetSize(), S(0, 0));
}

TEST_F(GridLayout, NoRowsGiveTheColumnGapsAndTheTop) {
    site.columns = 2;
    site.columnSpace = {1, 1};
    site.left = 3;
    site.top = 4;
    Run();
    EXPECT_TRUE(site.placed.empty());
    EXPECT_EQ(layout.GetSize(), S(7, 4));
}

TEST_F(GridLayout, WithoutASiteUpdateKeepsTheSize) {
    TwoByThree();
    Run();
    layout.SetSite(nullptr);
    layout.Update();
    EXPECT_EQ(layout.GetSize(), S(76, 33));
}

TEST_F(GridLayout, ASiteThatThrowsLeavesTheSizeOfTheLastFinishedColumn) {
    TwoByThree();
    site.throwAtColumn = 1;
    EXPECT_THROW(Run(), std::runtime_error);
    EXPECT_EQ(layout.GetSize(), S(19, 33));
    EXPECT_EQ(site.placed.size(), 4u) << "the rectangles already set stay";
}

} // namespace
