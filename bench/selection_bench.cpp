// What selecting costs as the item count grows from a thousand to a hundred million: select all, a Shift
// extension, moves and insertions under a selection of everything, and the per-item query of a paint. The
// run map's figures must stay flat across the counts; the baseline is a plain vector of one flag per item
// doing the same in the same run, whose figures grow with the count.
#include <mirelfrw7/items/default_selection_model.h>
#include <mirelfrw7/items/index_translator.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

using namespace mirelfrw7;

void Counts(benchmark::internal::Benchmark* b) {
    for (int count : {1'000, 100'000, 10'000'000, 100'000'000})
        b->Arg(count);
}

void SelectAll_Runs(benchmark::State& state) {
    int const count = int(state.range(0));
    CDefaultSelectionModel model;
    for (auto _ : state) {
        model.ClearSelection();
        model.SetSelectionRange(0, count - 1);
        model.OnEndDraw();
    }
    benchmark::DoNotOptimize(model.GetSelectedCount());
}
BENCHMARK(SelectAll_Runs)->Apply(Counts);

void SelectAll_Flags(benchmark::State& state) {
    std::vector<bool> flags(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        flags.assign(flags.size(), false);
        flags.assign(flags.size(), true);
        benchmark::DoNotOptimize(flags);
    }
}
BENCHMARK(SelectAll_Flags)->Apply(Counts);

// The anchor in the middle, the current item jumping anywhere, as Shift+click and Shift+End do.
void ShiftExtend_Runs(benchmark::State& state) {
    int const count = int(state.range(0));
    CDefaultSelectionModel model;
    std::mt19937 random(3);
    for (auto _ : state) {
        model.SetSelectionRange(count / 2, int(random() % unsigned(count)));
        model.OnEndDraw();
    }
}
BENCHMARK(ShiftExtend_Runs)->Apply(Counts);

void ShiftExtend_Flags(benchmark::State& state) {
    int const count = int(state.range(0));
    std::vector<bool> flags(static_cast<std::size_t>(count));
    std::mt19937 random(3);
    for (auto _ : state) {
        int const to = int(random() % unsigned(count));
        flags.assign(flags.size(), false);
        std::fill(flags.begin() + std::min(count / 2, to), flags.begin() + std::max(count / 2, to) + 1, true);
        benchmark::DoNotOptimize(flags);
    }
}
BENCHMARK(ShiftExtend_Flags)->Apply(Counts);

// Ctrl+click on every tenth of a million items: a hundred thousand runs, the worst shape for the map.
void CtrlToggleEveryTenth_Runs(benchmark::State& state) {
    for (auto _ : state) {
        CDefaultSelectionModel model;
        for (int i = 0; i < 1'000'000; i += 10)
            model.SelectItem(i, true);
        benchmark::DoNotOptimize(model.GetSelectedCount());
    }
}
BENCHMARK(CtrlToggleEveryTenth_Runs)->Unit(benchmark::kMillisecond);

void CtrlToggleEveryTenth_Flags(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<bool> flags(1'000'000);
        for (int i = 0; i < 1'000'000; i += 10)
            flags[std::size_t(i)] = !flags[std::size_t(i)];
        benchmark::DoNotOptimize(flags);
    }
}
BENCHMARK(CtrlToggleEveryTenth_Flags)->Unit(benchmark::kMillisecond);

// The paint's question, over the hundred thousand runs above.
void IsItemSelected_Runs(benchmark::State& state) {
    CDefaultSelectionModel model;
    for (int i = 0; i < 1'000'000; i += 10)
        model.SelectItem(i, true);
    std::mt19937 random(5);
    for (auto _ : state)
        benchmark::DoNotOptimize(model.IsItemSelected(int(random() % 1'000'000u)));
}
BENCHMARK(IsItemSelected_Runs);

void IsItemSelected_Flags(benchmark::State& state) {
    std::vector<bool> flags(1'000'000);
    for (int i = 0; i < 1'000'000; i += 10)
        flags[std::size_t(i)] = true;
    std::mt19937 random(5);
    for (auto _ : state)
        benchmark::DoNotOptimize(bool(flags[random() % 1'000'000u]));
}
BENCHMARK(IsItemSelected_Flags);

// A thousand items inserted in the middle, then removed again, under a selection of everything; and the
// first third's last item moved to two thirds.
void Translate_Runs(benchmark::State& state) {
    int const count = int(state.range(0));
    CDefaultSelectionModel model;
    model.SetSelectionRange(0, count - 1);
    CAddRemoveTranslator insert(count / 2, 1000), remove(count / 2, -1000);
    CMoveTranslator move(count / 3, 2 * (count / 3));
    for (auto _ : state) {
        model.UpdateModelState(&insert);
        model.UpdateModelState(&remove);
        model.UpdateModelState(&move);
    }
    benchmark::DoNotOptimize(model.GetSelectedCount());
}
BENCHMARK(Translate_Runs)->Apply(Counts);

void Translate_Flags(benchmark::State& state) {
    int const count = int(state.range(0));
    std::vector<bool> flags(std::size_t(count), true);
    for (auto _ : state) {
        flags.insert(flags.begin() + count / 2 + 1, 1000, false);
        flags.erase(flags.begin() + count / 2 + 1, flags.begin() + count / 2 + 1001);
        std::rotate(flags.begin() + count / 3, flags.begin() + count / 3 + 1,
                    flags.begin() + 2 * (count / 3) + 1);
        benchmark::DoNotOptimize(flags);
    }
}
BENCHMARK(Translate_Flags)->Apply(Counts);

} // namespace

BENCHMARK_MAIN();
