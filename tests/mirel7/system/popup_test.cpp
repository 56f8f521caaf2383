// Popups by their anchors, and tooltips on the headless window, on the virtual clock.
#include <mirel7/headless/headless_system.h>
#include <mirel7/headless/headless_window.h>
#include <mirel7/popup.h>
#include <mirel7/popup_menu.h>

#include <gtest/gtest.h>

#include <functional>

namespace {

using namespace mirel7;
using mirel7::headless::CHeadlessSystem;
using mirel7::headless::CHeadlessWindow;

TEST(PlacePopup, BelowTheAnchorElseAboveAndAlwaysOnTheScreen) {
    screen_rectangle<int> const screen{0, 0, 640, 480};
    struct {
        size<int> popup;
        screen_rectangle<int> anchor, area;
        point<int> at;
    } const cases[] = {
        {{100, 50}, {10, 10, 11, 30}, screen, {10, 30}},                   // below
        {{100, 50}, {10, 450, 11, 470}, screen, {10, 400}},                // no room below: above
        {{100, 50}, {600, 100, 601, 120}, screen, {540, 120}},             // at the right edge: shifted left
        {{100, 50}, {-30, -5, -29, 15}, screen, {0, 15}},                  // left of the screen
        {{100, 300}, {10, 200, 11, 220}, screen, {10, 180}},               // room on neither side: more below
        {{100, 300}, {10, 300, 11, 320}, screen, {10, 0}},                 // room on neither side: more above
        {{700, 500}, {10, 10, 11, 30}, screen, {0, 0}},                    // larger than the screen
        {{100, 50}, {50, 150, 60, 170}, {100, 100, 400, 400}, {100, 170}}, // a work area of its own
    };
    for (auto const& c : cases)
        EXPECT_EQ(PlacePopup(c.popup, c.anchor, c.area), c.at) << c.anchor.left << "," << c.anchor.top;

    // A popup is moved on its own work area.
    struct CProbePopup : IPopup {
        size<int> GetPopupSize() const override { return {100, 50}; }
        void MovePopup(point<int> const& p) override { at = p; }
        screen_rectangle<int> GetWorkArea() const override { return {0, 0, 300, 200}; }
        point<int> at{-1, -1};
    } popup;
    PositionPopup(&popup, {250, 180, 251, 190});
    EXPECT_EQ(popup.at, (point<int>{200, 130}));
    PositionPopup(nullptr, {0, 0, 1, 1});
}

class Tooltip : public testing::Test {
protected:
    // Answers every request with one text, valid over (0, 0)..(49, 49).
    struct CAnswer : CSubscriber<ITooltipNotify> {
        void OnTooltip(CTooltipEvent* e) override {
            e->text = text;
            e->rect = {0, 0, 49, 49};
        }
        void OnTooltipTrack(CTooltipEvent* e) override {
            tracked.push_back({e->x, e->y});
            e->text = trackText;
            e->rect = trackRect;
        }
        std::string text = "tip";
        std::string trackText;
        rectangle<int> trackRect;
        std::vector<point<int>> tracked;
    };
    void SetUp() override {
        window.SetScreenOrigin({100, 200});
        window.GetEventSender()->Subscribe<ITooltipNotify>(&answer);
    }
    void Rest(int x, int y) {
        window.InjectMouseMove(x, y);
        system.Advance(500);
    }
    std::size_t Shown() const { return window.GetTooltips().size(); }

