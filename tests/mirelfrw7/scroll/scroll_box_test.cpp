#include <mirelfrw7/scroll/scroll_box.h>

#include <mirel7/sys_scroll_bar.h>

#include "support/control_fixture.h"
#include "support/repaint_property.h"
#include "test_scroll_model.h"

#include <gtest/gtest.h>

namespace {

using namespace mirelfrw7;
using mirel7::CSysScrollBar;
using mirel_test::CTestScrollModel;

// Content in pixels over its own two models: stripes that move with the starts, so that a scroll that
// repaints the wrong thing shows.
struct CPane : CScrollableElement {
    explicit CPane(CVisualElement* parent) : CScrollableElement(parent, {10, 10}, AlignClient) {
        SetVertScroll(&vert);
        SetHorzScroll(&horz);
    }
    bool ScrollContent(int, int) override { return true; }
    void DrawContent(IPainter* painter) override {
        ++paints;
        rectangle<int> const b = GetBounds();
        painter->SetBrush({mirel7::_color(250, 250, 250), 1});
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        painter->SetBrush({mirel7::_color(30, 60, 200), 1});
        for (int y = 0; y < 400; y += 16) {
            int const top = y - int(vert.start);
            painter->FillRect(b.left + 5 - int(horz.start) % 40, top, b.left + 25, top + 7);
        }
    }
    CTestScrollModel vert{0, 400};
    CTestScrollModel horz{0, 300};
    int paints = 0;
};

struct ScrollBox : testing::Test {
    ScrollBox() {
        box->ConnectElement(pane, CScrollBox::ConnectHorz | CScrollBox::ConnectVert, true);
        fixture.Paint();
    }
    CSysScrollBar* Bar(bool vert) const {
        return dynamic_cast<CSysScrollBar*>(vert ? box->GetVertBar() : box->GetHorzBar());
    }
    void Click(bool vert, CSysScrollBar::Part part) {
        screen_rectangle<int> const r = Bar(vert)->GetPartRect(part);
        int const x = (r.left + r.right) / 2, y = (r.top + r.bottom) / 2;
        fixture.window->InjectButtonDown(x, y);
        fixture.window->InjectButtonUp(x, y);
    }

