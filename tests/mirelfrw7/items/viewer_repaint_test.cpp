#include <mirelfrw7/items/grid_viewer.h>
#include <mirelfrw7/items/row_viewer.h>

#include "state_fill.h"
#include "support/repaint_property.h"

#include <gtest/gtest.h>

namespace {

using namespace mirelfrw7;
using D = IDiscreteItemViewModel;
using mirel_test::Uniform;

using mirel_test::FillItemState;

struct CGrid : CGridViewer<D, D> {
    explicit CGrid(CVisualElement* parent) : CGridViewer(parent, {0, 0}, AlignClient) {
        GetRowViewModel()->SetCount(40);
        GetColumnViewModel()->SetCount(6);
        GetColumnViewModel()->SetDefaultItemSize(23);
    }
    void DrawCell(IPainter* p, int row, int, int column, int, int state, rectangle<double> const& r,
                  IDirtyItemSet::DirtyType d) override {
        FillItemState(p, row, column, state, r, d);
    }
};

struct CList : CRowViewer<D> {
    explicit CList(CVisualElement* parent) : CRowViewer(parent, {40, 0}, AlignLeft) {
        GetRowViewModel()->SetCount(30);
    }
    void DrawRow(IPainter* p, int row, int, int state, rectangle<double> const& r,
                 IDirtyItemSet::DirtyType d) override {
        FillItemState(p, row, 0, state, r, d);
    }
};

TEST(ViewerRepaintTest, RandomScrollResizeSelectAndModelChanges) {
    mirel_test::SRepaintScenario scenario;
    scenario.build = [](CBaseControl& control) {
        new CList(control.GetContent());
        new CGrid(control.GetContent());
        control.Rearrange();
    };
    scenario.act = [](CBaseControl& control, mirel7::headless::CHeadlessWindow& window,
                      std::mt19937& random) {
        IChildren* const children = control.GetContent()->GetChildren();
        auto* list = static_cast<CList*>(children->GetItem(0));
        auto* grid = static_cast<CGrid*>(children->GetItem(1));
        bool const onList = Uniform(random, 0, 1) == 1;
        D* const rows = onList ? list->GetRowViewModel() : grid->GetRowViewModel();
        ISelectionModel* const sel = onList ? list->GetRowSelectionModel() : grid->GetRowSelectionModel();
        int const item = Uniform(random, 0, 45);
        switch (Uniform(random, 0, 6)) {
        case 0:
            (onList ? list->GetVertScroll() : grid->GetVertScroll())->SetStart(item);
            break;
        case 1:
            grid->GetColumnViewModel()->SetStartItem(Uniform(random, 0, 5));
            break;
        case 2:
            list->SetSize({Uniform(random, 10, 80), 0}, false);
            control.Rearrange();
            break;
        case 3:
            sel->SelectItem(item, !sel->IsItemSelected(item));
            break;
        case 4:
            grid->GetColumnSelectionModel()->SetCurrent(Uniform(random, 0, 5));
            break;
        case 5:
            if (item % 2)
                rows->SetCount(Uniform(random, 0, 45));
            else
                rows->SetItemSize(item, Uniform(random, 5, 30));
            break;
        default: {
            int const x = Uniform(random, 0, 159), y = Uniform(random, 0, 119);
            window.InjectButtonDown(x, y, mirel7::ButtonLeft, Uniform(random, 0, 1) ? mirel7::FlagShift : 0);
            window.InjectButtonUp(x, y);
        }
        }
    };
    for (unsigned seed = 1; seed <= 6; ++seed)
        EXPECT_TRUE(mirel_test::IncrementalPaintEqualsFullPaint(scenario, seed));
}

} // namespace
