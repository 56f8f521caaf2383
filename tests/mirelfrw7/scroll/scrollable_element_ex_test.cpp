#include <mirelfrw7/scroll/scroll_timer.h>
#include <mirelfrw7/scroll/scrollable_element_ex.h>

#include "support/control_fixture.h"
#include "support/test_elements.h"
#include "test_scroll_model.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace mirelfrw7;
using mirel_test::CTestScrollModel;
using Info = IPainter::CoordInfo;

// Strips on all four edges of a 200 x 100 control around a central pane at (31, 21)-(183, 88); the
// horizontal model runs over 1000 units, 4 to a pixel, from 250; the vertical one over 50 units, 20 pixels
// each, from 5.
struct Strips : testing::Test {
    Strips() {
        for (CScrollableElementEx* strip : {&top, &bottom, &left, &right}) {
            strip->SetCentralPane(&central);
            strip->SetHorzScroll(&horz);
            strip->SetVertScroll(&vert);
        }
        horz.measure = {4.0, 1};
        vert.measure = {1.0, 20};
        f.control->Rearrange();
    }

    static Info Expected(double left, double top, double width, double height, int x, int y, int cx, int cy) {
        return Info::Mapping(left, top, width, height, x, y, cx, cy);
    }
    // The mapping a strip lays over a painter that maps nothing yet, in either mode.
    Info MappingOf(CScrollableElementEx& strip, IPainter::MapMode over = IPainter::MapElement) {
        mirel7::CRecordingPainter& painter = *f.Recorder();
        Info blank;
        painter.SetCoordSystem(over, &blank);
        strip.SetCoordSystem(&painter);
        IPainter::MapMode mode;
        Info info;
        painter.GetCoordSystem(mode, &info);
        EXPECT_EQ(mode, IPainter::MapElement);
        return info;
    }

    mirel_test::CControlFixture f{{200, 100}};
    CTestScrollModel horz{0, 1000, 250}, vert{0, 50, 5};
    CScrollableElementEx top{f.Root(), {0, 20}, AlignTop}, bottom{f.Root(), {0, 10}, AlignBottom},
        left{f.Root(), {30, 0}, AlignLeft}, right{f.Root(), {15, 0}, AlignRight};
    mirel_test::CFilledElement central{f.Root(), {0, 0}, AlignClient};
};

TEST_F(Strips, TheAxisRectangleSpansTheCentralPaneAlongAndKeepsItsThickness) {
    ASSERT_EQ(central.GetPosition(), (rectangle<int>{31, 21, 183, 88}));
    EXPECT_EQ(top.GetAxisRect(nullptr), (rectangle<double>{31, 0, 183, 20}));
    EXPECT_EQ(bottom.GetAxisRect(nullptr), (rectangle<double>{31, 89, 183, 99}));
    EXPECT_EQ(left.GetAxisRect(nullptr), (rectangle<double>{0, 21, 30, 88}));
    EXPECT_EQ(right.GetAxisRect(nullptr), (rectangle<double>{184, 21, 199, 88}));
}

// Without a pane the central rectangle is all zero, and the strip is cut to it along its length: nothing is
// left to draw along it.
TEST_F(Strips, WithoutAPaneTheAxisRectangleIsCutToTheControlsOrigin) {
    top.SetCentralPane(nullptr);
    right.SetCentralPane(nullptr);
    EXPECT_EQ(top.GetAxisRect(nullptr), (rectangle<double>{0, 0, 0, 20}));
    EXPECT_EQ(right.GetAxisRect(nullptr), (rectangle<double>{184, 21, 199, 0}));
    std::swap(horz.from, horz.to);
    EXPECT_EQ(MappingOf(top), Expected(250, 0, 1000, 20, 0, 20, -250, -20))
        << "a backward range has no length to run back over";
}

// The control's content is drawn in device pixels on a full repaint and through an element mapping on a
// partial one: a strip there must map the same way in both.
TEST_F(Strips, AMappingLaidOverDevicePixelsIsTheSame) {
    for (CScrollableElementEx* strip : {&top, &left})
        EXPECT_EQ(MappingOf(*strip, IPainter::MapDevice), MappingOf(*strip));
}

TEST_F(Strips, EachStripTracksTheModelAlongIt) {
    EXPECT_EQ(top.GetScrollModel(), &horz);
    EXPECT_EQ(bottom.GetScrollModel(), &horz);
    EXPECT_EQ(left.GetScrollModel(), &vert);
    EXPECT_EQ(right.GetScrollModel(), &vert);
    top.SetAlignment(AlignLeft);
    EXPECT_EQ(top.GetScrollModel(), &vert);
    EXPECT_EQ(top.GetAlong(3, 7), 7.0) << "the layout turned with the edge";
    top.SetAlignment(AlignClient);
    EXPECT_EQ(top.GetScrollModel(), nullptr);
}