    mirel_test::CControlFixture fixture{{200, 100}};
    CScrollBox* box = new CScrollBox(fixture.Root(), {10, 10}, AlignClient);
    CPane* pane = new CPane(box);
};

TEST_F(ScrollBox, BarsShowOnlyForContentThatOverflows) {
    struct {
        double vertTo, horzTo, start;
        CScrollElement::BarMode mode;
        bool vertShown, vertEnabled, horzShown;
        double startAfter;
    } const cases[] = {
        {400, 300, 30, CScrollElement::BarAuto, true, true, true, 30},
        // Each bar is needed only for the room that the other takes: neither stays.
        {96, 190, 30, CScrollElement::BarAuto, false, false, false, 0},
        {400, 150, 30, CScrollElement::BarAuto, true, true, false, 30},
        // Short: hidden, and the start goes back to the lower end.
        {50, 150, 30, CScrollElement::BarAuto, false, false, false, 0},
        {50, 150, 30, CScrollElement::BarAlways, true, false, true, 0},
        {400, 300, 30, CScrollElement::BarNever, false, false, false, 30},
        // A vertical bar takes the width that the horizontal content needed to fit.
        {400, 195, 0, CScrollElement::BarAuto, true, true, true, 0},
    };
    for (auto const& c : cases) {
        pane->vert.to = c.vertTo;
        pane->horz.to = c.horzTo;
        pane->vert.start = c.start;
        box->SetBarMode(c.mode, c.mode);
        fixture.Paint();
        EXPECT_EQ(box->GetRightStrip().IsVisible(), c.vertShown) << c.vertTo << ' ' << c.horzTo;
        EXPECT_EQ(Bar(true)->IsEnabled(), c.vertEnabled) << c.vertTo;
        EXPECT_EQ(box->GetBottomStrip().IsVisible(), c.horzShown) << c.vertTo << ' ' << c.horzTo;
        EXPECT_EQ(pane->vert.start, c.startAfter) << c.vertTo;
        // The corner only where both bars meet.
        EXPECT_EQ(box->GetCorner().IsVisible(), c.vertShown && c.horzShown);
    }
    box->SetCornerAlways(true);
    EXPECT_TRUE(box->GetCorner().IsVisible());
}

TEST_F(ScrollBox, TheBarsAndTheModelsMoveEachOther) {
    int const page = pane->GetBounds().Height();
    EXPECT_EQ(Bar(true)->GetInfo(), (mirel7::SScrollBarInfo{0, 0, 400, 1, double(page), 0, false}));
    // A follower, as an axis would be, moves the model through the box as well.
    CScrollableElement follower(nullptr, {1, 1}, AlignNone);
    box->ConnectElement(&follower, CScrollBox::ConnectVert, false);
    EXPECT_EQ(follower.GetCentralPane(), pane);
    follower.GetVertScroll()->SetStart(40);
    EXPECT_EQ(pane->vert.start, 40);
    EXPECT_EQ(Bar(true)->GetPos(), 40);
    // The user's gestures on the bars come back to the models.
    Click(true, CSysScrollBar::PartArrowInc);
    EXPECT_EQ(pane->vert.start, 41);
    pane->horz.to = 1000;
    box->RefreshScroll();
    Click(false, CSysScrollBar::PartTrackInc);
    EXPECT_EQ(pane->horz.start, Bar(false)->GetInfo().page);
}

TEST_F(ScrollBox, ABackwardModelIsMirroredAndRepairedToItsOwnPosition) {
    pane->vert.from = 400;
    pane->vert.to = 0;
    pane->vert.start = 100;
    box->RefreshScroll();
    int const page = pane->GetBounds().Height();
    EXPECT_EQ(Bar(true)->GetPos(), 300);
    // Enlarging past the end: the start moves so that the view ends at the range's end.
    fixture.window->InjectResize(200, 200);
    fixture.Paint();
    int const bigger = pane->GetBounds().Height();
    ASSERT_GT(bigger, page);
    EXPECT_EQ(pane->vert.start, bigger);
    EXPECT_EQ(Bar(true)->GetPos(), 400 - bigger);
    // The user's position is mirrored: one line back from the bar's position lands a page short of it.
    Click(true, CSysScrollBar::PartArrowDec);
    EXPECT_EQ(pane->vert.start, 400 - bigger - (400 - bigger - 1));
}

TEST_F(ScrollBox, TheWheelMovesStepsOfTheOwnersSizeAndPassesOnWithoutBars) {
    struct CSlot : tarnkit2::subscriber_base_t {
        void Step(CVisualElement*, int& step) { step = 3; }
    } slot;
    box->sigWheelStep.connect(&slot, &CSlot::Step);
    pane->vert.start = 100;
    box->RefreshScroll();
    fixture.window->InjectWheel(50, 50, -2);
    EXPECT_EQ(pane->vert.start, 106);
    int passed = 0;
    struct CRootSlot : tarnkit2::subscriber_base_t {
        void Wheel(CVisualElement*, int, int, int, MouseButton, int) { ++*count; }
        int* count;
    } rootSlot;
    rootSlot.count = &passed;
    fixture.Root()->sigWheel.connect(&rootSlot, &CRootSlot::Wheel);
    pane->vert.to = pane->horz.to = 5;
    box->RefreshScroll();
    fixture.window->InjectWheel(50, 50, -2);
    EXPECT_EQ(pane->vert.start, 0);
    EXPECT_EQ(passed, 1);
}

TEST_F(ScrollBox, WithoutScrollPixelsTheModelAndTheBarMoveButNotTheContent) {
    for (bool pixels : {true, false}) {
        box->SetScrollPixels(pixels);
        double const start = pixels ? 40 : 80;
        int const paints = pane->paints;
        box->GetWrappedVertScroll()->SetStart(start);
        fixture.Paint();
        EXPECT_EQ(pane->vert.start, start);
        EXPECT_EQ(Bar(true)->GetPos(), start);
        EXPECT_EQ(pane->paints > paints, pixels);
    }
}

// Never reaches the start it is given, and asks the box to refresh from inside every move.
struct CRestlessModel : CTestScrollModel {
    CRestlessModel() : CTestScrollModel(0, 50, 10) {}
    void SetStart(double v) override {
        start = v + 7;
        if (box) box->GetWrappedVertScroll()->Update();
    }
    CScrollBox* box = nullptr;
};

TEST_F(ScrollBox, ARefreshThatMovesTheModelFromInsideItselfEnds) {
    CRestlessModel model;
    box->SetVertScroll(&model);
    model.box = box;
    // Short content returns to the lower end, which this model never reaches.
    box->RefreshScroll();
    EXPECT_EQ(model.start, 7);
    box->SetVertScroll(nullptr);
}

TEST_F(ScrollBox, RepaintAtOnceIsASettingThatPaintsBeforeTheScrollReturns) {
    for (bool atOnce : {false, true}) {
        box->SetRepaintAtOnce(atOnce);
        int const before = pane->paints;
        box->GetWrappedVertScroll()->SetStart(atOnce ? 10 : 20);
        EXPECT_EQ(pane->paints > before, atOnce);
        fixture.Paint();
    }
    // Inside a paint it can only ask for the next one.
    struct CSlot : tarnkit2::subscriber_base_t {
        void Paint(CVisualElement*, IPainter*) {
            if (box->GetVertScroll()->GetStart() == 10) box->GetWrappedVertScroll()->SetStart(30);
        }
        CScrollBox* box;
    } slot;
    slot.box = box;
    pane->sigPaint.connect(&slot, &CSlot::Paint);
    pane->Update(UpdateLocal);
    int const before = pane->paints;
    fixture.Paint();
    EXPECT_EQ(pane->paints, before + 1);
    EXPECT_TRUE(fixture.Paint());
}

TEST(ScrollBoxRepaint, IncrementalPaintsEqualAFullPaintOverScrollsAndResizes) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        mirel_test::SRepaintScenario scenario;
        scenario.clientSize = {160, 120};
        scenario.build = [](CBaseControl& control) {
            auto* const box = new CScrollBox(control.GetContent(), {10, 10}, AlignClient);
            box->ConnectElement(new CPane(box), CScrollBox::ConnectHorz | CScrollBox::ConnectVert, true);
        };
        scenario.act = [](CBaseControl& control, mirel7::headless::CHeadlessWindow& window,
                          std::mt19937& random) {
            auto* const box = dynamic_cast<CScrollBox*>(control.GetContent()->GetChildren()->GetItem(0));
            // The models' state depends on the sizes the box had when they moved: both runs lay out alike.
            if (box->GetBounds().Width() < 20) window.InjectResize(160, 120);
            switch (mirel_test::Uniform(random, 0, 3)) {
            case 0:
                box->GetWrappedVertScroll()->SetStart(mirel_test::Uniform(random, 0, 400));
                break;
            case 1:
                box->GetWrappedHorzScroll()->SetStart(mirel_test::Uniform(random, 0, 300));
                break;
            case 2:
                window.InjectResize(mirel_test::Uniform(random, 60, 300),
                                    mirel_test::Uniform(random, 40, 500));
                break;
            // Away from the bars: a native bar takes the wheel only once a paint has shown it.
            default:
                window.InjectWheel(5, 5, mirel_test::Uniform(random, -3, 3));
                break;
            }
            control.GetImp()->RearrangeInt();
        };
        EXPECT_TRUE(mirel_test::IncrementalPaintEqualsFullPaint(scenario, seed));
    }
}

} // namespace
