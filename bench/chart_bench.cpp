// What drawing the rulers costs. A 1,920-pixel axis drawn at 100 zoom levels, each with labels of its own
// to measure, against the baseline of the same 100 draws at one zoom level, whose labels are measured once.
// A section bar scrolled to the middle of 10^3 to 10^7 sections of 40 pixels: the figures must stay flat,
// since only the sections in view are drawn.
#include <mirelfrw7/chart/axis.h>
#include <mirelfrw7/chart/bar.h>
#include <mirelfrw7/chart/caption_source.h>
#include <mirelfrw7/core/base_control.h>
#include <mirelfrw7/scroll/scroll_model.h>

#include <mirel7/headless/headless_system.h>
#include <mirel7/headless/headless_window.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <string>

namespace {

using namespace mirelfrw7;

constexpr int Length = 1920;

// A range of uniform steps whose scale the benchmark sets.
struct SModel : IScrollModel {
    double GetFrom() const override { return 0; }
    double GetTo() const override { return to; }
    void SetStart(double value) override { start = value; }
    double GetStart() const override { return start; }
    int GetMinScrollDistance() const override { return 1; }
    bool IsFixedStepSize() const override { return true; }
    double GetStepSize(double) const override { return 1.0; }
    void SetStepSize(double, double) const override {}
    void SetMeasure(std::pair<double, int> value) override { measure = value; }
    std::pair<double, int> GetMeasure() const override { return measure; }

    double to = 1e6, start = 0;
    std::pair<double, int> measure{1.0, 1};
};

struct SCaptions : ICaptionSource {
    int GetCount() const override { return count; }
    std::string GetCaption(int index) const override { return "Section " + std::to_string(index); }
    int count = 0;
};

// A ruler along the bottom of a drawing window, under a pane.
template <class Ruler>
struct SStrip {
    SStrip() : window(system, {Length, 100}, nullptr), control(&window) {
        ruler = new Ruler(control.GetContent(), {0, 30}, AlignBottom);
        ruler->SetCentralPane(new CVisualElement(control.GetContent(), {0, 0}, AlignClient));
        ruler->SetHorzScroll(&model);
        window.Paint();
    }
    void Draw() {
        ruler->Update(UpdateLocal);
        window.Paint();
    }

    mirel7::headless::CHeadlessSystem system;
    mirel7::headless::CHeadlessWindow window;
    CBaseControl control;
    SModel model;
    Ruler* ruler = nullptr;
};

// From 10^-3 to 10^2 units a pixel over 100 levels, scrolled to a start that is no round number.
double UnitsPerPixel(int level) {
    return std::pow(10.0, level / 20.0 - 3.0);
}

void AxisZoomLevels(benchmark::State& state) {
    SStrip<CAxis> s;
    bool const zooming = state.range(0) != 0;
    for (auto _ : state)
        for (int level = 0; level < 100; ++level) {
            double const upp = UnitsPerPixel(zooming ? level : 50);
            s.model.measure = {upp, 1};
            s.model.start = 1234.5678 * upp;
            s.Draw();
        }
    state.counters["draws"] =
        benchmark::Counter(100.0 * double(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(AxisZoomLevels)->Arg(0)->Arg(1)->ArgNames({"zooming"})->Unit(benchmark::kMillisecond);

void BarInTheMiddle(benchmark::State& state) {
    SStrip<CBar> s;
    SCaptions captions;
    captions.count = int(state.range(0));
    s.ruler->SetCaptionSource(&captions);
    s.model.to = captions.count;
    s.model.measure = {1.0 / 40, 1};
    s.model.start = captions.count / 2.0;
    for (auto _ : state)
        s.Draw();
    state.counters["sections"] = double(captions.count);
}
BENCHMARK(BarInTheMiddle)->RangeMultiplier(10)->Range(1000, 10000000)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
