// Emission cost of a signal against the plain loop it replaces: a vector of std::function over the same
// receivers, calling the same member function.
#include <mirelfrw7/core/signal.h>

#include <benchmark/benchmark.h>

#include <functional>
#include <vector>

namespace {

struct Receiver : tarnkit2::subscriber_base_t {
    // Kept out of line so that both sides pay for a real call.
    [[gnu::noinline]] void Slot(int value) { sum += value; }
    long sum = 0;
};

void SignalEmission(benchmark::State& state) {
    std::vector<Receiver> receivers(static_cast<std::size_t>(state.range(0)));
    tarnkit2::signal_t<int> signal;
    for (auto& r : receivers)
        signal.connect(&r, &Receiver::Slot);
    for (auto _ : state)
        signal(1);
    benchmark::DoNotOptimize(receivers.front().sum);
}

void FunctionLoop(benchmark::State& state) {
    std::vector<Receiver> receivers(static_cast<std::size_t>(state.range(0)));
    std::vector<std::function<void(int)>> slots;
    for (auto& r : receivers)
        slots.emplace_back([&r](int value) { r.Slot(value); });
    for (auto _ : state)
        for (auto const& slot : slots)
            slot(1);
    benchmark::DoNotOptimize(receivers.front().sum);
}

BENCHMARK(SignalEmission)->Arg(1)->Arg(8);
BENCHMARK(FunctionLoop)->Arg(1)->Arg(8);

} // namespace

BENCHMARK_MAIN();
