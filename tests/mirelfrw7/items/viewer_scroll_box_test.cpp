#include <mirelfrw7/items/grid_viewer.h>
#include <mirelfrw7/items/row_viewer.h>
#include <mirelfrw7/scroll/scroll_box.h>

#include "state_fill.h"
#include "support/control_fixture.h"
#include "support/repaint_property.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using D = IDiscreteItemViewModel;
using mirel_test::FillItemState;
using mirel_test::Uniform;

// 15-pixel rows and 50-pixel columns.
struct CGrid : CGridViewer<D, D> {
    CGrid(CVisualElement* parent, int rows, int columns, Alignment alignment = AlignClient)
        : CGridViewer(parent, {0, 0}, alignment) {
        SetAutoRowHeight(false);
        GetRowViewModel()->SetDefaultItemSize(15);
        GetRowViewModel()->SetCount(rows);
        GetColumnViewModel()->SetDefaultItemSize(50);
        GetColumnViewModel()->SetCount(columns);
    }
    void DrawCell(IPainter* p, int row, int, int column, int, int state, rectangle<double> const& r,
                  IDirtyItemSet::DirtyType d) override {
        if (log)
            log->push_back(std::to_string(row) + "/" + std::to_string(column) + " " +
                           std::to_string(int(r.left)) + "," + std::to_string(int(r.top)));
        FillItemState(p, row, column, state, r, d);
    }
    std::vector<std::string>* log = nullptr;
};

struct CList : CRowViewer<D> {
    explicit CList(CVisualElement* parent) : CRowViewer(parent, {0, 0}, AlignClient) {
        SetAutoRowHeight(false);
        GetRowViewModel()->SetDefaultItemSize(12);
        GetRowViewModel()->SetCount(30);
    }
    void DrawRow(IPainter* p, int row, int, int state, rectangle<double> const& r,
                 IDirtyItemSet::DirtyType d) override {
        FillItemState(p, row, 0, state, r, d);
    }
};

struct ViewerInScrollBox : testing::Test {
    ViewerInScrollBox() {
        box->ConnectElement(grid, CScrollBox::ConnectHorz | CScrollBox::ConnectVert, true);
        f.Paint();
    }
    mirel7::SScrollBarInfo Info(bool vert) const {
        return (vert ? box->GetVertBar() : box->GetHorzBar())->GetInfo();
    }
    void Click(int x, int y, int modifiers = 0) {
        f.window->InjectButtonDown(x, y, mirel7::ButtonLeft, modifiers);
        f.window->InjectButtonUp(x, y, mirel7::ButtonLeft, modifiers);
    }

    mirel_test::CControlFixture f{{200, 100}};
    CScrollBox* box = new CScrollBox(f.Root(), {10, 10}, AlignClient);
    CGrid* grid = new CGrid(box, 1000, 10);
};

TEST_F(ViewerInScrollBox, TheBarsFollowTheViewersModels) {
    int const barWidth = box->GetRightStrip().GetSize().cx;
    int const barHeight = box->GetBottomStrip().GetSize().cy;
    struct {
        int rows, columns;
        bool vert, horz;
    } const cases[] = {
        {1000, 10, true, true},
        {1000, 3, true, false},
        {5, 10, false, true},
        // Fits only once neither bar takes room.
        {6, 3, false, false},
        {0, 0, false, false},
    };
    for (auto const& c : cases) {
        grid->GetRowViewModel()->SetCount(c.rows);
        grid->GetColumnViewModel()->SetCount(c.columns);
        f.Paint();
        EXPECT_EQ(box->GetRightStrip().IsVisible(), c.vert) << c.rows << 'x' << c.columns;
        EXPECT_EQ(box->GetBottomStrip().IsVisible(), c.horz) << c.rows << 'x' << c.columns;
        EXPECT_EQ(grid->GetBounds().Width(), 199 - (c.vert ? barWidth + 1 : 0));
        EXPECT_EQ(grid->GetBounds().Height(), 99 - (c.horz ? barHeight + 1 : 0));
        if (c.vert) {
            EXPECT_EQ(Info(true).maximum, c.rows * 15);
        }
        if (c.horz) {
            EXPECT_EQ(Info(false).maximum, c.columns * 50);
        }
    }
}

