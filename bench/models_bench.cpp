// What a paint, a scroll and a hit test cost on a discrete view model as the item count grows from a thousand
// to a hundred million, one item in a hundred with a size of its own. The figures must stay flat across the
// counts: everything is bounded by the visible items, times a map lookup. The baseline is one lookup of an
// item size in the same model.
#include <mirelfrw7/items/default_discrete_item_view_model.h>
#include <mirelfrw7/items/item_utils.h>
#include <mirelfrw7/items/sparse_item_sizes.h>
#include <mirelfrw7/scroll/discrete_item_scroll_model.h>

#include <benchmark/benchmark.h>

#include <climits>
#include <map>
#include <memory>
#include <random>
#include <vector>

namespace {

using namespace mirelfrw7;

constexpr int ViewSize = 600; // about 30 rows of 20 pixels

// Places the view without the work of a scroll, for the queries that only read the start.
struct CRows : CDefaultDiscreteItemViewModel {
    void Place(int start) { m_start = start; }
};

// One model per count, made once: building the largest takes a million map entries.
CRows& Model(int count) {
    static std::map<int, std::unique_ptr<CRows>> models;
    auto& model = models[count];
    if (!model) {
        model = std::make_unique<CRows>();
        model->SetCount(count);
        std::mt19937 random(3);
        std::uniform_int_distribution<int> size(5, 60);
        for (int i = 0; i < count; i += 100)
            model->SetItemSize(i + int(random() % 100), size(random));
        model->SetViewSize(ViewSize, false);
        model->OnEndDraw();
    }
    return *model;
}

// Starts spread over the whole list, the same for every count relative to its length.
std::vector<int> Positions(int count) {
    std::mt19937 random(5);
    std::vector<int> positions(1024);
    for (int& p : positions)
        p = int(random() % unsigned(count));
    return positions;
}

void Counts(benchmark::internal::Benchmark* b) {
    for (int count : {1000, 100000, 10000000, 100000000})
        b->Arg(count);
    b->Complexity();
}

void ItemSizeLookup(benchmark::State& state) {
    auto& model = Model(int(state.range(0)));
    auto const positions = Positions(int(state.range(0)));
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(model.GetItemSize(positions[i++ % positions.size()]));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(ItemSizeLookup)->Apply(Counts);

// A jump anywhere and a step of one row, each followed by the end of a paint pass.
void SetStartItem(benchmark::State& state) {
    auto& model = Model(int(state.range(0)));
    auto const positions = Positions(int(state.range(0)));
    std::size_t i = 0;
    for (auto _ : state) {
        int const start = positions[i++ % positions.size()];
        model.SetStartItem(start);
        model.SetStartItem(start + 1);
        model.OnEndDraw();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(SetStartItem)->Apply(Counts);

// Every tenth pixel of the view, at a start anywhere.
void HitTest(benchmark::State& state) {
    auto& model = Model(int(state.range(0)));
    auto const positions = Positions(int(state.range(0)));
    std::size_t i = 0;
    for (auto _ : state) {
        model.Place(positions[i++ % positions.size()]);
        for (int pos = 0; pos <= ViewSize; pos += 10)
            benchmark::DoNotOptimize(Utils::HitTest(model, pos));
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(HitTest)->Apply(Counts);

void GetLastVisibleItem(benchmark::State& state) {
    auto& model = Model(int(state.range(0)));
    auto const positions = Positions(int(state.range(0)));
    std::size_t i = 0;
    for (auto _ : state) {
        model.Place(positions[i++ % positions.size()]);
        benchmark::DoNotOptimize(Utils::GetLastVisibleItem(model));
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(GetLastVisibleItem)->Apply(Counts);

void CalcMaxStart(benchmark::State& state) {
    auto& model = Model(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(Utils::CalcMaxStart(model));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(CalcMaxStart)->Apply(Counts);

// A paint pass's questions, every visible row at a start anywhere, after a scroll of sixteen rows, one at a
// time, and scattered changes have left their ranges in the update list.
void GetItemType(benchmark::State& state) {
    int const count = int(state.range(0));
    auto& model = Model(count);
    auto const positions = Positions(count);
    model.OnEndDraw();
    model.SetStartItem(positions[0] + 16);
    for (int step = 15; step >= 0; --step)
        model.SetStartItem(positions[0] + step);
    for (std::size_t i = 1; i < 64; ++i)
        model.AddDirtyItems(positions[i], positions[i] + 2);
    std::size_t i = 0;
    for (auto _ : state) {
        int const first = positions[i++ % positions.size()];
        for (int row = first; row < first + ViewSize / 20; ++row)
            benchmark::DoNotOptimize(model.GetItemType(row));
    }
    model.OnEndDraw();
    state.SetComplexityN(state.range(0));
}
BENCHMARK(GetItemType)->Apply(Counts);

// Filling a million custom sizes over 10^8 items in random order, against the same inserts into an ordered
// map, the node per entry that the sizes lived in before.
std::vector<int> RandomIndexes() {
    std::mt19937 random(7);
    std::vector<int> indexes(1'000'000);
    for (int& i : indexes)
        i = int(random() % 100'000'000u);
    return indexes;
}

void FillSizesRandomly(benchmark::State& state) {
    auto const indexes = RandomIndexes();
    for (auto _ : state) {
        CSparseItemSizes sizes;
        for (int i : indexes)
            sizes.Set(i, 30, 20);
        benchmark::DoNotOptimize(sizes.Get(indexes[0], 20));
    }
}
BENCHMARK(FillSizesRandomly)->Unit(benchmark::kMillisecond);

void FillOrderedMapRandomly(benchmark::State& state) {
    auto const indexes = RandomIndexes();
    for (auto _ : state) {
        std::map<int, int> sizes;
        for (int i : indexes)
            sizes[i] = 30;
        benchmark::DoNotOptimize(sizes.size());
    }
}
BENCHMARK(FillOrderedMapRandomly)->Unit(benchmark::kMillisecond);

} // namespace

// The step at a position counted from the top of the list: found in time proportional to the stored sizes
// (one row in a hundred), against the walk over every row that any model can do, in the same run.
template <bool Walk>
void FindStep(benchmark::State& state) {
    auto& rows = Model(int(state.range(0)));
    CDiscreteItemScrollModel const model(&rows);
    auto const positions = Positions(int(state.range(0)));
    std::size_t i = 0;
    for (auto _ : state) {
        double left = positions[i++ % positions.size()];
        benchmark::DoNotOptimize(Walk ? model.IScrollModel::PassSteps(0, INT_MAX, &left)
                                      : model.PassSteps(0, INT_MAX, &left));
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(FindStep<false>)->Apply(Counts);
BENCHMARK(FindStep<true>)->Arg(1000)->Arg(100000)->Arg(10000000)->Complexity();

BENCHMARK_MAIN();
