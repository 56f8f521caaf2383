// The native scroll bar driven by input injected on the headless window, on the virtual clock. The bar is
// vertical, 16 x 100 at the window's top left: arrows 0..15 and 84..99, the track 16..83 between them.
#include "mirel7/system/journal_control.h"

#include <mirel7/headless/headless_system.h>
#include <mirel7/headless/headless_window.h>
#include <mirel7/recording_painter.h>
#include <mirel7/sys_scroll_bar.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace mirel7;
using mirel7::headless::CHeadlessSystem;
using mirel7::headless::CHeadlessWindow;
using Journal = std::vector<std::string>;

struct CScrollJournal : CScrollBarNotify {
    void ScrollBarOnScroll(CScrollEvent* e) override {
        lines.push_back(std::to_string(e->action) + " " + std::to_string(static_cast<int>(e->position)));
    }
    Journal Take() { return std::exchange(lines, {}); }
    Journal lines;
};

class ScrollBar : public testing::Test {
protected:
    void SetUp() override {
        bar = window.CreateScrollBar(ISysWindow::ScrollVertical);
        bar->Move(0, 0, 15, 99);
        // 100 positions, a page of 25: the thumb is 17 pixels and moves over 51.
        bar->SetInfo({0, 0, 99, 1, 25, 0, false});
        bar->GetEventSender()->Subscribe<IScrollBarNotify>(&scrolls);
        control.Take();
    }
    CSysScrollBar& Sys() { return dynamic_cast<CSysScrollBar&>(*bar); }

    CHeadlessSystem system;
    CHeadlessWindow window{system, {200, 120}};
    mirel_test::CJournalControl control{&window};
    mirel_ptr<IScrollBar> bar;
    CScrollJournal scrolls;
};

TEST_F(ScrollBar, TheRecordStaysInOrderWhateverIsSet) {
    double const nan = std::numeric_limits<double>::quiet_NaN();
    struct {
        SScrollBarInfo set, kept;
    } const cases[] = {
        {{0, 0, 99, 1, 25, 80, false}, {0, 0, 99, 1, 25, 75, false}}, // past max - page + 1
        {{0, 10, 5, 2, 3, 0, true}, {0, 10, 10, 2, 1, 10, true}},     // max below min, page above the range
        {{0, 0, 9, 0, 500, -4, false}, {0, 0, 9, 1, 10, 0, false}},   // no line step, page above the range
        {{0, 0, 50, -3, -2, 60, false}, {0, 0, 50, 1, 0, 50, false}}, // negative page: every position
        {{0, nan, nan, nan, nan, nan, false}, {0, 0, 0, 1, 0, 0, false}},
    };
    for (auto const& c : cases) {
        bar->SetInfo(c.set);
        EXPECT_EQ(bar->GetInfo(), c.kept) << c.set.maximum << " " << c.set.page << " " << c.set.position;
    }
    bar->SetInfo({0, 0, 99, 1, 25, 0, false});
    EXPECT_EQ(bar->SetPos(90), 75) << "the position it can show";
    EXPECT_EQ(bar->SetPos(-1), 0);
    EXPECT_EQ(bar->SetPos(30), 30);
    EXPECT_TRUE(scrolls.Take().empty()) << "code is never told of what code set";
}

TEST_F(ScrollBar, AHeldArrowRepeatsAfterItsDelayWhileThePointerStaysOnIt) {
    window.InjectButtonDown(8, 90);
    EXPECT_EQ(scrolls.Take(), (Journal{"1 1"}));
    system.Advance(CSysScrollBar::RepeatDelayMs - 1);
    EXPECT_TRUE(scrolls.Take().empty());
    system.Advance(1);
    system.Advance(2 * CSysScrollBar::RepeatIntervalMs);
    EXPECT_EQ(scrolls.Take(), (Journal{"1 2", "1 3", "1 4"}));
    window.InjectMouseMove(8, 50); // off the arrow: the repeat waits
    system.Advance(200);
    window.InjectMouseMove(8, 90);
    system.Advance(CSysScrollBar::RepeatIntervalMs);
    window.InjectButtonUp(8, 90);
    system.Advance(1000);
    EXPECT_EQ(scrolls.Take(), (Journal{"1 5"}));
    window.InjectButtonDown(8, 5);
    window.InjectButtonUp(8, 5);
    // The wheel over the bar scrolls three lines a notch.
    window.InjectWheel(8, 50, -1);
    window.InjectWheel(8, 50, -2);
    window.InjectWheel(8, 50, 4);
    EXPECT_EQ(scrolls.Take(), (Journal{"0 4", "1 7", "1 13", "0 1"}));
    EXPECT_TRUE(control.Take().empty()) << "the bar takes the pointer before the control";
}