// Along a strip the model's units from its start; across it pixels growing away from the central pane.
TEST_F(Strips, TheMappingOfEveryEdgeAndDirection) {
    EXPECT_EQ(MappingOf(top), Expected(250, 0, 1000, 20, 31, 20, 250, -20));
    EXPECT_EQ(MappingOf(bottom), Expected(250, 0, 1000, 10, 31, 89, 250, 10));
    EXPECT_EQ(MappingOf(left), Expected(0, 5, 30, 50, 30, 21, -30, 1000));
    EXPECT_EQ(MappingOf(right), Expected(0, 5, 15, 50, 184, 21, 15, 1000));

    std::swap(horz.from, horz.to);
    std::swap(vert.from, vert.to);
    EXPECT_EQ(MappingOf(top), Expected(250, 0, 1000, 20, 183, 20, -250, -20));
    EXPECT_EQ(MappingOf(bottom), Expected(250, 0, 1000, 10, 183, 89, -250, 10));
    EXPECT_EQ(MappingOf(left), Expected(0, 5, 30, 50, 30, 88, -30, -1000)) << "both flips at once";
    EXPECT_EQ(MappingOf(right), Expected(0, 5, 15, 50, 184, 88, 15, -1000));
}

TEST_F(Strips, WithoutAModelOrAControlThePainterKeepsItsMapping) {
    left.SetVertScroll(nullptr);
    EXPECT_EQ(MappingOf(left), Info{});
    CScrollableElementEx detached(nullptr, {0, 20}, AlignTop);
    detached.SetHorzScroll(&horz);
    EXPECT_EQ(MappingOf(detached), Info{});
    horz.measure = {0.0, 1};
    horz.from = horz.to = 7;
    Info zero = MappingOf(top);
    EXPECT_EQ(zero.cx, 0) << "a zero measure and an empty range map without dividing";
}

// Interval 100, 4 pixels a tick growing by 4 every 2 ticks up to 32; the top strip is 199 pixels long.
struct ScrollTimer : Strips {
    ScrollTimer() {
        horz.measure = {1.0, 1};
        horz.start = 0;
        timer.sigTick.connect(&journal, &CJournal::OnTick);
    }
    struct CJournal : tarnkit2::subscriber_base_t {
        void OnTick(CScrollTimer* t) { steps.push_back(t->GetCurrentStep()); }
        std::vector<int> steps;
    } journal;
    CScrollTimer timer{&top, 100, 4, 32, 4, 2};
};

TEST_F(ScrollTimer, AcceleratesEveryTwoTicksUpToItsMaximum) {
    ASSERT_TRUE(timer.Start(true));
    std::vector<double> starts;
    for (int tick = 0; tick < 16; ++tick) {
        f.system.Advance(100);
        starts.push_back(horz.start);
    }
    EXPECT_EQ(journal.steps, (std::vector<int>{4, 8, 8, 12, 12, 16, 16, 20, 20, 24, 24, 28, 28, 32, 32, 32}));
    EXPECT_EQ(starts,
              (std::vector<double>{4, 8, 16, 24, 36, 48, 64, 80, 100, 120, 144, 168, 196, 224, 256, 288}));
    EXPECT_EQ(timer.GetTickCount(), 2) << "counting goes on at the maximum";
    ASSERT_TRUE(timer.Start(false));
    f.system.Advance(100);
    EXPECT_EQ(horz.start, 256.0) << "a running timer keeps its speed and takes the new direction";
}

TEST_F(ScrollTimer, StopsExactlyAtEitherEnd) {
    horz.start = 790;
    timer.Start(true);
    f.system.Advance(300);
    EXPECT_EQ(horz.start, 801.0) << "the range's end less the strip's length";
    EXPECT_FALSE(timer.IsRunning());

    horz.start = 900;
    timer.Start(true);
    EXPECT_EQ(timer.GetCurrentStep(), 4) << "a stopped timer starts again slowly";
    f.system.Advance(100);
    EXPECT_EQ(horz.start, 801.0) << "beyond the end it jumps back";
    EXPECT_FALSE(timer.IsRunning());

    horz.start = 10;
    timer.Start(false);
    f.system.Advance(500);
    EXPECT_EQ(horz.start, 0.0);
    EXPECT_FALSE(timer.IsRunning());
}

TEST_F(ScrollTimer, NeedsAStripWithAModel) {
    top.SetAlignment(AlignClient);
    EXPECT_FALSE(timer.Start(true));
    EXPECT_FALSE(timer.IsRunning());
    CScrollTimer none(nullptr, 100, 4, 32, 4, 2);
    EXPECT_FALSE(none.Start(true));
}

TEST(ScrollTimers, TwoProcessWideTimersMadeOnceAndIdle) {
    mirel7::headless::CHeadlessSystem system;
    mirel7::ISysTimer* const vertical = GetVertScrollTimer();
    ASSERT_NE(vertical, nullptr);
    EXPECT_EQ(GetVertScrollTimer(), vertical);
    EXPECT_NE(GetHorzScrollTimer(), vertical);
    EXPECT_EQ(vertical->GetInterval(), 100);
    EXPECT_FALSE(GetHorzScrollTimer()->IsActive());
}

} // namespace
