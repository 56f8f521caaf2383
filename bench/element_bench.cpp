// What elements cost: making one, laying many out, and a paint pass after one element changed against a
// full repaint of the same tree, through the recording painter and the drawing backend.
#include <mirelfrw7/core/base_control.h>

#include <mirel7/headless/headless_system.h>
#include <mirel7/headless/headless_window.h>
#include <mirel7/recording_painter.h>

#include <benchmark/benchmark.h>

#include "support/allocation_counter.h"

#include <memory>

namespace {

using namespace mirelfrw7;

class CBlock : public CVisualElement {
public:
    using CVisualElement::CVisualElement;
    void DrawContent(IPainter* painter) override {
        rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
    }
};

void ElementLifetime(benchmark::State& state) {
    mirel7::headless::CHeadlessSystem system;
    CBlock parent(nullptr, {0, 0}, AlignNone);
    mirel_test::CCountAllocations allocations;
    for (auto _ : state) {
        auto* e = new CBlock(&parent, {10, 10}, AlignLeft);
        delete e;
    }
    state.counters["bytes"] = benchmark::Counter(double(allocations.Bytes()) / double(state.iterations()));
    state.counters["sizeof"] = sizeof(CBlock);
}
BENCHMARK(ElementLifetime);

// The floor for the line above: a plain object of an element's size, made and freed.
void PlainNewDelete(benchmark::State& state) {
    struct SPlain {
        char bytes[sizeof(CBlock)];
    };
    mirel_test::CCountAllocations allocations;
    for (auto _ : state) {
        auto* p = new SPlain;
        benchmark::DoNotOptimize(p);
        delete p;
    }
    state.counters["bytes"] = benchmark::Counter(double(allocations.Bytes()) / double(state.iterations()));
}
BENCHMARK(PlainNewDelete);

// Deleting an element with `count` children, per child: the children leave one after another.
void DeleteWide(benchmark::State& state) {
    mirel7::headless::CHeadlessSystem system;
    for (auto _ : state) {
        state.PauseTiming();
        auto* parent = new CBlock(nullptr, {0, 0}, AlignNone);
        for (int i = 0; i < state.range(0); ++i)
            new CBlock(parent, {1, 1}, AlignLeft);
        state.ResumeTiming();
        delete parent;
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(DeleteWide)->Arg(1000)->Arg(10000)->Arg(100000);

// A control with `count` leaves docked in rows of ten under strips.
struct STree {
    explicit STree(int count, bool record)
        : window(system, {1000, 800},
                 record
                     ? std::unique_ptr<mirel7::IWindowPainter>(std::make_unique<mirel7::CRecordingPainter>())
                     : std::unique_ptr<mirel7::IWindowPainter>()),
          control(&window) {
        for (int row = 0; row < count / 10; ++row) {
            auto* strip = new CBlock(control.GetContent(), {0, 1}, AlignTop);
            for (int i = 0; i < 10; ++i)
                last = new CBlock(strip, {9, 0}, AlignLeft);
        }
        window.Paint();
    }
    mirel7::headless::CHeadlessSystem system;
    mirel7::headless::CHeadlessWindow window;
    CBaseControl control;
    CVisualElement* last = nullptr;
};

void ForcedSetPos(benchmark::State& state) {
    STree tree(static_cast<int>(state.range(0)), true);
    CVisualElement* root = tree.control.GetContent();
    for (auto _ : state)
        root->SetPos(root->GetPosition(), true);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(ForcedSetPos)->Arg(100)->Arg(1000)->Arg(10000);

void PartialPaint(benchmark::State& state) {
    STree tree(10000, state.range(0) == 0);
    for (auto _ : state) {
        tree.last->Update(UpdateLocal);
        tree.window.Paint();
    }
}
BENCHMARK(PartialPaint)->Arg(0)->Arg(1)->ArgNames({"cairo"});

void FullPaint(benchmark::State& state) {
    STree tree(10000, state.range(0) == 0);
    for (auto _ : state) {
        tree.control.GetContent()->Update(UpdateLocal);
        tree.window.Paint();
    }
}
BENCHMARK(FullPaint)->Arg(0)->Arg(1)->ArgNames({"cairo"});

} // namespace

BENCHMARK_MAIN();
