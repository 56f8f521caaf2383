// What keeping the bars in step costs. A refresh of a scroll box over a linear model, at 10^3 and 10^8
// logical units, against its floor in the same run: handing the same record to the same native bar. The
// refresh must stay flat over the range, and close to the floor.
#include <mirelfrw7/core/base_control.h>
#include <mirelfrw7/scroll/scroll_box.h>

#include <mirel7/headless/headless_system.h>
#include <mirel7/headless/headless_window.h>
#include <mirel7/recording_painter.h>

#include <benchmark/benchmark.h>

#include <memory>

namespace {

using namespace mirelfrw7;

// A model of `count` units of one pixel each, started in the middle.
struct SLinearModel : ISimpleScrollModel {
    explicit SLinearModel(double count) : to(count), start(count / 2) {}
    double GetFrom() const override { return 0.0; }
    double GetTo() const override { return to; }
    void SetStart(double v) override { start = v; }
    double GetStart() const override { return start; }
    int GetMinScrollDistance() const override { return 1; }
    void SetMeasure(std::pair<double, int> m) override { measure = m; }
    std::pair<double, int> GetMeasure() const override { return measure; }
    double to, start;
    std::pair<double, int> measure{1.0, 1};
};

struct SBox {
    explicit SBox(double count)
        : window(system, {400, 300}, std::make_unique<mirel7::CRecordingPainter>()), control(&window),
          model(count) {
        box = new CScrollBox(control.GetContent(), {0, 0}, AlignClient);
        box->SetCentralPane(new CVisualElement(box, {0, 0}, AlignClient));
        box->SetVertScroll(&model);
        window.Paint();
    }
    mirel7::headless::CHeadlessSystem system;
    mirel7::headless::CHeadlessWindow window;
    CBaseControl control;
    SLinearModel model;
    CScrollBox* box = nullptr;
};

void RefreshScroll(benchmark::State& state) {
    SBox b(double(state.range(0)));
    for (auto _ : state) {
        b.box->RefreshScroll();
        benchmark::DoNotOptimize(b.box->GetVertBar()->GetPos());
    }
}
BENCHMARK(RefreshScroll)->Arg(1000)->Arg(100000000);

void BareSetInfo(benchmark::State& state) {
    SBox b(double(state.range(0)));
    mirel7::SScrollBarInfo const info = b.box->GetVertBar()->GetInfo();
    for (auto _ : state) {
        b.box->GetVertBar()->SetInfo(info);
        benchmark::DoNotOptimize(b.box->GetVertBar()->GetPos());
    }
}
BENCHMARK(BareSetInfo)->Arg(1000)->Arg(100000000);

} // namespace

BENCHMARK_MAIN();
