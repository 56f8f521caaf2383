// The window's native pieces on a real X server, driven with xdotool: a scroll bar in the window, and a
// tooltip in a window of its own.
#include <mirel7/scroll_bar.h>

#include "e2e/sdl_test.h"

#include <gtest/gtest.h>

namespace {

using namespace mirel7;

class NativeOnX : public mirel_test::CSdlTest {
protected:
    struct CAnswer : CSubscriber<ITooltipNotify> {
        void OnTooltip(CTooltipEvent* e) override {
            e->text = "a tip";
            e->rect = {0, 0, 99, 99};
        }
        void OnTooltipTrack(CTooltipEvent*) override {}
    };
    struct CScrolls : CScrollBarNotify {
        void ScrollBarOnScroll(CScrollEvent* e) override {
            positions.push_back(static_cast<int>(e->position));
        }
        std::vector<int> positions;
    };

    void SetUp() override {
        OpenWindow({300, 200}, [&](sdl::CSdlWindow* w) {
            w->GetEventSender()->Subscribe<ITooltipNotify>(&answer);
            bar = w->CreateScrollBar(ISysWindow::ScrollVertical);
            bar->Move(280, 0, 295, 199);
            bar->SetInfo({0, 0, 99, 1, 10, 0, false});
            bar->GetEventSender()->Subscribe<IScrollBarNotify>(&scrolls);
        });
        detach = [&] { bar = nullptr; };
    }

    CAnswer answer;
    CScrolls scrolls;
    mirel_ptr<IScrollBar> bar;
};

TEST_F(NativeOnX, TheScrollBarTakesClicksAndTheWheel) {
    Xdotool("mousemove " + At(288, 190) + " click 1");
    Xdotool("mousemove " + At(288, 100) + " click 5");
    EXPECT_EQ(scrolls.positions, (std::vector{1, 4}));
    EXPECT_EQ(bar->GetPos(), 4);
}

TEST_F(NativeOnX, ATooltipShowsAfterARestAndGoesWhenThePointerLeavesItsRectangle) {
    Xdotool("mousemove " + At(40, 40));
    ASSERT_TRUE(PumpUntil([&] { return window->GetTooltipWindow().IsOpen(); }));
    point<int> const origin = window->GetTooltipWindow().GetOrigin();
    EXPECT_EQ(origin.x, Origin.x + 40);
    EXPECT_GT(origin.y, Origin.y + 40) << "below the pointer";
    Xdotool("mousemove " + At(150, 150));
    EXPECT_FALSE(window->GetTooltipWindow().IsOpen());
}

} // namespace
