#include <mirelfrw7/chart/bar.h>
#include <mirelfrw7/chart/caption_source.h>

#include "mirelfrw7/chart/ruler_fixture.h"
#include "support/repaint_property.h"

#include <mirel7/events.h>

#include <gtest/gtest.h>

#include <algorithm>

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
        r.axis.sigReorder.connect(this, &Bar::OnReorder);
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
    void OnReorder(CBar*, int from, int to) {
        Note("reorder " + std::to_string(from) + " " + std::to_string(to));
    }
    void OnHover(CBar::BarHit const& hit) {
        Note("hover " + std::to_string(hit.kind) + " " + std::to_string(hit.index));
    }
    void Note(std::string s) { journal.push_back(std::move(s)); }

    void Drag(std::vector<int> const& xs) {
        r.f.window->InjectButtonDown(xs.front(), 30);
        for (int x : xs)
            r.f.window->InjectMouseMove(x, 30, mirel7::FlagLeftButton);
    }
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

TEST_F(Bar, ADraggedSectionIsReorderedAndKeepsItsSelection) {
    r.axis.SetDragFlags(1);
    r.axis.sigHover.connect(this, &Bar::OnHover);
    Drag({40, 60, 150});
    EXPECT_EQ(r.axis.GetMouseState(), CBar::Dragging);
    EXPECT_EQ(r.axis.GetDragSection(), 2);
    EXPECT_EQ(r.axis.GetDropIndex(), 5) << "the first half of section 5";
    r.f.window->InjectButtonUp(150, 30);
    EXPECT_EQ(journal,
              (std::vector<std::string>{"hover 1 2", "press 2", "hover 1 2", "hover 2 2", "start drag",
                                        "hover 1 5", "drag end 2", "release 2", "reorder 2 4"}));
    EXPECT_EQ(Selected(), (std::vector<int>{4}));
    EXPECT_EQ(r.axis.GetDragSection(), -1);
}

TEST_F(Bar, RefusedDragsAndDropsOnTheirOwnPlaceSendNoReorder) {
    // Off, two sections selected, the last 4 pixels, back on its place, just after it.
    struct {
        unsigned flags;
        int modifiers, x, end;
    } const cases[] = {
        {0, 0, 40, 130}, {1, mirel7::FlagShift, 40, 130}, {1, 0, 197, 100}, {1, 0, 50, 53}, {2, 0, 62, 105}};
    for (auto const& c : cases) {
        r.axis.SetDragFlags(c.flags);
        Click(80);
        journal.clear();
        r.f.window->InjectButtonDown(c.x, 30, mirel7::ButtonLeft, c.modifiers);
        r.f.window->InjectMouseMove(c.end, 30, mirel7::FlagLeftButton);
        r.f.window->InjectButtonUp(c.end, 30);
        EXPECT_NE(journal.back().substr(0, 7), "reorder") << c.x << " to " << c.end;
    }
}

