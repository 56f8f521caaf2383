#include "mirel7/system/journal_control.h"

#include <mirel7/event_sender.h>
#include <mirel7/headless/headless_system.h>
#include <mirel7/headless/headless_window.h>
#include <mirel7/palette.h>
#include <mirel7/recording_painter.h>
#include <mirel7/runnable.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace mirel7;
using mirel7::headless::CHeadlessSystem;
using mirel7::headless::CHeadlessWindow;
using mirel_test::CJournalControl;
using Journal = std::vector<std::string>;

class HeadlessWindow : public testing::Test {
protected:
    CHeadlessSystem system;
    CHeadlessWindow window{system, {40, 30}};
    CJournalControl control{&window};
};

TEST_F(HeadlessWindow, ButtonFlagsTellTheStateAfterTheEvent) {
    window.InjectButtonDown(5, 6, ButtonLeft, FlagShift);
    window.InjectMouseMove(7, 8);
    window.InjectButtonUp(7, 8, ButtonLeft, FlagControl);
    window.InjectMouseMove(9, 9);
    window.InjectButtonDown(9, 9, ButtonRight);
    window.InjectMouseMove(10, 9);
    window.InjectButtonUp(10, 9, ButtonRight);
    window.InjectDoubleClick(3, 4);
    EXPECT_EQ(control.Take(), (Journal{"ButtonDown 5,6 flags=257 button=1", "Move 7,8 flags=1 button=1",
                                       "ButtonUp 7,8 flags=512 button=1", "Move 9,9 flags=0 button=0",
                                       "ButtonDown 9,9 flags=0 button=3", "Move 10,9 flags=0 button=3",
                                       "ButtonUp 10,9 flags=0 button=3", "ButtonDown 3,4 flags=1 button=1",
                                       "ButtonUp 3,4 flags=0 button=1", "DoubleClick 3,4 flags=1 button=1",
                                       "ButtonUp 3,4 flags=0 button=1"}));
}

TEST_F(HeadlessWindow, WheelKeysAndCharactersKeepTheirCodes) {
    window.InjectWheel(1, 2, -2, FlagControl);
    window.InjectHorizontalWheel(1, 2, 1, FlagControl);
    CKeyboardEvent const down = window.InjectKeyDown(KeyTab, FlagShift);
    window.InjectChar('a');
    window.InjectKeyUp('C', FlagControl | FlagAlt);
    EXPECT_EQ(control.Take(),
              (Journal{"Wheel 1,2 flags=512 button=0 delta=-2", "Wheel 1,2 flags=768 button=0 delta=-1",
                       "KeyDown key=9 char=0 flags=256", "Char key=0 char=97 flags=0",
                       "KeyUp key=67 char=0 flags=1536"}));
    EXPECT_TRUE(down.handled) << "the result words start set";
    EXPECT_TRUE(down.passToBase);
}

TEST_F(HeadlessWindow, KeyboardResultWordsComeBackAsTheReceiversLeftThem) {
    struct CClearing : CSubscriber<IKeyboardNotify> {
        void OnKeyDown(CKeyboardEvent* e) override { e->passToBase = false; }
        void OnKeyUp(CKeyboardEvent* e) override { e->handled = false; }
        void OnChar(CKeyboardEvent*) override {}
    } clearing;
    control.Subscribe<IKeyboardNotify>(&clearing);
    CKeyboardEvent const down = window.InjectKeyDown(KeyReturn);
    CKeyboardEvent const up = window.InjectKeyUp(KeyReturn);
    EXPECT_TRUE(down.handled);
    EXPECT_FALSE(down.passToBase);
    EXPECT_FALSE(up.handled);
    EXPECT_TRUE(up.passToBase);
}

TEST_F(HeadlessWindow, TheControlsOwnSubscribersSeeTheEventAfterIt) {
    struct CWatcher : CSubscriber<IMouseNotify> {
        explicit CWatcher(CJournalControl& c) : control(c) {}
        void OnButtonDown(CMouseEvent*) override { control.journal.push_back("watcher"); }
        void OnButtonUp(CMouseEvent*) override {}
        void OnMouseMove(CMouseEvent*) override {}
        void OnWheel(CMouseWheelEvent*) override {}
        CJournalControl& control;
    };
    {
        CWatcher watcher(control);
        EXPECT_TRUE(control.Subscribe<IMouseNotify>(&watcher));
        window.InjectButtonDown(1, 1);
        EXPECT_EQ(control.Take(), (Journal{"ButtonDown 1,1 flags=1 button=1", "watcher"}));
    }
    EXPECT_EQ(control.GetSubscribersCount(typeid(IMouseNotify)), 0) << "a dying subscriber leaves";
    window.InjectButtonUp(1, 1);
    EXPECT_EQ(control.Take(), (Journal{"ButtonUp 1,1 flags=0 button=1"}));
}

