#include <mirelfrw7/items/default_discrete_item_view_model.h>
#include <mirelfrw7/scroll/discrete_item_scroll_model.h>
#include <mirelfrw7/scroll/scrollable_element.h>

#include <mirel7/headless/headless_system.h>

#include "support/control_fixture.h"
#include "support/test_elements.h"
#include "test_scroll_model.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>

namespace {

using namespace mirelfrw7;
using mirel_test::CTestScrollModel;

// Counts its repetitions; `onTick` runs inside each.
struct CCounter : CRepeatableOperation {
    void ProcessRepeatOperation() override {
        ++ticks;
        if (onTick) onTick();
    }
    int ticks = 0;
    std::function<void()> onTick;
};

TEST(RepeatableOperation, TicksOnTheVirtualClockUntilStopped) {
    mirel7::headless::CHeadlessSystem system;
    CCounter counter;
    counter.StartRepeating();
    EXPECT_TRUE(counter.IsRepeating());
    system.Advance(350);
    EXPECT_EQ(counter.ticks, 3);
    counter.StopRepeating();
    EXPECT_FALSE(counter.IsRepeating());
    system.Advance(1000);
    EXPECT_EQ(counter.ticks, 3);
}

TEST(RepeatableOperation, AnIntervalNotAboveZeroNeverStarts) {
    mirel7::headless::CHeadlessSystem system;
    CCounter counter;
    counter.SetRepeatInterval(0);
    counter.StartRepeating();
    EXPECT_FALSE(counter.IsRepeating());
    system.Advance(1000);
    EXPECT_EQ(counter.ticks, 0);
}

TEST(RepeatableOperation, ATickMayStopTheRepetitionAndLetTheTimerGo) {
    mirel7::headless::CHeadlessSystem system;
    CCounter counter;
    counter.onTick = [&] {
        if (counter.ticks == 2) counter.StopRepeating();
    };
    counter.StartRepeating();
    system.Advance(1000);
    EXPECT_EQ(counter.ticks, 2);
    counter.StartRepeating();
    system.Advance(100);
    EXPECT_EQ(counter.ticks, 3) << "and start again later";
}

TEST(RepeatableOperation, ANewIntervalTakesEffectAndKeepsTheState) {
    mirel7::headless::CHeadlessSystem system;
    CCounter counter;
    counter.StartRepeating();
    system.Advance(50);
    counter.SetRepeatInterval(30);
    EXPECT_TRUE(counter.IsRepeating());
    system.Advance(30);
    EXPECT_EQ(counter.ticks, 1);
    counter.StopRepeating();
    counter.SetRepeatInterval(10);
    EXPECT_FALSE(counter.IsRepeating());
}

TEST(RepeatableOperation, DyingWhileRepeatingLeavesNoTickBehind) {
    mirel7::headless::CHeadlessSystem system;
    auto* counter = new CCounter;
    counter->StartRepeating();
    delete counter;
    system.Advance(500);
    CCounter orphan;
    mirel7::SetCurrentSystem(nullptr);
    orphan.StartRepeating();
    EXPECT_FALSE(orphan.IsRepeating()) << "no system, no timer";
    mirel7::SetCurrentSystem(&system);
}

// A scrollable element over two pixel models from 0 to 100, both at 50; the pointer rests at (10, 10).
struct AutoScrolling : testing::Test {
    AutoScrolling() {
        system.SetCursorPosition({10, 10});
        element.SetHorzScroll(&horz);
        element.SetVertScroll(&vert);
    }
    mirel7::headless::CHeadlessSystem system;
    CTestScrollModel horz{0, 100, 50}, vert{0, 100, 50};
    CScrollableElement element{nullptr, {10, 10}, AlignClient};
};

TEST_F(AutoScrolling, MovesEightUnitsATickAndEndsExactlyOnTheRange) {
    element.StartScrolling(1, ScrollForward, false);
    EXPECT_EQ(element.GetScrolling(), 1);
    system.Advance(100);
    EXPECT_EQ(horz.start, 58.0);
    system.Advance(500);
    EXPECT_EQ(horz.start, 98.0);
    system.Advance(100);
    EXPECT_EQ(horz.start, 100.0);
    EXPECT_EQ(element.GetScrolling(), 0);
    EXPECT_FALSE(element.IsRepeating());
    EXPECT_EQ(element.GetHorzCondition().GetDirection(), 0) << "the condition is cleared";
    EXPECT_EQ(vert.start, 50.0);

    element.StartScrolling(1, ScrollBackward, false);
    system.Advance(2000);
    EXPECT_EQ(horz.start, 0.0);
}

TEST_F(AutoScrolling, ASecondStartDuringScrollingOnlyRestartsTheTimer) {
    element.StartScrolling(1, ScrollForward, false);
    system.Advance(80);
    element.StartScrolling(1, ScrollBackward, false);
    system.Advance(80);
    EXPECT_EQ(horz.start, 50.0) << "the interval starts again";
    system.Advance(20);
    EXPECT_EQ(horz.start, 58.0) << "in the old direction";
    EXPECT_EQ(element.GetHorzCondition().GetDirection(), ScrollForward);
}

// The guard of StartScrolling is bitwise: only a type with its lowest bit set registers.
TEST_F(AutoScrolling, VerticalScrollingAloneTicksWithNothingToDo) {
    element.StartScrolling(2, ScrollForward, false);
    EXPECT_EQ(element.GetScrolling(), 0);
    EXPECT_TRUE(element.IsRepeating());
    system.Advance(300);
    EXPECT_EQ(vert.start, 50.0);
    EXPECT_EQ(horz.start, 50.0);
    EXPECT_TRUE(element.IsRepeating()) << "stopping no axis stops nothing";
}

TEST_F(AutoScrolling, BothAxesAtOnceGoBackwardsAndStopTogether) {
    horz.start = 4;
    element.StartScrolling(3, ScrollForward, false);
    EXPECT_EQ(element.GetScrolling(), 3);
    system.Advance(100);
    EXPECT_EQ(horz.start, 0.0) << "no condition recorded: towards GetFrom";
    EXPECT_EQ(vert.start, 42.0) << "the same tick still moves the other axis";
    EXPECT_EQ(element.GetScrolling(), 2);
    EXPECT_FALSE(element.IsRepeating()) << "one timer serves both axes";
    system.Advance(500);
    EXPECT_EQ(vert.start, 42.0);
}

TEST_F(AutoScrolling, AConditionalScrollEndsWhenThePointerMovesThreePixels) {
    element.StartScrolling(1, ScrollForward, true);
    system.SetCursorPosition({12, 8});
    system.Advance(100);
    EXPECT_EQ(horz.start, 58.0);
    system.SetCursorPosition({10, 13});
    system.Advance(100);
    EXPECT_EQ(horz.start, 58.0);
    EXPECT_EQ(element.GetScrolling(), 0);
}

TEST_F(AutoScrolling, WithoutAModelOrTicksScrollingStaysRegistered) {
    element.SetHorzScroll(nullptr);
    element.StartScrolling(1, ScrollForward, false);
    system.Advance(100);
    EXPECT_EQ(element.GetScrolling(), 0) << "a tick without a model ends the scrolling";

    element.SetHorzScroll(&horz);
    element.SetRepeatInterval(0);
    element.StartScrolling(1, ScrollForward, false);
    system.Advance(1000);
    EXPECT_EQ(element.GetScrolling(), 1);
    EXPECT_EQ(horz.start, 50.0);
    element.StopScrolling(2);
    EXPECT_EQ(element.GetScrolling(), 1) << "another axis stops nothing";
    element.StopScrolling(1);
    EXPECT_EQ(element.GetScrolling(), 0);
}

TEST(ScrollableElement, AStripRepaintsOnlyForMotionAlongItself) {
    struct SCase {
        Alignment alignment;
        bool horizontal, vertical;
    } const cases[] = {
        {AlignTop, true, false},   {AlignBottom, true, false}, {AlignLeft, false, true},
        {AlignRight, false, true}, {AlignNone, true, true},    {AlignClient, true, true},
    };
    for (SCase const& c : cases) {
        CScrollableElement element(nullptr, {10, 10}, c.alignment);
        EXPECT_EQ(element.ScrollContent(3, 0), c.horizontal) << c.alignment;
        EXPECT_EQ(element.ScrollContent(0, -3), c.vertical) << c.alignment;
        EXPECT_FALSE(element.ScrollContent(0, 0));
    }
}

TEST(ScrollableElement, TheCentralRectangleIsInControlCoordinates) {
    mirel_test::CControlFixture f{{200, 100}};
    mirel_test::CFilledElement top(f.Root(), {0, 20}, AlignTop), left(f.Root(), {30, 0}, AlignLeft),
        central(f.Root(), {0, 0}, AlignClient);
    CScrollableElement element(&top, {0, 0}, AlignClient);
    f.control->Rearrange();
    EXPECT_EQ(element.GetCentralRect(), (rectangle<int>{}));
    element.SetCentralPane(&central);
    EXPECT_EQ(element.GetCentralRect(), (rectangle<int>{31, 21, 199, 99}));
}

// Steps 1, 2, 3, ... from step 0.
TEST(ScrollableElement, StepsInfoTurnsStepNumbersIntoPositionsAndBack) {
    CScrollableElement element(nullptr, {10, 10}, AlignClient);
    CTestScrollModel model(0, 10);
    model.fixed = false;
    model.stepSize = [](double step) { return step + 1; };
    EXPECT_EQ(element.AddStepsInfo(3.5, &model), 6.5);
    EXPECT_EQ(element.DelStepsInfo(6.5, &model), 3.5);
    EXPECT_EQ(element.AddStepsInfo(0.5, &model), 0.5) << "within the first step nothing is added";
    EXPECT_EQ(element.AddStepsInfo(-2.0, &model), -2.0);
    model.start = 2;
    EXPECT_EQ(element.DelStepsInfo(9.0, &model), 4.0) << "counted from the start: 2 + steps of 3 and 4";
    EXPECT_EQ(element.DelStepsInfo(1.0, &model), 1.0);

    model.stepSize = [](double step) { return step == 3 ? 0.0 : 1.0; };
    EXPECT_EQ(element.DelStepsInfo(5.0, &model), 6.0) << "a step that takes no room is passed over";
    model.stepSize = [](double) { return 0.0; };
    EXPECT_EQ(element.DelStepsInfo(9.0, &model), 17.0) << "...up to the range's end, where the walk stops";
    model.fixed = true;
    EXPECT_EQ(element.AddStepsInfo(3.5, &model), 3.5);
    EXPECT_EQ(element.DelStepsInfo(3.5, nullptr), 3.5);
}

// A position near 2^31 in a list that keeps its row sizes sparsely: the whole steps are summed and found
// from the entries, not walked one by one.
TEST(ScrollableElement, StepsInfoNearTheEndOfIntSumsFromTheEntries) {
    CScrollableElement element(nullptr, {10, 10}, AlignClient);
    CDefaultDiscreteItemViewModel rows;
    rows.SetCount(INT_MAX);
    rows.SetDefaultItemSize(4);
    rows.SetItemSize(10, 8);
    CDiscreteItemScrollModel model(&rows);
    EXPECT_EQ(element.AddStepsInfo(2147483645.5, &model), 2147483646.5);
    EXPECT_EQ(element.AddStepsInfo(10.5, &model), 10.5);
    EXPECT_EQ(element.AddStepsInfo(11.5, &model), 12.5);
    EXPECT_EQ(element.DelStepsInfo(2147483001.5, &model), 2147483000.5) << "a walk would take minutes";
}

} // namespace
