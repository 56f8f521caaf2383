// What a box of many children costs: measuring it against a bare loop over the same children, placing its
// children against the docking pass of a plain element with the same children, and filling it, attached,
// one child after another against filling a plain element. Each pair runs at 10^3 and 10^4 children, so the
// time per child shows whether the work grows linearly.
#include <mirelfrw7/core/base_control.h>
#include <mirelfrw7/layout/box.h>

#include <mirel7/headless/headless_system.h>
#include <mirel7/headless/headless_window.h>
#include <mirel7/recording_painter.h>

#include <benchmark/benchmark.h>

#include <memory>

namespace {

using namespace mirelfrw7;

// A control whose root holds one holder of `count` children docked to the top: a vertical box, or a plain
// element as the baseline.
template <class Holder>
struct STree {
    explicit STree(int count)
        : window(system, {400, 300}, std::make_unique<mirel7::CRecordingPainter>()), control(&window) {
        holder = new Holder(control.GetContent(), {200, 0}, AlignNone);
        for (int i = 0; i < count; ++i)
            new CVisualElement(holder, {0, 1 + i % 3}, AlignTop);
        holder->SetPos({0, 0, 200, 300}, false);
        window.Paint();
    }
    mirel7::headless::CHeadlessSystem system;
    mirel7::headless::CHeadlessWindow window;
    CBaseControl control;
    Holder* holder = nullptr;
};

void VertBoxRecalculateSize(benchmark::State& state) {
    STree<CVertBox> tree(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        tree.holder->RecalculateSize();
        benchmark::DoNotOptimize(tree.holder->GetSize());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(VertBoxRecalculateSize)->Arg(1000)->Arg(10000);

// The floor for the line above: the same sum over the same children, read through the same child list.
void BareSumOfHeights(benchmark::State& state) {
    STree<CVisualElement> tree(static_cast<int>(state.range(0)));
    IChildren* const children = tree.holder->GetChildren();
    for (auto _ : state) {
        long long sum = 0;
        for (int i = 0, count = children->GetCount(); i < count; ++i) {
            CVisualElement const* const child = children->GetItem(i);
            if (child->IsVisible() && child->GetAlignment() == AlignTop) sum += child->GetSize().cy + 1;
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BareSumOfHeights)->Arg(1000)->Arg(10000);

template <class Holder>
void Arrange(benchmark::State& state) {
    STree<Holder> tree(static_cast<int>(state.range(0)));
    for (auto _ : state)
        tree.holder->SetPos(tree.holder->GetPosition(), true);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
void VertBoxArrange(benchmark::State& state) {
    Arrange<CVertBox>(state);
}
void DockingArrange(benchmark::State& state) {
    Arrange<CVisualElement>(state);
}
BENCHMARK(VertBoxArrange)->Arg(1000)->Arg(10000);
BENCHMARK(DockingArrange)->Arg(1000)->Arg(10000);

// Adds `count` children one by one to a holder that already has its control.
template <class Holder>
void Fill(benchmark::State& state) {
    int const count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto tree = std::make_unique<STree<Holder>>(0);
        state.ResumeTiming();
        for (int i = 0; i < count; ++i)
            new CVisualElement(tree->holder, {0, 1 + i % 3}, AlignTop);
        state.PauseTiming();
        tree.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count);
}
void VertBoxFill(benchmark::State& state) {
    Fill<CVertBox>(state);
}
void ElementFill(benchmark::State& state) {
    Fill<CVisualElement>(state);
}
BENCHMARK(VertBoxFill)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(ElementFill)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
