// A grid viewer in a scroll box on a real window: xdotool drags the bar's thumb, clicks a row, Shift+clicks
// another and presses End; the models must follow, and the bar with them.
#include <mirelfrw7/core/base_control.h>
#include <mirelfrw7/items/grid_viewer.h>
#include <mirelfrw7/scroll/scroll_box.h>

#include <mirel7/sys_scroll_bar.h>

#include "e2e/sdl_test.h"

#include <gtest/gtest.h>

namespace {

using namespace mirelfrw7;
using D = IDiscreteItemViewModel;

// 1000 rows of 15 pixels under 5 columns of 50, cells in plain colours.
struct CGrid : CGridViewer<D, D> {
    explicit CGrid(CVisualElement* parent) : CGridViewer(parent, {0, 0}, AlignClient) {
        SetAutoRowHeight(false);
        GetRowViewModel()->SetDefaultItemSize(15);
        GetRowViewModel()->SetCount(1000);
        GetColumnViewModel()->SetDefaultItemSize(50);
        GetColumnViewModel()->SetCount(5);
    }
    void DrawCell(IPainter* p, int row, int, int, int, int state, rectangle<double> const& r,
                  IDirtyItemSet::DirtyType) override {
        brush fill;
        fill.style = brush::Solid;
        fill.color =
            state & IItemPainter::Selected ? _color(50, 100, 160) : _color(240, 240, row % 2 ? 200 : 250);
        p->SetBrush(fill);
        p->FillRect(r);
    }
};

class ViewerOnX : public mirel_test::CSdlTest {
protected:
    void SetUp() override {
        OpenWindow({300, 200}, [&](mirel7::sdl::CSdlWindow* w) {
            control = std::make_unique<CBaseControl>(w);
            box = new CScrollBox(control->GetContent(), {0, 0}, AlignClient);
            grid = new CGrid(box);
            box->ConnectElement(grid, CScrollBox::ConnectHorz | CScrollBox::ConnectVert, true);
        });
        detach = [&] { control.reset(); };
    }
    // The model's start in the bar's pixels: the two must always agree.
    int StartInPixels() const { return grid->GetRowViewModel()->GetStartItem() * 15; }

    std::unique_ptr<CBaseControl> control;
    CScrollBox* box = nullptr;
    CGrid* grid = nullptr;
};

TEST_F(ViewerOnX, TheThumbClicksShiftClicksAndEndMoveTheModels) {
    auto* const bar = dynamic_cast<mirel7::CSysScrollBar*>(box->GetVertBar());
    ASSERT_NE(bar, nullptr);
    ASSERT_TRUE(PumpUntil([&] { return box->GetRightStrip().IsVisible(); }));
    screen_rectangle<int> const thumb = bar->GetPartRect(mirel7::CSysScrollBar::PartThumb);
    int const x = (thumb.left + thumb.right) / 2, y = (thumb.top + thumb.bottom) / 2;
    Xdotool("mousemove " + At(x, y) + " mousedown 1 mousemove " + At(x, y + 40) + " mousemove " +
            At(x, y + 80) + " mouseup 1");
    int const start = grid->GetRowViewModel()->GetStartItem();
    EXPECT_GT(start, 100);
    EXPECT_EQ(bar->GetPos(), StartInPixels());

    Xdotool("mousemove " + At(60, 20) + " click 1");
    Xdotool("keydown shift mousemove " + At(110, 65) + " click 1 keyup shift");
    ISelectionModel* const rows = grid->GetRowSelectionModel();
    EXPECT_EQ(rows->GetCurrent(), start + 4);
    EXPECT_EQ(rows->GetSelectedCount(), 4);
    EXPECT_TRUE(rows->IsItemSelected(start + 1));
    EXPECT_EQ(grid->GetColumnSelectionModel()->GetCurrent(), 2);

    Xdotool("key End");
    EXPECT_EQ(rows->GetCurrent(), 999);
    EXPECT_TRUE(rows->IsItemSelected(999));
    EXPECT_GT(grid->GetRowViewModel()->GetStartItem(), 980);
    EXPECT_EQ(bar->GetPos(), StartInPixels());
}

} // namespace
