// A section bar on a real window: a section dragged to a new place and another resized with the pointer of
// an X server.
#include <mirelfrw7/chart/bar.h>
#include <mirelfrw7/chart/caption_source.h>
#include <mirelfrw7/core/base_control.h>

#include "e2e/sdl_test.h"
#include "mirelfrw7/scroll/test_scroll_model.h"
#include "support/test_elements.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;

// Eight sections of 50 pixels along the bottom 30 pixels; the owner resizes and moves them as asked.
struct CTimeline : CBar, ICaptionSource {
    explicit CTimeline(CVisualElement* parent) : CBar(parent, {0, 30}, AlignBottom) {
        model.fixed = false;
        model.measure = {1.0 / 50, 1};
        model.stepSize = [this](double i) { return i < 0 || i >= GetCount() ? 1.0 : widths[std::size_t(i)]; };
        SetHorzScroll(&model);
        SetCaptionSource(this);
        SetResizeFlags(1);
        SetDragFlags(1);
        sigSectionResized.connect(this, &CTimeline::OnResized);
        sigReorder.connect(this, &CTimeline::OnReorder);
    }
    int GetCount() const override { return int(names.size()); }
    std::string GetCaption(int i) const override { return names[std::size_t(i)]; }
    void OnResized(int i, double size) { widths[std::size_t(i)] = size, Update(UpdateLocal); }
    void OnReorder(CBar*, int from, int to) {
        std::string const name = names[std::size_t(from)];
        names.erase(names.begin() + from);
        names.insert(names.begin() + to, name);
        Update(UpdateLocal);
    }
    mirel_test::CTestScrollModel model{0, 8};
    std::vector<double> widths = std::vector<double>(8, 1.0);
    std::vector<std::string> names{"a", "b", "c", "d", "e", "f", "g", "h"};
};

class BarOnX : public mirel_test::CSdlTest {
protected:
    void SetUp() override {
        OpenWindow({400, 80}, [&](mirel7::sdl::CSdlWindow* w) {
            control = std::make_unique<CBaseControl>(w);
            bar = new CTimeline(control->GetContent());
            bar->SetCentralPane(new mirel_test::CFilledElement(control->GetContent(), {0, 0}, AlignClient));
        });
        detach = [&] { control.reset(); };
    }

    std::unique_ptr<CBaseControl> control;
    CTimeline* bar = nullptr;
};

TEST_F(BarOnX, ASectionMovesAndAnotherResizesUnderThePointer) {
    Xdotool("mousemove " + At(75, 65) + " mousedown 1");
    Xdotool("mousemove " + At(85, 65));
    Xdotool("mousemove " + At(180, 65) + " mouseup 1");
    EXPECT_EQ(bar->names, (std::vector<std::string>{"a", "c", "d", "b", "e", "f", "g", "h"}));
    std::vector<int> selected;
    bar->GetSelectedSections(selected);
    EXPECT_EQ(selected, std::vector<int>{3}) << "the selection follows the section";

    // The press lands near the last one: it waits out the double-click time, so as to be a press of its own.
    Xdotool("mousemove " + At(49, 65) + " sleep 0.6 mousedown 1");
    Xdotool("mousemove " + At(60, 65));
    Xdotool("mousemove " + At(69, 65) + " mouseup 1");
    EXPECT_DOUBLE_EQ(bar->widths[0] * 50, 70.0);
    EXPECT_EQ(bar->HitTest({110, 65}).index, 1) << "the sections after it moved along";
}

} // namespace
