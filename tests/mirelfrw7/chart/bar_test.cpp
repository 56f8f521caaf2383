#include <mirelfrw7/chart/bar.h>
#include <mirelfrw7/chart/caption_source.h>

#include "mirelfrw7/chart/ruler_fixture.h"

#include <mirel7/events.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;

struct CSections : ICaptionSource {
    int GetCount() const override { return 8; }
    std::string GetCaption(int index) const override { return "S" + std::to_string(index); }
};

// Eight sections of 40 pixels on a 200 pixel bottom bar 20 thick (y 20..39), scrolled by one and a half:
// section 1 spans x -20..20, section 2 20..60 and so on.
struct Bar : testing::Test, tarnkit2::subscriber_base_t {
    Bar() {
        r.model.fixed = true;
        r.axis.SetCaptionSource(&sections);
        r.axis.SetResizeFlags(3);
        r.axis.SetMinSectionSize(10);
        r.axis.sigStartSectionPress.connect(this, &Bar::OnPress);
        r.axis.sigStartSectionResize.connect(this, &Bar::OnStartResize);
        r.axis.sigSectionResized.connect(this, &Bar::OnResized);
        r.axis.sigStartDrag.connect(this, &Bar::OnStartDrag);
        r.axis.sigRelease.connect(this, &Bar::OnRelease);
        r.axis.sigClickRelease.connect(this, &Bar::OnClick);
        r.axis.sigSectionResizeRelease.connect(this, &Bar::OnResizeEnd);
        r.axis.sigDragRelease.connect(this, &Bar::OnDragEnd);
        r.axis.sigStartBarResize.connect(this, &Bar::OnStartBarResize);
        r.f.control->Rearrange();
    }
    void OnPress(int i, bool& ok) { Note("press " + std::to_string(i)), ok = accept; }
    void OnStartResize(int i, bool& ok) { Note("start resize " + std::to_string(i)), ok = accept; }
    void OnResized(int i, double size) {
        Note("resized " + std::to_string(i) + " " + std::to_string(int(size * 40)));
    }
    void OnStartDrag(bool& ok) { Note("start drag"), ok = accept; }
    void OnStartBarResize(bool& ok) { Note("start bar resize"), ok = accept; }
    void OnRelease(int i) { Note("release " + std::to_string(i)); }
    void OnClick(int i) { Note("click " + std::to_string(i)); }
    void OnResizeEnd(int i) { Note("resize end " + std::to_string(i)); }
    void OnDragEnd(int i) { Note("drag end " + std::to_string(i)); }
    void Note(std::string s) { journal.push_back(std::move(s)); }

    void Click(int x, int modifiers = 0) {
        r.f.window->InjectButtonDown(x, 30, mirel7::ButtonLeft, modifiers);
        r.f.window->InjectButtonUp(x, 30, mirel7::ButtonLeft, modifiers);
    }
    std::vector<int> Selected() {
        std::vector<int> out;
        r.axis.GetSelectedSections(out);
        return out;
    }

    mirel_test::TRuler<CBar> r{200, AlignBottom, 0, 8, 1.5, 1.0 / 40};
    CSections sections;
    std::vector<std::string> journal;
    bool accept = true;
};

TEST_F(Bar, HitTestsSectionsBordersAndTheOuterEdge) {
    struct {
        int x, y, kind, index;
    } const cases[] = {{40, 30, 1, 2}, {21, 30, 2, 1}, {58, 30, 2, 2}, {100, 38, 5, -1}};
    for (auto const& c : cases) {
        CBar::BarHit const hit = r.axis.HitTest({c.x, c.y});
        EXPECT_EQ(hit.kind, c.kind) << c.x << "," << c.y;
        EXPECT_EQ(hit.index, c.index) << c.x << "," << c.y;
    }
}

TEST_F(Bar, ClickShiftAndCtrlSelect) {
    Click(40);
    EXPECT_EQ(Selected(), (std::vector<int>{2}));
    Click(120, mirel7::FlagShift);
    EXPECT_EQ(Selected(), (std::vector<int>{2, 3, 4}));
    Click(160, mirel7::FlagControl);
    EXPECT_EQ(Selected(), (std::vector<int>{2, 3, 4, 5})) << "the pending range is settled first";
    Click(80, mirel7::FlagControl);
    EXPECT_EQ(Selected(), (std::vector<int>{2, 4, 5}));
    Click(40, mirel7::FlagControl);
    EXPECT_EQ(Selected(), (std::vector<int>{4, 5})) << "no range pending: nothing merged back";
    accept = false;
    Click(120);
    EXPECT_EQ(Selected(), (std::vector<int>{4, 5})) << "a refused press changes nothing";
    EXPECT_EQ(journal.back(), "press 4");
}

TEST_F(Bar, ClickReleasesWithThePressedSection) {
    r.f.window->InjectButtonDown(40, 30);
    r.f.window->InjectMouseMove(44, 30, mirel7::FlagLeftButton);
    r.f.window->InjectButtonUp(44, 30);
    EXPECT_EQ(journal, (std::vector<std::string>{"press 2", "click 2", "release 2"}));
}

TEST_F(Bar, BorderDragResizesDownToTheMinimum) {
    r.f.window->InjectButtonDown(59, 30);
    for (int x : {70, 30, 0, 20})
        r.f.window->InjectMouseMove(x, 30, mirel7::FlagLeftButton);
    r.f.window->InjectButtonUp(20, 30);
    EXPECT_EQ(journal,
              (std::vector<std::string>{"start resize 2", "resized 2 51", "resized 2 10", "resized 2 10",
                                        "resized 2 60", "resize end 2", "release 2"}));
}

TEST_F(Bar, APressThatMovesFarBecomesADrag) {
    r.f.window->InjectButtonDown(40, 30);
    r.f.window->InjectMouseMove(60, 30, mirel7::FlagLeftButton);
    EXPECT_EQ(r.axis.GetMouseState(), CBar::Dragging);
    r.f.window->InjectButtonUp(60, 30);
    EXPECT_EQ(journal, (std::vector<std::string>{"press 2", "start drag", "drag end 2", "release 2"}));
}

TEST_F(Bar, TheOuterEdgeResizesTheBarWithinItsLimits) {
    r.axis.SetBarSizeLimits(10, 30);
    r.f.window->InjectButtonDown(100, 38);
    r.f.window->InjectMouseMove(100, 58, mirel7::FlagLeftButton);
    r.f.window->InjectButtonUp(100, 58);
    EXPECT_EQ(journal, (std::vector<std::string>{"start bar resize"}));
    r.f.control->Rearrange();
    EXPECT_EQ(r.axis.GetBounds().Height(), 30);
}

} // namespace
