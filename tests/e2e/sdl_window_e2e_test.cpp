#include "e2e/sdl_test.h"
#include "e2e/xwd_image.h"
#include "mirel7/system/journal_control.h"

#include <mirel7/runnable.h>
#include <mirel7/sdl/sdl_system.h>
#include <mirel7/sdl/sdl_window.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <thread>

namespace {

using namespace mirel7;
using mirel7::sdl::CSdlSystem;
using mirel7::sdl::CSdlWindow;
using mirel_test::CJournalControl;
using Journal = std::vector<std::string>;

constexpr size<int> ClientSize{200, 150};

// Paints three areas of known colours, through the painter interface only.
class CPaintingControl : public CJournalControl {
public:
    using CJournalControl::CJournalControl;
    void OnDraw(IPainter* painter) override {
        CJournalControl::OnDraw(painter);
        painter->BeginPaint(IPainter::PaintWindow);
        for (auto const& [r, c] : {std::pair{rectangle<double>{0, 0, 99, 149}, _color{200, 30, 30}},
                                   std::pair{rectangle<double>{100, 0, 199, 149}, _color{30, 30, 200}},
                                   std::pair{rectangle<double>{40, 50, 159, 99}, _color{30, 180, 60}}}) {
            painter->SetBrush({c});
            painter->FillRect(r);
        }
        painter->EndPaint();
    }
};

class SdlWindowOnX : public mirel_test::CSdlTest {
protected:
    void SetUp() override {
        OpenWindow(ClientSize, [&](CSdlWindow* w) { control = std::make_unique<CPaintingControl>(w); });
        detach = [&] { control.reset(); };
        if (control) control->Take();
    }

    // The journal without the records of painting and focus, which the desktop sends when it likes.
    Journal Input() {
        Journal input = control->Take();
        std::erase_if(input, [](std::string const& s) { return s == "Draw" || s.ends_with("Focus"); });
        return input;
    }

    std::unique_ptr<CPaintingControl> control;
};

TEST_F(SdlWindowOnX, ClicksAndMovesArriveInClientPixels) {
    Xdotool("mousemove " + At(50, 30));
    Xdotool("click 1");
    Xdotool("mousemove " + At(70, 35) + " click 3");
    EXPECT_EQ(Input(), (Journal{"Move 50,30 flags=0 button=0", "ButtonDown 50,30 flags=1 button=1",
                                "ButtonUp 50,30 flags=0 button=1", "Move 70,35 flags=0 button=0",
                                "ButtonDown 70,35 flags=0 button=3", "ButtonUp 70,35 flags=0 button=3",
                                "ContextMenu 70,35"}));
}

TEST_F(SdlWindowOnX, ADragCarriesTheHeldButton) {
    Xdotool("mousemove " + At(10, 10) + " mousedown 1 mousemove " + At(20, 15) + " mouseup 1");
    EXPECT_EQ(Input(), (Journal{"Move 10,10 flags=0 button=0", "ButtonDown 10,10 flags=1 button=1",
                                "Move 20,15 flags=1 button=1", "ButtonUp 20,15 flags=0 button=1"}));
}

TEST_F(SdlWindowOnX, ADoubleClickArrivesAsDownUpDoubleClickUp) {
    Xdotool("mousemove " + At(30, 40) + " click --repeat 2 --delay 60 1");
    EXPECT_EQ(Input(), (Journal{"Move 30,40 flags=0 button=0", "ButtonDown 30,40 flags=1 button=1",
                                "ButtonUp 30,40 flags=0 button=1", "DoubleClick 30,40 flags=1 button=1",
                                "ButtonUp 30,40 flags=0 button=1"}));
}

TEST_F(SdlWindowOnX, WheelNotchesCountAwayFromTheUserAsPositive) {
    Xdotool("mousemove " + At(5, 6) + " click 4 click 5");
    EXPECT_EQ(Input(), (Journal{"Move 5,6 flags=0 button=0", "Wheel 5,6 flags=0 button=0 delta=1",
                                "Wheel 5,6 flags=0 button=0 delta=-1"}));
}

TEST_F(SdlWindowOnX, KeysArriveAsVirtualKeysAndCharacters) {
    Xdotool("mousemove " + At(5, 6));
    control->Take();
    Xdotool("key a key Return key shift+Left");
    EXPECT_EQ(Input(), (Journal{"KeyDown key=65 char=0 flags=0", "Char key=0 char=97 flags=0",
                                "KeyUp key=65 char=0 flags=0", "KeyDown key=13 char=0 flags=0",
                                "Char key=0 char=13 flags=0", "KeyUp key=13 char=0 flags=0",
                                "KeyDown key=16 char=0 flags=256", "KeyDown key=37 char=0 flags=256",
                                "KeyUp key=16 char=0 flags=0", "KeyUp key=37 char=0 flags=0"}))
        << "xdotool lets go of the modifier first";
}

TEST_F(SdlWindowOnX, LeavingTheWindowIsReportedWhenTracked) {
    Xdotool("mousemove " + At(5, 6));
    window->TrackMouse();
    Xdotool("mousemove " + At(250, 6));
    EXPECT_EQ(Input(), (Journal{"Move 5,6 flags=0 button=0", "Move 199,6 flags=0 button=0", "Leave"}))
        << "the desktop reports the last point inside";
}

TEST_F(SdlWindowOnX, RunnablesFromAWorkerThreadRunOnTheLoop) {
    struct CFlag : IRunnable {
        explicit CFlag(bool& f) : flag(f) {}
        bool Run() override { return flag = true; }
        bool& flag;
    };
    bool ran = false;
    std::thread worker([&] { window->GetSynchronizer()->Synchronize(new CFlag(ran)); });
    // A long wait: only the wake-up of the post can end it early.
    auto const start = std::chrono::steady_clock::now();
    while (!ran && std::chrono::steady_clock::now() - start < std::chrono::seconds(5))
        mirel_test::SdlSystem().RunOnce(60'000);
    worker.join();
    EXPECT_TRUE(ran);
}

TEST_F(SdlWindowOnX, TheScreenShowsTheBackBuffer) {
    window->ScrollWindow(0, 20, {40, 50, 159, 99}); // moved pixels must reach the screen as well
    Settle();
    mirel_test::CXwdImage const screen = mirel_test::CXwdImage::CaptureScreen();
    ASSERT_FALSE(screen.IsEmpty()) << "xwd could not dump the screen";
    IWindowPainter::SPixels const pixels = window->GetPainter()->BeginPixelAccess();
    int mismatches = 0;
    for (int y = 0; y < ClientSize.cy; ++y)
        for (int x = 0; x < ClientSize.cx; ++x) {
            std::uint32_t const expected = pixels.data[y * pixels.stride + x] & 0xFFFFFF;
            if (screen.Pixel(Origin.x + x, Origin.y + y) != expected && ++mismatches < 5)
                ADD_FAILURE() << "at " << x << "," << y << ": screen " << std::hex
                              << screen.Pixel(Origin.x + x, Origin.y + y) << ", buffer " << expected;
        }
    window->GetPainter()->EndPixelAccess();
    EXPECT_EQ(mismatches, 0);
    EXPECT_EQ(pixels.data[75 * pixels.stride + 60] & 0xFFFFFF, 0x1EB43Cu) << "the green area moved down";
}

} // namespace
