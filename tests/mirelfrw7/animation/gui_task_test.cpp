#include <mirelfrw7/animation/gui_task.h>
#include <mirelfrw7/animation/runnable_proxy.h>

#include <mirel7/headless/headless_system.h>
#include <mirel7/runnable_queue.h>
#include <mirel7/runner.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

namespace {

using mirelfrw7::CGUITask;
using mirelfrw7::CRunnableProxy;

// A task whose rounds run a test's action and whose GUI side counts the rounds delivered.
class CCountingTask : public CGUITask, public tarnkit2::subscriber_base_t {
public:
    ~CCountingTask() override { Stop(); }
    bool InternalProcessData() override {
        ++rounds;
        return work ? work() : true;
    }
    void InitUpdater(CRunnableProxy* proxy) override {
        proxy->sigRun.connect(this, &CCountingTask::Delivered);
    }
    void Delivered() { ++delivered; }

    std::function<bool()> work;
    std::atomic<int> rounds{0};
    int delivered = 0;
};

struct GUITask : ::testing::Test {
    mirel7::headless::CHeadlessSystem system;
    mirel7::CRunnableQueue queue;
    CCountingTask task;
};

TEST_F(GUITask, ExecuteWithoutRunnerDoesNothing) {
    task.SetSynchronizer(&queue);
    task.Execute();
    EXPECT_EQ(task.rounds, 0);
    EXPECT_EQ(queue.RunPending(), 0);
}

// One round by hand, on this thread: whether it posts and what it answers.
TEST_F(GUITask, RoundPostsUnlessStoppedOrWithoutSynchronizer) {
    struct Case {
        bool synchronizer, stopBefore, stopDuring, answer;
        bool result;
        int rounds, posted;
    } const cases[] = {
        {true, false, false, true, true, 1, 1},  {true, false, false, false, false, 1, 1},
        {false, false, false, true, true, 1, 0}, {true, true, false, true, false, 0, 0},
        {true, false, true, true, true, 1, 0},
    };
    for (Case const& c : cases) {
        CCountingTask round;
        round.SetSynchronizer(c.synchronizer ? &queue : nullptr);
        if (c.stopBefore) round.Stop();
        round.work = [&] {
            if (c.stopDuring) round.Stop();
            return c.answer;
        };
        EXPECT_EQ(round.ProcessData(), c.result);
        EXPECT_EQ(round.rounds, c.rounds);
        EXPECT_EQ(queue.RunPending(), c.posted);
        EXPECT_EQ(round.delivered, c.posted);
    }
}

// A stop before any run leaves the flag set without a lock; the next run clears it.
TEST_F(GUITask, ExecuteClearsEarlierStop) {
    mirel7::mirel_ptr<mirel7::IRunner> const runner = system.CreateRunner();
    task.Stop();
    task.SetRunner(runner.get());
    task.SetSynchronizer(&queue);
    task.work = [] { return false; };
    task.Execute();
    while (runner->IsRunning())
        std::this_thread::yield();
    task.Stop();
    EXPECT_EQ(task.rounds, 1);
    // The last round still posts.
    EXPECT_EQ(queue.RunPending(), 1);
    EXPECT_EQ(task.delivered, 1);
}

// Stop waits for the worker, so once it returns no round runs and nothing more is posted; a proxy already
// posted is still delivered.
TEST_F(GUITask, StopEndsTheWorkerAndPostsNothingAfter) {
    mirel7::mirel_ptr<mirel7::IRunner> const runner = system.CreateRunner();
    task.SetRunner(runner.get());
    task.SetSynchronizer(&queue);
    task.Execute();
    while (task.rounds < 3)
        std::this_thread::yield();
    task.Stop();
    EXPECT_EQ(task.GetRunner(), nullptr);
    EXPECT_FALSE(runner->IsRunning());
    int const rounds = task.rounds;
    int const posted = queue.RunPending();
    EXPECT_LE(posted, rounds);
    EXPECT_GE(posted, rounds - 1);
    EXPECT_EQ(task.delivered, posted);
    EXPECT_EQ(queue.RunPending(), 0);
    EXPECT_EQ(task.rounds, rounds);
}

} // namespace
