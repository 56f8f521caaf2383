#include <mirelfrw7/core/control.h>
#include <mirelfrw7/items/default_selection_model.h>
#include <mirelfrw7/items/grid_viewer.h>
#include <mirelfrw7/items/row_viewer.h>

#include "support/control_fixture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using D = IDiscreteItemViewModel;
using Rect = mirel7::rectangle<double>;

std::string Box(Rect const& r) {
    return std::to_string(int(r.left)) + "," + std::to_string(int(r.top)) + "-" +
           std::to_string(int(r.right)) + "," + std::to_string(int(r.bottom));
}

// A grid of 15-pixel rows and 50-pixel columns that writes down every cell and empty area it is asked for.
struct CJournalGrid : CGridViewer<D, D> {
    explicit CJournalGrid(CVisualElement* parent) : CGridViewer(parent, {0, 0}, AlignClient) {
        SetAutoRowHeight(false);
        GetRowViewModel()->SetDefaultItemSize(15);
        GetColumnViewModel()->SetDefaultItemSize(50);
    }
    void DrawCell(IPainter*, int row, int, int column, int, int state, Rect const& r,
                  IDirtyItemSet::DirtyType dirty) override {
        log.push_back(std::to_string(row) + "/" + std::to_string(column) + ":" + std::to_string(state) +
                      (dirty == IDirtyItemSet::DirtyItem ? "d " : " ") + Box(r));
    }
    void DrawRowEmptyArea(IPainter*, Rect const& r) override { log.push_back("below " + Box(r)); }
    void DrawColumnEmptyArea(IPainter*, Rect const& r) override { log.push_back("right " + Box(r)); }
    void ProcessEndDraw() override {
        ++endDraws;
        CGridViewer::ProcessEndDraw();
    }
    std::vector<std::string> log;
    int endDraws = 0;
};

struct ViewerTest : testing::Test {
    ViewerTest() {
        grid = new CJournalGrid(f.Root());
        f.window->InjectResize(200, 100);
    }
    std::vector<std::string> Paint() {
        grid->log.clear();
        grid->Update(UpdateLocal);
        f.Paint();
        return grid->log;
    }
    mirel_test::CControlFixture f;
    CJournalGrid* grid;
};

TEST_F(ViewerTest, CellsCombineBothAxesInRowMajorOrder) {
    grid->GetRowViewModel()->SetCount(2);
    grid->GetColumnViewModel()->SetCount(2);
    grid->GetRowSelectionModel()->SetCurrent(1);
    grid->GetColumnSelectionModel()->SetCurrent(0);
    grid->GetRowSelectionModel()->SelectItem(1, true);
    grid->GetColumnHandler().SetSelectionType(CEventHandlerBase::SelectNoItems);
    grid->GetColumnSelectionModel()->SelectItem(1, true);
    EXPECT_EQ(Paint(), (std::vector<std::string>{
                           "0/0:0d 0,0-49,14", "0/1:0d 50,0-99,14", "right 100,0-199,14", "1/0:3d 0,15-49,29",
                           "1/1:1d 50,15-99,29", "right 100,15-199,29", "below 0,30-199,99"}));
}

TEST_F(ViewerTest, EmptyViewerIsAllEmptyAreaAndAnExpandedLastRowLeavesNone) {
    EXPECT_EQ(Paint(), std::vector<std::string>{"below 0,0-199,99"});
    grid->GetRowViewModel()->SetCount(1);
    grid->GetRowViewModel()->SetLastItemExpanded(true);
    grid->GetColumnViewModel()->SetCount(4);
    grid->GetColumnViewModel()->SetLastItemExpanded(true);
    EXPECT_EQ(Paint().back(), "0/3:0d 150,0-199,99");
}

TEST_F(ViewerTest, HundredMillionRowsPaintOnlyTheVisibleOnes) {
    grid->GetRowViewModel()->SetCount(100'000'000);
    grid->GetColumnViewModel()->SetCount(1);
    grid->GetVertScroll()->SetStart(grid->GetVertScroll()->GetTo());
    std::vector<std::string> const log = Paint();
    ASSERT_EQ(log.size(), 2u * 6 + 1);
    EXPECT_EQ(log.front(), "99999994/0:0d 0,0-49,14");
    EXPECT_EQ(log[10], "99999999/0:0d 0,75-49,89");
    EXPECT_EQ(log.back(), "below 0,90-199,99");
}

