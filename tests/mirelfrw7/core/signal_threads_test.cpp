#include <mirelfrw7/core/base.h>
#include <mirelfrw7/core/signal.h>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace {

using tarnkit2::signal_t;
using tarnkit2::subscriber_base_t;

struct Counter : subscriber_base_t {
    void Add(int n) { total += n; }
    // Only ever touched under the signal's mutex, which an emission holds throughout.
    long total = 0;
};

// Emissions from several threads are serialised by the signal's mutex, and connections made and cut on
// other threads meanwhile are seen whole or not at all.
TEST(SignalThreads, ConcurrentEmissionsAndConnectionsAreSerialised) {
    signal_t<int> signal;
    Counter counter;
    signal.connect(&counter, &Counter::Add);

    constexpr int emitters = 3, rounds = 2000;
    std::atomic<bool> stop{false};
    std::thread churn([&] {
        while (!stop.load()) {
            Counter passing;
            signal.connect(&passing, &Counter::Add);
            signal.disconnect(&passing, &Counter::Add);
        }
    });
    std::vector<std::thread> threads;
    for (int t = 0; t < emitters; ++t)
        threads.emplace_back([&] {
            for (int i = 0; i < rounds; ++i)
                signal(1);
        });
    for (auto& t : threads)
        t.join();
    stop = true;
    churn.join();

    EXPECT_EQ(counter.total, long{emitters} * rounds);
    EXPECT_EQ(signal.connection_count(), 1u);
}

// The dynamic flag travels through a thread-local, so elements made on worker threads are told apart the
// same way as on the GUI thread, even while another thread allocates.
TEST(SignalThreads, DynamicFlagIsPerThread) {
    struct Element : mirelfrw7::CBase {};
    std::atomic<int> wrong{0};
    auto work = [&] {
        for (int i = 0; i < 1000; ++i) {
            std::unique_ptr<Element> made(new Element);
            Element local;
            if (!made->IsDynamic() || local.IsDynamic()) ++wrong;
        }
    };
    std::thread a(work), b(work);
    a.join();
    b.join();
    EXPECT_EQ(wrong.load(), 0);
}

} // namespace
