#include <mirelfrw7/header/header_grid.h>

#include "support/control_fixture.h"
#include "test_header_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>

namespace {

using namespace mirelfrw7;
using mirel_test::CTestHeader;

// The left and right pixel of each column of the first row as far as the grid shows it.
struct CColumnGrid : CHeaderGrid {
    explicit CColumnGrid(CVisualElement* parent) : CGridViewer(parent, {0, 0}, AlignClient) {
        SetAutoRowHeight(false);
        GetRowViewModel()->SetDefaultItemSize(15);
        GetRowViewModel()->SetCount(3);
    }
    void DrawCell(IPainter*, int row, int, int column, int, int, rectangle<double> const& r,
                  IDirtyItemSet::DirtyType) override {
        if (row == 0) cells[column] = {int(r.left), std::min(int(r.right), GetBounds().right)};
    }
    // The application's side of a drop.
    void OnMoved(CHeader*, IHeaderItem* item, int from, int to) {
        header->model.Move(static_cast<mirel_test::CTestHeaderItem*>(item), from, to);
    }
    std::map<int, std::pair<int, int>> cells;
    CTestHeader* header = nullptr;
};

// A three-level header over a grid of the same width, its columns the header's leaves.
struct HeaderGrid : testing::Test {
    HeaderGrid() {
        grid->header = &header;
        ServeAsColumns(&header, grid);
        header.sigSectionMoved.connect(grid, &CColumnGrid::OnMoved);
        f.control->Rearrange();
    }
    // The header dies first, as a member.
    ~HeaderGrid() override { grid->SetColumnViewModel(nullptr); }
    void Drag(int x0, int y0, int x1, int y1) {
        f.window->InjectMouseMove(x0, y0);
        f.window->InjectButtonDown(x0, y0);
        f.window->InjectMouseMove(x0 + 10, y0);
        f.window->InjectMouseMove(x1, y1);
        f.window->InjectButtonUp(x1, y1);
    }
    void Click(int x, int y) {
        f.window->InjectButtonDown(x, y);
        f.window->InjectButtonUp(x, y);
    }

    mirel_test::CControlFixture f{{300, 120}};
    CTestHeader header{f.Root(), "A(a1:50 a2:60 B(b1:40 b2:30)) C:70 D(d1:40 d2:40)"};
    CColumnGrid* grid = new CColumnGrid(f.Root());
};

// After each step, every column in view is where its leaf is, and a hit at any x finds the same column.
TEST_F(HeaderGrid, LeavesAndColumnsAgreeAfterEveryChange) {
    struct {
        char const* step;
        std::function<void(HeaderGrid&)> act;
        int count, offset;
    } const steps[] = {
        {"as built", [](HeaderGrid&) {}, 7, 0},
        {"b2 widened by its group's edge", [](HeaderGrid& t) { t.Drag(176, 5, 210, 5); }, 7, 0},
        {"C dropped before A", [](HeaderGrid& t) { t.Drag(240, 30, 10, 30); }, 7, 0},
        {"A collapsed by its button", [](HeaderGrid& t) { t.Click(270, 8); }, 4, 0},
        {"A opened again", [](HeaderGrid& t) { t.header.ExpandItem(t.header.model.Find("A"), true); }, 7, 0},
        {"the grid scrolled", [](HeaderGrid& t) { t.grid->GetColumnScrollModel().SetStart(45); }, 7, 45},
        {"the header scrolled", [](HeaderGrid& t) { t.header.SetOffset(60); }, 7, 60},
    };
    for (auto const& s : steps) {
        SCOPED_TRACE(s.step);
        s.act(*this);
        grid->cells.clear();
        grid->Update(UpdateLocal);
        f.Paint();
        ASSERT_EQ(grid->GetColumnViewModel(), &header);
        EXPECT_EQ(header.GetCount(), s.count);
        EXPECT_EQ(int(grid->GetColumnScrollModel().GetStart()), s.offset);
        EXPECT_EQ(header.GetOffset(), s.offset);
        std::map<int, std::pair<int, int>> leaves;
        for (int i = 0; i < header.GetCount(); ++i) {
            rectangle<double> r = header.GetItemRect(header.GetHeaderItem(i));
            header.CutRectByBounds(r);
            if (r.left <= r.right) leaves[i] = {int(r.left), int(r.right)};
        }
        EXPECT_EQ(grid->cells, leaves);
        int const y = header.GetBounds().bottom - 1;
        for (int x = 0; x < 300; x += 7)
            EXPECT_EQ(header.GetVisibleIndex(header.HitTest(x, y).item),
                      grid->GetColumnHandler().GetItemIndex(x, grid->GetBounds().top + 5))
                << x;
    }
    EXPECT_EQ(header.model.top[0]->text, "C");
    EXPECT_EQ(header.model.Find("b2")->width, 60);
}

} // namespace