TEST_F(ViewerInScrollBox, WheelKeysAndClicksMoveTheModelsAndTheBars) {
    int const page = grid->GetBounds().Height();
    D* const rows = grid->GetRowViewModel();
    ISelectionModel* const selection = grid->GetRowSelectionModel();
    f.window->InjectWheel(50, 50, -2);
    EXPECT_EQ(rows->GetStartItem(), 2);
    EXPECT_EQ(box->GetVertBar()->GetPos(), 30);
    Click(60, 20);
    Click(60, 50, mirel7::FlagShift);
    EXPECT_EQ(selection->GetCurrent(), 5);
    EXPECT_EQ(selection->GetSelectedCount(), 3);
    EXPECT_EQ(grid->GetColumnSelectionModel()->GetCurrent(), 1);
    f.window->InjectKeyDown(mirel7::KeyEnd, mirel7::FlagControl);
    f.Paint();
    EXPECT_EQ(selection->GetCurrent(), 999);
    // The start is a whole row: the last one shows whole at the bottom.
    EXPECT_EQ(box->GetVertBar()->GetPos(), (1000 - page / 15) * 15);
    // Enlarged at the end, the rows move back so that the last stays at the bottom, and the bar follows.
    f.window->InjectResize(200, 200);
    f.Paint();
    int const bigger = grid->GetBounds().Height();
    EXPECT_EQ(rows->GetStartItem(), 1000 - bigger / 15);
    EXPECT_EQ(box->GetVertBar()->GetPos(), (1000 - bigger / 15) * 15);
    for (int i = 0; i < 8; ++i)
        f.window->InjectKeyDown(mirel7::KeyRight);
    f.Paint();
    EXPECT_EQ(grid->GetColumnSelectionModel()->GetCurrent(), 9);
    EXPECT_EQ(box->GetHorzBar()->GetPos(), Info(false).maximum - Info(false).page);
}

// A viewer placed over a cell of another paints its own cells in its own coordinates, on the outer cell's
// pixels of the window.
TEST_F(ViewerInScrollBox, ANestedViewerPaintsInItsOwnCoordinates) {
    std::vector<std::string> outer, inner;
    auto* const nested = new CGrid(grid, 3, 2, AlignNone);
    nested->SetPos({50, 30, 150, 60}, false);
    grid->log = &outer;
    nested->log = &inner;
    box->GetWrappedVertScroll()->SetStart(1);
    f.Recorder()->Clear();
    grid->Update(UpdateLocal);
    f.Paint();
    EXPECT_EQ(outer.front(), "1/0 0,0");
    EXPECT_EQ(inner, (std::vector<std::string>{"0/0 0,0", "0/1 50,0", "1/0 0,15", "1/1 50,15", "2/0 0,30",
                                               "2/1 50,30"}));
}

TEST(ViewerInScrollBoxRepaint, RandomScrollResizeSelectAndModelChanges) {
    mirel_test::SRepaintScenario scenario;
    scenario.build = [](CBaseControl& control) {
        auto* const left = new CScrollBox(control.GetContent(), {60, 0}, AlignLeft);
        left->ConnectElement(new CList(left), CScrollBox::ConnectVert, true);
        auto* const right = new CScrollBox(control.GetContent(), {0, 0}, AlignClient);
        right->ConnectElement(new CGrid(right, 40, 6), CScrollBox::ConnectHorz | CScrollBox::ConnectVert,
                              true);
        control.Rearrange();
    };
    // Input lands away from the bars, which a native bar takes only once a paint has shown it: both runs
    // must hear the same.
    scenario.act = [](CBaseControl& control, mirel7::headless::CHeadlessWindow& window,
                      std::mt19937& random) {
        IChildren* const boxes = control.GetContent()->GetChildren();
        auto* const left = static_cast<CScrollBox*>(boxes->GetItem(0));
        auto* const right = static_cast<CScrollBox*>(boxes->GetItem(1));
        auto* const list = static_cast<CList*>(left->GetCentralPane());
        auto* const grid = static_cast<CGrid*>(right->GetCentralPane());
        bool const onList = Uniform(random, 0, 1) == 1;
        CRowViewerBase<D>* const viewer = onList ? static_cast<CRowViewerBase<D>*>(list) : grid;
        int const item = Uniform(random, 0, 45);
        switch (Uniform(random, 0, 7)) {
        case 0:
            (onList ? left : right)->GetWrappedVertScroll()->SetStart(item);
            break;
        case 1:
            right->GetWrappedHorzScroll()->SetStart(Uniform(random, 0, 5));
            break;
        case 2:
            window.InjectResize(Uniform(random, 160, 300), Uniform(random, 60, 300));
            break;
        case 3:
            viewer->GetRowSelectionModel()->SelectItem(item,
                                                       !viewer->GetRowSelectionModel()->IsItemSelected(item));
            break;
        case 4:
            if (item % 2)
                viewer->GetRowViewModel()->SetCount(Uniform(random, 0, 45));
            else
                viewer->GetRowViewModel()->SetItemSize(item, Uniform(random, 5, 30));
            break;
        case 5:
            grid->GetColumnViewModel()->SetCount(Uniform(random, 0, 8));
            break;
        case 6:
            window.InjectWheel(Uniform(random, 62, 140), Uniform(random, 0, 40), Uniform(random, -3, 3));
            break;
        default: {
            int const x = onList ? Uniform(random, 0, 40) : Uniform(random, 62, 140),
                      y = Uniform(random, 0, 40);
            window.InjectButtonDown(x, y, mirel7::ButtonLeft, Uniform(random, 0, 1) ? mirel7::FlagShift : 0);
            window.InjectButtonUp(x, y);
            window.InjectKeyDown(Uniform(random, 0, 1) ? mirel7::KeyDown : mirel7::KeyEnd);
        }
        }
        control.GetImp()->RearrangeInt();
    };
    for (unsigned seed = 1; seed <= 8; ++seed)
        EXPECT_TRUE(mirel_test::IncrementalPaintEqualsFullPaint(scenario, seed));
}

} // namespace