    CHeadlessSystem system;
    CHeadlessWindow window{system, {200, 100}};
    CAnswer answer;
};

TEST_F(Tooltip, ShowsAtThePointerAfterARestAndStaysInsideItsRectangle) {
    window.InjectMouseMove(10, 10);
    system.Advance(499);
    EXPECT_EQ(Shown(), 0u);
    system.Advance(1);
    ASSERT_EQ(Shown(), 1u);
    EXPECT_EQ(window.GetTooltips()[0].text, "tip");
    EXPECT_EQ(window.GetTooltips()[0].anchor, (screen_rectangle<int>{110, 210, 111, 230}));
    Rest(49, 49);
    EXPECT_TRUE(window.IsTooltipShown());
    EXPECT_EQ(Shown(), 1u) << "one tip while the pointer stays inside";
    Rest(50, 49);
    EXPECT_EQ(Shown(), 2u) << "taken down on leaving the rectangle, asked again after a rest";
    answer.text.clear();
    window.HideTooltip();
    Rest(60, 60);
    EXPECT_FALSE(window.IsTooltipShown()) << "no text, no tip";
}

TEST_F(Tooltip, GoesOnButtonKeyWheelLeaveScrollAndRequest) {
    std::pair<char const*, std::function<void()>> const hides[] = {
        {"button", [&] { window.InjectButtonDown(10, 10); }},
        {"key", [&] { window.InjectKeyDown(KeyDown); }},
        {"wheel", [&] { window.InjectWheel(10, 10, 1); }},
        {"leave", [&] { window.InjectLeave(); }},
        {"scroll",
         [&] {
             window.ScrollWindow(0, 5, {0, 0, 199, 50});
         }},
        {"request", [&] { window.HideTooltip(); }},
    };
    for (auto const& [name, hide] : hides) {
        window.InjectButtonUp(10, 10);
        Rest(10, 10);
        ASSERT_TRUE(window.IsTooltipShown()) << name;
        hide();
        EXPECT_FALSE(window.IsTooltipShown()) << name;
        system.Advance(1000);
        EXPECT_FALSE(window.IsTooltipShown()) << name << ": not again before the pointer rests again";
    }
}

TEST_F(Tooltip, MovesUnderTheTipAreTrackedAndTheAnswerMayChangeItsTextAndRectangle) {
    Rest(10, 10);
    window.InjectMouseMove(20, 20);
    EXPECT_EQ(Shown(), 1u) << "an empty answer keeps the tip";
    answer.trackText = "moved";
    window.InjectMouseMove(30, 30);
    window.InjectMouseMove(31, 30);
    ASSERT_EQ(Shown(), 2u) << "shown again once, for the new text";
    EXPECT_EQ(window.GetTooltips()[1].text, "moved");
    EXPECT_EQ(window.GetTooltips()[1].anchor.left, 130) << "at the pointer";
    answer.trackRect = {0, 0, 20, 20};
    window.InjectMouseMove(32, 30);
    EXPECT_FALSE(window.IsTooltipShown()) << "the new rectangle no longer holds the pointer";
    window.InjectMouseMove(33, 30);
    EXPECT_EQ(answer.tracked, (std::vector<point<int>>{{20, 20}, {30, 30}, {31, 30}, {32, 30}}))
        << "only moves while the tip shows";
}

class PopupMenu : public Tooltip {
protected:
    void SetUp() override {
        Tooltip::SetUp();
        for (auto [text, enabled] : {std::pair{"Copy", true}, {"Paste", false}})
            menu.AddItem(text, enabled);
        menu.AddSeparator();
        menu.AddItem("Delete");
        menu.SetChooseHandler([&](int index) { chosen.push_back(index); });
    }
    void Open() { menu.Popup(&window, {30, 40}); }

    CPopupMenu menu;
    std::vector<int> chosen;
};

TEST_F(PopupMenu, OpensAtThePointAndTakesTheKeys) {
    Open();
    ASSERT_EQ(window.GetOpenMenu(), &menu);
    EXPECT_EQ(window.GetMenuWindow().anchor, (screen_rectangle<int>{130, 240, 130, 240}));
    EXPECT_EQ(window.GetMenuWindow().extent.cy, 2 + 3 * 22 + 7 + 2);
    std::pair<int, int> const steps[] = {{KeyDown, 0}, {KeyDown, 3}, {KeyDown, 0}, {KeyUp, 3}};
    for (auto [key, current] : steps) {
        window.InjectKeyDown(key);
        EXPECT_EQ(menu.GetCurrent(), current) << "disabled items and separators are passed over";
    }
    window.InjectKeyDown(KeyReturn);
    EXPECT_FALSE(menu.IsOpen());
    EXPECT_EQ(window.GetMenuWindow().extent.cy, 0) << "its window is gone";
    Open();
    window.InjectKeyDown(KeyEscape);
    Open();
    window.InjectButtonDown(150, 90);
    EXPECT_FALSE(menu.IsOpen()) << "a press beside it closes it";
    Open();
    window.InjectMenuMove(10, 2 + 22 + 5);
    EXPECT_EQ(menu.GetCurrent(), -1) << "the disabled item is not taken";
    window.InjectMenuClick(10, 2 + 22 + 5);
    window.InjectMenuClick(10, 10);
    EXPECT_EQ(chosen, (std::vector{3, 0}));
    EXPECT_FALSE(menu.IsOpen());
}

TEST_F(PopupMenu, NeitherTheMenuNorItsWindowDanglesWhenTheOtherGoes) {
    {
        CPopupMenu dying;
        dying.AddItem("x");
        dying.Popup(&window, {1, 1});
        ASSERT_EQ(window.GetOpenMenu(), &dying);
    }
    EXPECT_EQ(window.GetOpenMenu(), nullptr);
    window.InjectKeyDown(KeyDown);
    {
        CHeadlessWindow closing{system, {50, 50}};
        menu.Popup(&closing, {1, 1});
        EXPECT_TRUE(menu.IsOpen());
    }
    EXPECT_FALSE(menu.IsOpen());
    menu.Close();
}

} // namespace
