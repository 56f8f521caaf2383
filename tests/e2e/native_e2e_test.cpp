// The window's native pieces on a real X server, driven with xdotool: a scroll bar in the window, and a
// tooltip and a context menu in windows of their own.
#include <mirel7/popup_menu.h>
#include <mirel7/scroll_bar.h>

#include "e2e/sdl_test.h"

#include <SDL.h>
#include <SDL_syswm.h>
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

    struct CContextMenu : CSubscriber<IContextMenuNotify> {
        void OnContextMenu(CContextMenuEvent* e) override { menu.Popup(window, {e->x, e->y}); }
        ISysWindow* window = nullptr;
        CPopupMenu menu;
    };

    void SetUp() override {
        for (char const* item : {"One", "Two", "Three"})
            context.menu.AddItem(item);
        context.menu.SetChooseHandler([&](int index) { chosen.push_back(index); });
        OpenWindow({300, 200}, [&](sdl::CSdlWindow* w) {
            context.window = w;
            w->GetEventSender()->Subscribe<IContextMenuNotify>(&context);
            w->GetEventSender()->Subscribe<ITooltipNotify>(&answer);
            bar = w->CreateScrollBar(ISysWindow::ScrollVertical);
            bar->Move(280, 0, 295, 199);
            bar->SetInfo({0, 0, 99, 1, 10, 0, false});
            bar->GetEventSender()->Subscribe<IScrollBarNotify>(&scrolls);
        });
        detach = [&] { bar = nullptr; };
    }

    bool MenuOpen() { return window->GetMenuWindow().IsOpen(); }

    CAnswer answer;
    CScrolls scrolls;
    CContextMenu context;
    std::vector<int> chosen;
    mirel_ptr<IScrollBar> bar;
};

TEST_F(NativeOnX, TheScrollBarTakesClicksAndBothWheels) {
    Xdotool("mousemove " + At(288, 190) + " click 1");
    Xdotool("mousemove " + At(288, 100) + " click 5");
    Xdotool("click 7");
    EXPECT_EQ(scrolls.positions, (std::vector{1, 4, 7})) << "a notch to the right scrolls like one down";
    EXPECT_EQ(bar->GetPos(), 7);
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

TEST_F(NativeOnX, AContextMenuTakesArrowsAndReturnAndClosesOnEscapeOrAClickBeside) {
    for (char const* close : {"key Escape", "click 1", "key Down Down Return"}) {
        Xdotool("mousemove " + At(150, 60) + " click 3");
        ASSERT_TRUE(PumpUntil([&] { return MenuOpen(); })) << close;
        Xdotool(std::string(close) == "click 1" ? "mousemove " + At(20, 190) + " click 1" : close);
        EXPECT_TRUE(PumpUntil([&] { return !MenuOpen(); })) << close;
    }
    EXPECT_EQ(chosen, std::vector{1});
    EXPECT_TRUE(PumpUntil([&] { return SDL_GetKeyboardFocus() == SDL_GetWindowFromID(window->GetId()); }))
        << "the keyboard the menu took comes back";
}

TEST_F(NativeOnX, ARequestNamingAVanishedWindowDoesNotEndTheProgram) {
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version);
    ASSERT_TRUE(SDL_GetWindowWMInfo(SDL_GetWindowFromID(window->GetId()), &info));
    Display* const display = info.info.x11.display;
    ::Window const gone = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0);
    XDestroyWindow(display, gone);
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = gone;
    event.xclient.format = 32;
    XSendEvent(display, gone, 0, NoEventMask, &event);
    XSync(display, 0);
}

} // namespace