TEST_F(HeadlessWindow, FocusArrivesOnTheNextTurnNeverInsideSetFocus) {
    window.SetFocus();
    EXPECT_TRUE(control.Take().empty());
    EXPECT_FALSE(window.HasFocus());
    EXPECT_EQ(window.GetFocusRequestCount(), 1);
    window.RunPending();
    EXPECT_TRUE(window.HasFocus());
    window.InjectFocusIn();
    window.InjectFocusOut();
    EXPECT_EQ(control.Take(), (Journal{"GetFocus", "LostFocus"})) << "only changes are reported";
    EXPECT_FALSE(window.HasFocus());
}

TEST_F(HeadlessWindow, LeaveAndHoverAreReportedOncePerTrackMouse) {
    window.InjectMouseMove(5, 5);
    window.InjectLeave();
    system.Advance(1000);
    EXPECT_EQ(control.Take(), (Journal{"Move 5,5 flags=0 button=0"})) << "nothing tracked, nothing reported";

    window.InjectMouseMove(5, 5);
    window.TrackMouse();
    system.Advance(300);
    window.InjectMouseMove(6, 5);
    system.Advance(499);
    EXPECT_EQ(control.Take().size(), 2u) << "the move restarted the rest";
    system.Advance(1);
    system.Advance(1000);
    EXPECT_EQ(control.Take(), (Journal{"Hover 6,5 flags=0 button=0", "Tooltip 6,5"}))
        << "the same rest asks for the tooltip, tracked or not";
    window.InjectLeave();
    window.InjectLeave();
    EXPECT_EQ(control.Take(), (Journal{"Leave"}));
}

TEST_F(HeadlessWindow, LeavingWhileCapturedIsReportedWhenTheCaptureEnds) {
    window.InjectMouseMove(5, 5);
    window.TrackMouse();
    window.CaptureMouse();
    EXPECT_TRUE(window.HasCapture());
    window.InjectLeave();
    EXPECT_EQ(control.Take().size(), 1u) << "a grab's crossing is no leave";
    window.ReleaseMouse();
    EXPECT_EQ(control.Take(), (Journal{"Leave"}));
    EXPECT_EQ(window.GetCaptureCount(), 1);

    window.InjectMouseMove(5, 5);
    window.TrackMouse();
    window.CaptureMouse();
    window.InjectLeave();
    window.InjectMouseMove(6, 6); // back inside before the release
    window.ReleaseMouse();
    EXPECT_EQ(control.Take(), (Journal{"Move 5,5 flags=0 button=0", "Move 6,6 flags=0 button=0"}));
}

// Invalidations make one paint per turn; a resize resizes the buffer and asks for a paint.
TEST_F(HeadlessWindow, InvalidationsAndResizeMakeOnePaintPerTurn) {
    window.Invalidate({0, 0, 10, 10});
    window.Invalidate({5, 5, 40, 30});
    EXPECT_TRUE(control.Take().empty());
    EXPECT_TRUE(window.Paint());
    EXPECT_FALSE(window.Paint());
    EXPECT_EQ(control.Take(), (Journal{"Draw"}));
    EXPECT_EQ(window.GetInvalidateCount(), 2);
    EXPECT_EQ(window.GetPaintCount(), 1);
    window.InjectResize(60, 20);
    screen_rectangle<int> client;
    window.GetClientRect(client);
    EXPECT_EQ(client, (screen_rectangle<int>{0, 0, 60, 20}));
    EXPECT_EQ(window.GetPainter()->GetBufferSize(), (size<int>{60, 20}));
    EXPECT_TRUE(window.Paint());
    EXPECT_EQ(control.Take(), (Journal{"Resize", "Draw"}));
}

// The pixels of scrolling and saving are the painter's, tested with it; the window passes the calls on.
TEST(HeadlessWindowPainter, AnInjectedPainterIsTheOneThatPaintsScrollsAndSaves) {
    CHeadlessSystem system;
    auto* recording = new CRecordingPainter({40, 30});
    CHeadlessWindow window(system, {40, 30}, std::unique_ptr<IWindowPainter>(recording));
    struct CPainterCheck : CSubscriber<IDrawingNotify> {
        void OnDraw(IPainter* p) override { painter = p; }
        IPainter* painter = nullptr;
    } check;
    window.GetEventSender()->Subscribe<IDrawingNotify>(&check);
    window.Invalidate({0, 0, 40, 30});
    window.Paint();
    EXPECT_EQ(check.painter, recording);
    EXPECT_TRUE(window.ScrollWindow(-2, 3, {7, 8, 5, 6}));
    EXPECT_FALSE(window.SavePng("/nonexistent/x.png"));
    EXPECT_EQ(recording->Lines({"ScrollBuffer", "SavePng"}),
              (std::vector<std::string>{"ScrollBuffer -2,3 5,6,7,8", "SavePng \"/nonexistent/x.png\""}))
        << "the source goes to the buffer normalised and inclusive";
    EXPECT_EQ(window.GetScrollCount(), 1);
}

