// What the along/across mapping and the placement layouts cost. Each measurement has a baseline beside it
// in the same run: the mapping against building the rectangle directly, and the flow and grid layouts
// against one plain pass that reads every size once and writes every rectangle once through the same site.
#include <mirelfrw7/layout/flow_layout.h>
#include <mirelfrw7/layout/grid_layout.h>
#include <mirelfrw7/layout/layout_flavor.h>
#include <mirelfrw7/layout/layout_manager.h>

#include <benchmark/benchmark.h>

#include "allocation_meter.h"

#include <vector>

namespace {

using namespace mirelfrw7;
using mirel7::rectangle;
using mirel7::size;

// Boxes along a strip of the left edge, as a drawing loop makes them.
template <class Make>
void AlongLoop(benchmark::State& state, Make make) {
    double sum = 0;
    for (auto _ : state) {
        for (int i = 0; i < 256; ++i) {
            rectangle<double> const r = make(i * 10.0, 2.0, i * 10.0 + 8.0, 18.0);
            sum += r.left + r.bottom;
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * 256);
}

void MakeRectDirect(benchmark::State& state) {
    AlongLoop(state, [](double a0, double c0, double a1, double c1) {
        benchmark::ClobberMemory();
        return rectangle<double>(c0, a0, c1, a1);
    });
}
BENCHMARK(MakeRectDirect);

void MakeRectThroughLayout(benchmark::State& state) {
    ILayout* layout = CLayoutManager::GetLayout(AlignLeft);
    benchmark::DoNotOptimize(layout);
    AlongLoop(state, [layout](double a0, double c0, double a1, double c1) {
        benchmark::ClobberMemory();
        return layout->MakeRect(a0, c0, a1, c1);
    });
}
BENCHMARK(MakeRectThroughLayout);

void MakeRectThroughFlavor(benchmark::State& state) {
    struct CFlavored : CLayoutFlavor {
    } flavored;
    flavored.ChangeLayout(AlignLeft);
    ILayout* layout = &flavored;
    benchmark::DoNotOptimize(layout);
    AlongLoop(state, [layout](double a0, double c0, double a1, double c1) {
        benchmark::ClobberMemory();
        return layout->MakeRect(a0, c0, a1, c1);
    });
}
BENCHMARK(MakeRectThroughFlavor);

// Items of a few sizes; the rectangles land in a vector.
struct CItems : IFlowLayoutSite, IGridLayoutSite {
    explicit CItems(int count, int columns = 1) : rects(std::size_t(count)), columns(columns) {}
    std::vector<rectangle<int>> rects;
    int columns;

    size<int> SizeOf(int i) const { return {20 + i % 7 * 5, 10 + i % 3 * 4}; }

    int GetItemCount() override { return int(rects.size()); }
    size<int> GetItemSize(int item) override { return SizeOf(item); }
    void SetItemRect(int item, rectangle<int> const& r) override { rects[std::size_t(item)] = r; }
    int GetItemSpace(int) override { return 2; }
    int GetLineSpace() override { return 3; }
    int GetTop() override { return 0; }
    int GetLeft() override { return 0; }

    int GetColumnCount() override { return columns; }
    int GetRowCount() override { return int(rects.size()) / columns; }
    size<int> GetCellSize(int row, int column) override { return SizeOf(row * columns + column); }
    void SetCellRect(int row, int column, rectangle<int> const& r) override {
        rects[std::size_t(row * columns + column)] = r;
    }
    int GetColumnSpace(int) override { return 2; }
    int GetRowSpace(int) override { return 3; }
};

// The least any placement does: each size read once, each rectangle written once, through the site.
template <class Read, class Write>
void OnePass(benchmark::State& state, int count, Read read, Write write) {
    for (auto _ : state) {
        int x = 0;
        for (int i = 0; i < count; ++i) {
            size<int> const s = read(i);
            write(i, rectangle<int>(x, 0, x + s.cx, s.cy));
            x += s.cx + 2;
        }
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * count);
}

void FlowBaseline(benchmark::State& state) {
    CItems items(int(state.range(0)));
    IFlowLayoutSite* site = &items;
    benchmark::DoNotOptimize(site);
    OnePass(
        state, int(state.range(0)), [site](int i) { return site->GetItemSize(i); },
        [site](int i, rectangle<int> const& r) { site->SetItemRect(i, r); });
}
BENCHMARK(FlowBaseline)->Arg(100)->Arg(10000);

void FlowUpdate(benchmark::State& state) {
    CItems items(int(state.range(0)));
    CFlowLayout flow;
    flow.SetSite(&items);
    flow.SetWidth(400);
    std::size_t const before = bench::AllocatedBytes();
    for (auto _ : state)
        flow.Update();
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["bytes"] =
        benchmark::Counter(double(bench::AllocatedBytes() - before) / double(state.iterations()));
}
BENCHMARK(FlowUpdate)->Arg(100)->Arg(10000);

// Grids of 1000 cells in 1, 10 and 100 columns: every column reads every cell again.
void GridBaseline(benchmark::State& state) {
    int const columns = int(state.range(0));
    CItems items(1000, columns);
    IGridLayoutSite* site = &items;
    benchmark::DoNotOptimize(site);
    OnePass(
        state, 1000, [site, columns](int i) { return site->GetCellSize(i / columns, i % columns); },
        [site, columns](int i, rectangle<int> const& r) { site->SetCellRect(i / columns, i % columns, r); });
}
BENCHMARK(GridBaseline)->Arg(1)->Arg(10)->Arg(100);

void GridUpdate(benchmark::State& state) {
    CItems items(1000, int(state.range(0)));
    CGridLayout grid;
    grid.SetSite(&items);
    for (auto _ : state)
        grid.Update();
    state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(GridUpdate)->Arg(1)->Arg(10)->Arg(100);

} // namespace

BENCHMARK_MAIN();
