#include <mirelfrw7/layout/layout_manager.h>

#include <gtest/gtest.h>

#include <array>
#include <barrier>
#include <thread>
#include <vector>

namespace {

using namespace mirelfrw7;

// The first call of the process comes from many threads at once: each must see the same four instances,
// fully built.
TEST(LayoutManagerThreads, ConcurrentFirstCallsShareFullyBuiltInstances) {
    constexpr int Threads = 8;
    std::array<std::array<ILayout*, 6>, Threads> seen{};
    std::array<int, Threads> along{};
    std::barrier start(Threads);
    std::vector<std::thread> threads;
    for (int t = 0; t < Threads; ++t)
        threads.emplace_back([&, t] {
            start.arrive_and_wait();
            for (int a = AlignNone; a <= AlignClient; ++a)
                seen[std::size_t(t)][std::size_t(a)] = CLayoutManager::GetLayout(static_cast<Alignment>(a));
            along[std::size_t(t)] = int(seen[std::size_t(t)][AlignLeft]->GetAlong(1, 2));
        });
    for (std::thread& thread : threads)
        thread.join();
    for (int t = 0; t < Threads; ++t) {
        EXPECT_EQ(seen[std::size_t(t)], seen[0]);
        EXPECT_EQ(along[std::size_t(t)], 2);
    }
}

} // namespace