TEST_F(Bar, DraggingNearEitherEndScrollsOnceATick) {
    r.axis.SetDragFlags(1);
    Drag({40, 60, 195});
    ASSERT_TRUE(r.axis.GetScrollTimer().IsRunning());
    std::vector<double> starts;
    std::vector<int> drops;
    for (int tick = 0; tick < 3; ++tick) {
        r.f.system.Advance(100);
        starts.push_back(r.model.start * 40);
        drops.push_back(r.axis.GetDropIndex());
    }
    EXPECT_EQ(starts, (std::vector<double>{64, 68, 76}));
    EXPECT_EQ(drops, (std::vector<int>{6, 7, 7}));
    r.f.window->InjectMouseMove(100, 30, mirel7::FlagLeftButton);
    EXPECT_FALSE(r.axis.GetScrollTimer().IsRunning()) << "away from the ends";
    r.f.window->InjectMouseMove(5, 30, mirel7::FlagLeftButton);
    r.f.system.Advance(100);
    EXPECT_EQ(r.model.start * 40, 72);
    r.f.window->InjectMouseMove(195, 30, mirel7::FlagLeftButton);
    r.f.system.Advance(100);
    EXPECT_EQ(r.model.start * 40, 76);
    r.f.window->InjectButtonUp(195, 30);
    EXPECT_FALSE(r.axis.GetScrollTimer().IsRunning());
    EXPECT_EQ(journal.back(), "reorder 2 6");
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

// A bar that owns its sections and does what its signals ask: widths change, sections move.
struct CTimeline : CBar, ICaptionSource {
    explicit CTimeline(CVisualElement* parent) : CBar(parent, {24, 24}, AlignBottom) {
        model.fixed = false;
        model.measure = {1.0 / 30, 1};
        model.stepSize = [this](double i) { return i < 0 || i >= GetCount() ? 1.0 : widths[std::size_t(i)]; };
        SetHorzScroll(&model);
        SetCaptionSource(this);
        SetResizeFlags(3);
        SetDragFlags(1);
        sigSectionResized.connect(this, &CTimeline::OnResized);
        sigReorder.connect(this, &CTimeline::OnReorder);
    }
    int GetCount() const override { return int(widths.size()); }
    std::string GetCaption(int i) const override { return names[std::size_t(i)]; }
    void OnResized(int i, double size) { widths[std::size_t(i)] = size, Update(UpdateLocal); }
    void OnReorder(CBar*, int from, int to) {
        std::swap(names[std::size_t(from)], names[std::size_t(to)]);
        Update(UpdateLocal);
    }
    mirel_test::CTestScrollModel model{0, 12};
    std::vector<double> widths{1, 2, 1.5, 1, 0.5, 3, 1, 1, 2, 1, 1, 1};
    std::vector<std::string> names{"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l"};
};

TEST(BarRepaint, ZoomScrollSelectResizeAndDragRepaintLikeAFullPaint) {
    mirel_test::SRepaintScenario scenario;
    scenario.clientSize = {200, 80};
    scenario.build = [](CBaseControl& control) {
        auto* const bar = new CTimeline(control.GetContent());
        bar->SetCentralPane(new mirel_test::CFilledElement(control.GetContent(), {0, 0}, AlignClient));
        control.Rearrange();
    };
    scenario.act = [](CBaseControl& control, mirel7::headless::CHeadlessWindow& window,
                      std::mt19937& random) {
        auto* const bar = static_cast<CTimeline*>(control.GetContent()->GetChildren()->GetItem(0));
        int const x = mirel_test::Uniform(random, 0, 199), y = mirel_test::Uniform(random, 55, 79);
        switch (mirel_test::Uniform(random, 0, 3)) {
        case 0:
            bar->model.measure = {1.0 / mirel_test::Uniform(random, 10, 60), 1};
            bar->Update(UpdateLocal);
            break;
        case 1:
            bar->model.start = mirel_test::Uniform(random, 0, 16) * 0.5;
            bar->Update(UpdateLocal);
            break;
        case 2: {
            int const modifiers[] = {0, mirel7::FlagShift, mirel7::FlagControl};
            int const m = modifiers[mirel_test::Uniform(random, 0, 2)];
            window.InjectMouseMove(x, y, m);
            window.InjectButtonDown(x, y, mirel7::ButtonLeft, m);
            window.InjectButtonUp(x, y, mirel7::ButtonLeft, m);
            break;
        }
        default: {
            // A press that resizes a section or the bar, or drags a section, depending on where it lands.
            int const to = mirel_test::Uniform(random, 0, 199);
            window.InjectMouseMove(x, y);
            window.InjectButtonDown(x, y);
            window.InjectMouseMove((x + to) / 2, y, mirel7::FlagLeftButton);
            window.InjectMouseMove(to, y - mirel_test::Uniform(random, 0, 8), mirel7::FlagLeftButton);
            window.InjectButtonUp(to, y);
            // A resized bar is laid out before the next input, as the paint between events would.
            control.Rearrange();
        }
        }
    };
    for (unsigned seed = 1; seed <= 6; ++seed)
        EXPECT_TRUE(mirel_test::IncrementalPaintEqualsFullPaint(scenario, seed));
}

} // namespace