// Cursor ids outside the known ones show the arrow; screen and client points differ by the window's origin.
TEST_F(HeadlessWindow, CursorsAndScreenPoints) {
    EXPECT_EQ(window.GetCursor(), ISysWindow::CursorArrow);
    window.SetCursor(13);
    EXPECT_EQ(window.GetCursor(), 13);
    window.SetCursor(42);
    EXPECT_EQ(window.GetCursor(), ISysWindow::CursorArrow);
    window.SetScreenOrigin({100, 50});
    point<int> p{3, 4};
    window.ClientToScreen(p);
    EXPECT_EQ(p, (point<int>{103, 54}));
    window.ScreenToClient(p);
    EXPECT_EQ(p, (point<int>{3, 4}));
}

TEST_F(HeadlessWindow, OtherRecordsReachTheControl) {
    CTooltipEvent const tip = window.InjectTooltip(4, 5);
    window.InjectTooltipTrack(6, 7);
    window.InjectContextMenu(8, 9);
    window.InjectCustom(1);
    system.SetPalette(GetDefaultPalette());
    EXPECT_EQ(control.Take(),
              (Journal{"Tooltip 4,5", "TooltipTrack 6,7", "ContextMenu 8,9", "Custom 1", "SysColorChanged"}));
    EXPECT_EQ(tip.text, "tip");
    EXPECT_EQ(tip.rect, (rectangle<int>{1, 2, 3, 4}));
}

struct CCountedRunnable : IRunnable {
    CCountedRunnable(int& runs_, int& deaths_) : runs(runs_), deaths(deaths_) {}
    ~CCountedRunnable() override { ++deaths; }
    bool Run() override {
        ++runs;
        return true;
    }
    int& runs;
    int& deaths;
};

// Runnables run on the next turn, and only dynamic ones are deleted; one posted while running waits for the
// turn after.
TEST_F(HeadlessWindow, RunnablesRunOnTheNextTurnAndDynamicOnesAreDeleted) {
    int runs = 0, deaths = 0;
    struct CKept : CCountedRunnable {
        using CCountedRunnable::CCountedRunnable;
        bool IsDynamicRunnable() const override { return false; }
        bool Run() override {
            if (std::exchange(again, false)) window->PostRunnable(this);
            return CCountedRunnable::Run();
        }
        ISysWindow* window = nullptr;
        bool again = true;
    } kept(runs, deaths);
    kept.window = &window;
    window.PostRunnable(new CCountedRunnable(runs, deaths));
    window.PostRunnable(&kept);
    EXPECT_EQ(runs, 0);
    EXPECT_EQ(window.RunPending(), 2);
    EXPECT_EQ(runs, 2);
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(window.RunPending(), 1);
    EXPECT_EQ(window.RunPending(), 0);
    EXPECT_EQ(runs, 3);
}

TEST_F(HeadlessWindow, DestroyDropsPendingRunnablesAndTheControlForgetsTheWindow) {
    int runs = 0, deaths = 0;
    window.PostRunnable(new CCountedRunnable(runs, deaths));
    window.InjectDestroy();
    EXPECT_TRUE(window.IsClosing());
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(runs, 0);
    window.PostRunnable(new CCountedRunnable(runs, deaths));
    EXPECT_EQ(deaths, 2) << "a closing window drops what is posted at once";
    window.InjectButtonDown(1, 1);
    EXPECT_EQ(control.Take(), (Journal{"Destroy"}));
    EXPECT_EQ(control.GetSysWindow(), &window) << "the window object lives on until deleted";
}

TEST(HeadlessWindowLifetime, EitherAWindowOrItsControlMayGoFirst) {
    CHeadlessSystem system;
    auto window = std::make_unique<CHeadlessWindow>(system, size<int>{10, 10});
    {
        CJournalControl control(window.get());
        EXPECT_EQ(window->GetEventSender()->GetSubscribersCount(typeid(IMouseNotify)), 1);
    }
    EXPECT_EQ(window->GetEventSender()->GetSubscribersCount(typeid(IMouseNotify)), 0);
    window->InjectButtonDown(1, 1);
    CJournalControl control(window.get());
    window.reset();
    EXPECT_EQ(control.GetSysWindow(), nullptr);
    EXPECT_EQ(control.Take(), (Journal{"Destroy"}));
}

} // namespace