TEST_F(ViewerTest, ClicksAndKeysReachRowsThenColumns) {
    grid->GetRowViewModel()->SetCount(5);
    grid->GetColumnViewModel()->SetCount(3);
    f.Paint();
    f.window->InjectButtonDown(120, 20);
    f.window->InjectButtonUp(120, 20);
    EXPECT_EQ(grid->GetRowSelectionModel()->GetCurrent(), 1);
    EXPECT_EQ(grid->GetColumnSelectionModel()->GetCurrent(), 2);
    f.window->InjectKeyDown(mirel7::KeyDown);
    f.window->InjectKeyDown(mirel7::KeyLeft);
    EXPECT_EQ(grid->GetRowSelectionModel()->GetCurrent(), 2);
    EXPECT_EQ(grid->GetColumnSelectionModel()->GetCurrent(), 1);
}

TEST_F(ViewerTest, HandlerChainOrder) {
    CEventHandler a, b;
    CEventHandler* const rows = grid->GetFirstHandler();
    grid->SetDefEventHandler(&a);
    grid->AddEventHandler(&b);
    grid->RemoveEventHandler(nullptr);
    std::vector<CEventHandler*> chain;
    for (CEventHandler* h = grid->GetFirstHandler(); h; h = h->GetNext())
        chain.push_back(h);
    EXPECT_EQ(chain, (std::vector<CEventHandler*>{&a, rows, &grid->GetColumnHandler(), &b}));
    grid->RemoveEventHandler(&a);
    grid->RemoveEventHandler(&b);
    EXPECT_EQ(grid->GetFirstHandler(), rows);
    EXPECT_EQ(rows->GetNext()->GetNext(), nullptr);
}

TEST_F(ViewerTest, DefaultAndSetModels) {
    CDefaultSelectionModel own;
    ISelectionModel* const def = grid->GetRowSelectionModel();
    grid->SetRowSelectionModel(&own);
    EXPECT_EQ(grid->GetRowHandler().GetItemSelectionModel(), &own);
    grid->SetRowSelectionModel(nullptr);
    EXPECT_EQ(grid->GetRowSelectionModel(), def);
    grid->SetVertScroll(nullptr);
    EXPECT_EQ(grid->GetVertScroll(), &grid->GetRowScrollModel());
    EXPECT_EQ(grid->GetHorzScroll(), &grid->GetColumnScrollModel());
}

TEST_F(ViewerTest, MovedViewerHearsOnlyItsNewControl) {
    mirel_test::CControlFixture other;
    grid->ReParent(other.Root(), false);
    f.control->GetImp()->sigAfterPaint();
    EXPECT_EQ(grid->endDraws, 0);
    other.control->GetImp()->sigAfterPaint();
    EXPECT_EQ(grid->endDraws, 1);
    grid->ReParent(f.Root(), false);
}

TEST_F(ViewerTest, EndOfPaintForgetsDirtyRows) {
    grid->GetRowViewModel()->SetCount(3);
    grid->GetColumnViewModel()->SetCount(1);
    f.Paint();
    grid->GetRowViewModel()->AddDirtyItems(1, 1);
    std::vector<std::string> const log = Paint();
    EXPECT_EQ(log[0], "0/0:0 0,0-49,14");
    EXPECT_EQ(log[2], "1/0:0d 0,15-49,29");
    EXPECT_EQ(grid->GetRowViewModel()->GetItemType(1), IDirtyItemSet::NoDirtyItems);
}

TEST_F(ViewerTest, FontSetsRowHeightOnlyWhileAuto) {
    D* const rows = grid->GetRowViewModel();
    mirel7::font big = grid->GetFont();
    big.size = 30;
    grid->SetAutoRowHeight(true);
    grid->SetFont(big);
    int const tall = rows->GetDefaultItemSize();
    EXPECT_EQ(tall, grid->GetTextLineHeight() + 1);
    grid->SetAutoRowHeight(false);
    big.size = 10;
    grid->SetFont(big);
    EXPECT_EQ(rows->GetDefaultItemSize(), tall);
}

TEST_F(ViewerTest, ShownAgainPaintsInFull) {
    grid->GetRowViewModel()->SetCount(3);
    grid->GetColumnViewModel()->SetCount(1);
    f.Paint();
    grid->ProcessSetParentVisible(true);
    EXPECT_EQ(grid->GetRowViewModel()->GetItemType(2), IDirtyItemSet::DirtyItem);
    EXPECT_EQ(grid->GetColumnViewModel()->GetItemType(0), IDirtyItemSet::DirtyItem);
}

} // namespace