TEST_F(Bar, DrawsVisibleSectionsFromTheAxisStartInHighlightColours) {
    r.axis.SetSelectedSections({2});
    std::vector<mirel_test::SLabel> const labels = r.Draw();
    EXPECT_EQ(mirel_test::Texts(labels), (std::vector<std::string>{"S1", "S2", "S3", "S4", "S5", "S6"}));
    std::vector<std::string> const cells = r.f.Recorder()->Lines({"DrawString"});
    EXPECT_EQ(cells[1], "DrawString \"S2\" 20,19,59,39 flags=0x164 color=#ffffff at=32,21,48,37");
    EXPECT_EQ(cells[5].substr(0, 35), "DrawString \"S6\" 180,19,198,39 flags") << "cut at the bar's end";
    std::vector<std::string> fills = r.f.Recorder()->Lines({"FillRect"});
    EXPECT_EQ(std::count(fills.begin(), fills.end(), "FillRect 20,19,59,39 brush=#0078d7"), 1);
}

// A bar with nothing to show, without a model or without captions, still paints its background over what
// stood there.
TEST(BarWithoutSections, PaintsItsBackground) {
    for (bool const captions : {false, true}) {
        mirel_test::TRuler<CBar> r{200, AlignBottom, 0, 8, 0, 1.0 / 40};
        CSections sections;
        if (captions) r.axis.SetCaptionSource(&sections), r.axis.SetHorzScroll(nullptr);
        r.axis.SetBkColor(mirel7::_color(1, 2, 3));
        r.Draw();
        std::vector<std::string> const fills = r.f.Recorder()->Lines({"FillRect"});
        EXPECT_EQ(std::count(fills.begin(), fills.end(), "FillRect 0,19,199,39 brush=#010203"), 1)
            << captions;
    }
}

// Pixels from the axis start along, from the pane across: a turned direction starts at the far side.
TEST(BarMapping, RunsFromTheStartAndAwayFromThePane) {
    struct {
        Alignment edge;
        double from, to;
        int x, y, cx, cy;
    } const cases[] = {{AlignBottom, 0, 8, 0, 19, 199, 20},
                       {AlignTop, 0, 8, 0, 20, 199, -20},
                       {AlignBottom, 8, 0, 199, 19, -199, 20},
                       {AlignLeft, 0, 8, 20, 0, -20, 199},
                       {AlignRight, 8, 0, 19, 199, 20, -199}};
    for (auto const& c : cases) {
        mirel_test::TRuler<CBar> r{200, c.edge, c.from, c.to, 0, 1.0 / 40};
        r.f.control->Rearrange();
        IPainter::CoordInfo info;
        if (c.edge == AlignLeft || c.edge == AlignRight)
            r.axis.FillVertical(&info, &r.model);
        else
            r.axis.FillHorizontal(&info, &r.model);
        EXPECT_EQ(std::vector<int>({info.x, info.y, info.cx, info.cy}),
                  std::vector<int>({c.x, c.y, c.cx, c.cy}))
            << c.edge << " " << c.from;
    }
}

// A right bar below a top strip: the bar starts at x 20 and its axis at y 30 of the control.
TEST(BarAwayFromTheOrigin, PressesMeasureAlongFromTheAxisStart) {
    mirel_test::TRuler<CBar> r{200, AlignRight, 0, 8, 1.5, 1.0 / 40};
    mirel_test::CFilledElement top{r.f.Root(), {0, 30}, mirelfrw7::AlignTop};
    CSections sections;
    r.axis.SetCaptionSource(&sections);
    r.f.control->Rearrange();
    struct CSlot : tarnkit2::subscriber_base_t {
        int pressed = -1;
        void OnPress(int i, bool&) { pressed = i; }
    } slot;
    r.axis.sigStartSectionPress.connect(&slot, &CSlot::OnPress);
    r.f.window->InjectButtonDown(30, 70);
    EXPECT_EQ(slot.pressed, 2) << "40 pixels past the axis start at 1.5";
}
