#include <mirelfrw7/chart/axis.h>
#include <mirelfrw7/chart/bar.h>
#include <mirelfrw7/chart/caption_source.h>

#include "mirelfrw7/scroll/test_scroll_model.h"
#include "support/repaint_property.h"
#include "support/storm.h"

#include <gtest/gtest.h>

#include <string>
#include <unordered_set>

namespace {

using namespace mirelfrw7;

// Axes and bars on one edge following one model, whose owner zooms it when a section is resized and scrolls
// it when one is dropped, and asks every strip following it to repaint.
struct CChart : ICaptionSource, tarnkit2::subscriber_base_t {
    int GetCount() const override { return 12; }
    std::string GetCaption(int index) const override { return "S" + std::to_string(index); }

    CVisualElement* Make(CVisualElement* parent, std::mt19937& random) {
        CScrollableElementEx* strip = nullptr;
        if (mirel_test::Uniform(random, 0, 1)) {
            strip = new CAxis(parent, {20, 20}, edge);
        } else {
            auto* const bar = new CBar(parent, {20, 20}, edge);
            bar->SetCaptionSource(this);
            bar->SetResizeFlags(3);
            bar->SetDragFlags(1);
            bar->sigSectionResized.connect(this, &CChart::Zoom);
            bar->sigReorder.connect(this, &CChart::Scroll);
            strip = bar;
        }
        // Along its own length: a pane elsewhere could die before it.
        strip->SetCentralPane(strip);
        strip->SetHorzScroll(&model);
        strip->SetVertScroll(&model);
        strip->sigDestroy.connect(this, &CChart::Died);
        strips.insert(strip);
        return strip;
    }
    void Zoom(int, double size) {
        model.measure = {1.0 / (4 + int(size * 7) % 40), 1};
        Repaint();
    }
    void Scroll(CBar*, int from, int to) {
        model.start = (from * 5 + to) % 9 * 0.5;
        Repaint();
    }
    void Repaint() {
        for (CVisualElement* strip : strips)
            strip->Update(UpdateLocal);
    }
    void Died(CVisualElement* e) { strips.erase(e); }

    Alignment edge = AlignBottom;
    mirel_test::CTestScrollModel model{0, 12};
    std::unordered_set<CVisualElement*> strips;
};

// Trees of strips turned every way, the control's content among them, under every input and tree change.
TEST(ChartStorm, AxesAndBarsOnEveryEdge) {
    for (Alignment const edge : {AlignLeft, AlignTop, AlignRight, AlignBottom}) {
        CChart chart;
        chart.edge = edge;
        auto const make = [&chart](CVisualElement* parent, std::mt19937& random) {
            return chart.Make(parent, random);
        };
        EXPECT_TRUE(mirel_test::SurvivesStorm(make, 5, mirel_test::StormActions(3000, 10000))) << edge;
    }
}

} // namespace
