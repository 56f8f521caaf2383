#include <mirel7/headless/headless_system.h>
#include <mirel7/headless/headless_window.h>
#include <mirel7/runnable.h>
#include <mirel7/runner.h>
#include <mirel7/synchronizer.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

using namespace mirel7;
using mirel7::headless::CHeadlessSystem;
using mirel7::headless::CHeadlessWindow;

// Counts the runs on the GUI thread and its own deaths, wherever they happen.
struct CCounting : IRunnable {
    CCounting(int& r, std::atomic<int>& d) : runs(r), deaths(d) {}
    ~CCounting() override { ++deaths; }
    bool Run() override {
        ++runs; // a plain int: the sanitizer sees any run off the GUI thread that races with another
        return true;
    }
    int& runs;
    std::atomic<int>& deaths;
};

TEST(Synchronizer, TakesRunnablesFromManyThreadsAndRunsThemOnTheGUIThread) {
    CHeadlessSystem system;
    CHeadlessWindow window(system, {10, 10});
    int runs = 0;
    std::atomic<int> deaths{0};
    constexpr int Threads = 8, PerThread = 200;
    std::vector<std::thread> threads;
    for (int t = 0; t < Threads; ++t)
        threads.emplace_back([&] {
            for (int i = 0; i < PerThread; ++i)
                window.GetSynchronizer()->Synchronize(new CCounting(runs, deaths));
        });
    int total = 0;
    while (total < Threads * PerThread)
        total += window.RunPending();
    for (auto& t : threads)
        t.join();
    EXPECT_EQ(runs, Threads * PerThread);
    EXPECT_EQ(deaths.load(), Threads * PerThread);
}

TEST(Synchronizer, DestroyingTheWindowDropsWhatIsPendingAndWhatComesLater) {
    CHeadlessSystem system;
    int runs = 0;
    std::atomic<int> deaths{0};
    std::atomic<bool> closed{false};
    std::thread poster;
    {
        CHeadlessWindow window(system, {10, 10});
        ISynchronizer* const synchronizer = window.GetSynchronizer();
        for (int i = 0; i < 10; ++i)
            synchronizer->Synchronize(new CCounting(runs, deaths));
        window.InjectDestroy();
        EXPECT_EQ(deaths.load(), 10);
        poster = std::thread([&] {
            for (int i = 0; i < 100; ++i)
                synchronizer->Synchronize(new CCounting(runs, deaths));
            closed = true;
        });
        poster.join();
    }
    EXPECT_TRUE(closed);
    EXPECT_EQ(runs, 0);
    EXPECT_EQ(deaths.load(), 110);
}

// Sleeps long each round until stopped, counting rounds.
struct CSleeper : IDataProcessor {
    explicit CSleeper(IRunner& r) : runner(r) {}
    bool ProcessData() override {
        ++rounds;
        woken = !runner.Sleep(60'000);
        return true;
    }
    IRunner& runner;
    std::atomic<int> rounds{0};
    std::atomic<bool> woken{false};
};

TEST(Runner, StopWakesASleepingWorkerAndWaitsForIt) {
    CHeadlessSystem system;
    mirel_ptr<IRunner> runner = system.CreateRunner();
    CSleeper sleeper(*runner);
    EXPECT_TRUE(runner->Run(&sleeper));
    EXPECT_TRUE(runner->IsRunning());
    EXPECT_FALSE(runner->Run(&sleeper)) << "one thread at a time";
    while (sleeper.rounds == 0)
        std::this_thread::yield();
    runner->Stop();
    EXPECT_FALSE(runner->IsRunning());
    EXPECT_TRUE(sleeper.woken);
    EXPECT_EQ(sleeper.rounds.load(), 1) << "Stop ended the loop after the round in progress";
}

// Runs a fixed number of rounds, posting each result to the GUI thread.
struct CCounter : IDataProcessor {
    CCounter(ISynchronizer& s, int limit_) : synchronizer(s), limit(limit_) {}
    struct CResult : IRunnable {
        CResult(std::vector<int>& r, int v) : results(r), value(v) {}
        bool Run() override {
            results.push_back(value);
            return true;
        }
        std::vector<int>& results;
        int value;
    };
    bool ProcessData() override {
        synchronizer.Synchronize(new CResult(results, ++produced));
        return produced < limit;
    }
    ISynchronizer& synchronizer;
    int limit;
    int produced = 0;
    std::vector<int> results; // touched on the GUI thread only
};

TEST(Runner, RunsWhileTheProcessorAnswersTrueAndCanRunAgain) {
    CHeadlessSystem system;
    CHeadlessWindow window(system, {10, 10});
    mirel_ptr<IRunner> runner = system.CreateRunner();
    CCounter counter(*window.GetSynchronizer(), 5);
    ASSERT_TRUE(runner->Run(&counter));
    while (counter.results.size() < 5)
        window.RunPending();
    runner->Stop();
    EXPECT_EQ(counter.results, (std::vector<int>{1, 2, 3, 4, 5}));

    counter.limit = 7;
    ASSERT_TRUE(runner->Run(&counter));
    while (counter.results.size() < 7)
        window.RunPending();
    runner->Stop();
    EXPECT_EQ(counter.results.back(), 7);
}

TEST(Runner, StopOnTheWorkerItselfEndsTheLoopWithoutWaiting) {
    CHeadlessSystem system;
    mirel_ptr<IRunner> runner = system.CreateRunner();
    struct CSelfStopping : IDataProcessor {
        explicit CSelfStopping(IRunner& r) : runner(r) {}
        bool ProcessData() override {
            ++rounds;
            runner.Stop();
            return true;
        }
        IRunner& runner;
        std::atomic<int> rounds{0};
    } processor(*runner);
    ASSERT_TRUE(runner->Run(&processor));
    while (runner->IsRunning())
        std::this_thread::yield();
    runner->Stop(); // joins the ended thread
    EXPECT_EQ(processor.rounds.load(), 1);
}

TEST(Runner, DyingRunnerStopsItsThread) {
    CHeadlessSystem system;
    mirel_ptr<IRunner> runner = system.CreateRunner();
    CSleeper sleeper(*runner);
    runner->Run(&sleeper);
    while (sleeper.rounds == 0)
        std::this_thread::yield();
    runner.reset();
    EXPECT_TRUE(sleeper.woken);
}

} // namespace