TEST_F(ScrollBar, AHeldTrackPagesTowardThePointerUntilTheThumbReachesIt) {
    window.InjectButtonDown(8, 60);
    system.Advance(1000);
    window.InjectButtonUp(8, 60);
    EXPECT_EQ(scrolls.Take(), (Journal{"3 25", "3 50"}));
    EXPECT_EQ(Sys().HitPart({8, 60}), CSysScrollBar::PartThumb);
    window.InjectButtonDown(8, 20);
    system.Advance(CSysScrollBar::RepeatDelayMs);
    window.InjectButtonUp(8, 20);
    EXPECT_EQ(scrolls.Take(), (Journal{"2 25", "2 0"}));
}

TEST_F(ScrollBar, TheThumbDragsWithCaptureAndEndsWhereReleased) {
    window.InjectButtonDown(8, 20); // 4 pixels into the thumb at 16..32
    EXPECT_TRUE(window.HasCapture());
    window.InjectMouseMove(150, 45); // beside the bar: the thumb still follows
    window.InjectMouseMove(8, 500);
    window.InjectMouseMove(8, 501);
    window.InjectButtonUp(150, 300);
    EXPECT_FALSE(window.HasCapture());
    EXPECT_EQ(scrolls.Take(), (Journal{"5 37", "5 75", "4 75"}));
    EXPECT_TRUE(control.Take().empty());
    window.InjectButtonDown(150, 50);
    EXPECT_EQ(control.Take(), (Journal{"ButtonDown 150,50 flags=1 button=1"}))
        << "beside the bar, the control";
}

TEST_F(ScrollBar, ADisabledBarOrOneWithNothingToScrollIgnoresTheUser) {
    auto const gestures = [&] {
        window.InjectButtonDown(8, 90);
        system.Advance(500);
        window.InjectButtonUp(8, 90);
        window.InjectButtonDown(8, 60);
        window.InjectButtonUp(8, 60);
        window.InjectWheel(8, 50, -1);
    };
    bar->SetEnabled(false);
    gestures();
    bar->SetEnabled(true);
    bar->SetInfo({0, 0, 99, 1, 100, 0, false});
    EXPECT_EQ(Sys().GetPartRect(CSysScrollBar::PartThumb).right, -1) << "a page over the range: no thumb";
    gestures();
    EXPECT_TRUE(scrolls.Take().empty());
    EXPECT_TRUE(control.Take().empty()) << "the bar still covers its region";
}

TEST_F(ScrollBar, DrawsItsPiecesOverWhatTheControlPaintedWithTheirStates) {
    auto* painter = new CRecordingPainter({40, 120});
    CHeadlessWindow recorded{system, {40, 120}, std::unique_ptr<IWindowPainter>(painter)};
    mirel_ptr<IScrollBar> const own = recorded.CreateScrollBar(ISysWindow::ScrollVertical);
    own->Move(0, 0, 15, 99);
    own->SetInfo({0, 0, 99, 1, 25, 75, false});
    recorded.InjectButtonDown(8, 90);
    recorded.Paint();
    EXPECT_EQ(
        painter->Lines({"DrawControlElement"}),
        (Journal{"DrawControlElement 12 0,0,15,15 state=0", "DrawControlElement 15 0,16,15,66 state=0",
                 "DrawControlElement 13 0,84,15,99 state=8", "DrawControlElement 17 0,67,15,83 state=0"}))
        << "at the end: no track after the thumb; the held arrow pressed";
}

TEST_F(ScrollBar, TestsPutTheirOwnBarsInTheWindowsPlace) {
    mirel_ptr<IScrollBar> const own = new CSysScrollBar(window, ISysWindow::ScrollHorizontal);
    std::vector<ISysWindow::ScrollType> asked;
    window.SetScrollBarFactory([&](ISysWindow::ScrollType type) {
        asked.push_back(type);
        return own;
    });
    EXPECT_EQ(window.CreateScrollBar(ISysWindow::ScrollHorizontal), own);
    EXPECT_EQ(asked, (std::vector{ISysWindow::ScrollHorizontal}));
}

TEST_F(ScrollBar, OutlivesItsWindowAsADetachedBar) {
    mirel_ptr<IScrollBar> orphan;
    {
        CHeadlessWindow closing{system, {50, 50}};
        orphan = closing.CreateScrollBar(ISysWindow::ScrollHorizontal);
        orphan->Move(0, 0, 49, 15);
        orphan->SetInfo({0, 0, 9, 1, 2, 0, false});
        closing.InjectButtonDown(45, 8);
    }
    system.Advance(1000);
    orphan->SetFocus();
    orphan->Move(0, 0, 10, 10);
    EXPECT_EQ(orphan->SetPos(3), 3);
    EXPECT_FALSE(orphan->HasFocus());
}

} // namespace
