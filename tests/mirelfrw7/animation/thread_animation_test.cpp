#include "mirelfrw7/animation/test_animation.h"
#include "support/control_fixture.h"

#include <mirelfrw7/animation/image.h>
#include <mirelfrw7/animation/thread_animation_process.h>

#include <mirel7/runnable_queue.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <thread>
#include <vector>

namespace {

using mirel7::mirel_ptr;
using mirel_test::CTestAnimation;
using mirel_test::CTestUpdater;
using mirelfrw7::CThreadAnimationProcess;

// Turns the GUI thread's loop until `done`, for at most a few seconds.
template <class Queue, class Done>
bool PumpUntil(Queue& queue, Done done) {
    auto const deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (!done()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        queue.RunPending();
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    return true;
}

struct ThreadAnimation : ::testing::Test {
    mirel7::headless::CHeadlessSystem system;
    mirel7::CRunnableQueue queue;
    std::vector<std::string> journal;
    mirel_ptr<CTestAnimation> animation = new CTestAnimation({1}, "a", &journal);
    mirel_ptr<CThreadAnimationProcess> process = new CThreadAnimationProcess;
    CTestUpdater updater;

    void SetUp() override { process->SetUpdater(&updater); }
};

// The frames advance and draw on the GUI thread, in the turns of its loop; after a stop at most the frame
// already posted comes.
TEST_F(ThreadAnimation, FramesComeOnTheGUIThread) {
    std::thread::id const gui = std::this_thread::get_id();
    bool elsewhere = false;
    updater.onFrame = [&] { elsewhere = elsewhere || std::this_thread::get_id() != gui; };
    process->SetProcessSynchronizer(&queue);
    process->SetAnimation(animation.get());
    process->StartAnimation();
    ASSERT_TRUE(PumpUntil(queue, [&] { return updater.frames >= 5; }));
    process->StopAnimation();
    EXPECT_FALSE(process->IsAnimated());
    // What was posted before the stop is still delivered, and nothing after it.
    queue.RunPending();
    EXPECT_EQ(queue.RunPending(), 0);
    EXPECT_FALSE(elsewhere);
    EXPECT_EQ(animation->frame, updater.frames);
}

// A start waits for both the animation and the synchronizer, in either order; a synchronizer set again on a
// running process leaves it running, and taking it away stops it.
TEST_F(ThreadAnimation, StartWaitsForAnimationAndSynchronizer) {
    struct Step {
        char what; // 'a' animation, 's' synchronizer, '0' no synchronizer, 'g' start, 'x' stop
        bool animated;
    };
    std::vector<std::vector<Step>> const scripts = {
        {{'g', false}, {'a', false}, {'s', true}},
        {{'s', false}, {'g', false}, {'a', true}},
        {{'a', false}, {'s', false}, {'g', true}, {'s', true}, {'0', false}, {'s', false}},
        {{'a', false}, {'s', false}, {'g', true}, {'x', false}, {'a', false}, {'g', true}},
    };
    for (auto const& script : scripts) {
        mirel_ptr<CThreadAnimationProcess> const p = new CThreadAnimationProcess;
        std::map<char, std::function<void()>> const act = {{'a', [&] { p->SetAnimation(animation.get()); }},
                                                           {'s', [&] { p->SetProcessSynchronizer(&queue); }},
                                                           {'0', [&] { p->SetProcessSynchronizer(nullptr); }},
                                                           {'g', [&] { p->StartAnimation(); }},
                                                           {'x', [&] { p->StopAnimation(); }}};
        for (Step const& step : script) {
            act.at(step.what)();
            EXPECT_EQ(p->IsAnimated(), step.animated) << step.what;
        }
        p->StopAnimation();
        queue.RunPending();
    }
}

// Starts and stops from the GUI thread, some of them inside frames, while the worker posts as fast as it
// can: every frame is made on the GUI thread and none after the last stop.
TEST_F(ThreadAnimation, StartStopStorm) {
    mirel_ptr<CTestAnimation> const fast = new CTestAnimation({0}, "f", nullptr);
    updater.onFrame = [&] {
        if (updater.frames % 7 == 0) process->StopAnimation();
        if (updater.frames % 11 == 0) process->StartAnimation();
    };
    process->SetProcessSynchronizer(&queue);
    process->SetAnimation(fast.get());
    for (int i = 0; i < 200; ++i) {
        process->StartAnimation();
        queue.RunPending();
        if (i % 3 == 0) process->StopAnimation();
        queue.RunPending();
    }
    process->StopAnimation();
    queue.RunPending();
    int const frames = updater.frames;
    EXPECT_EQ(queue.RunPending(), 0);
    EXPECT_EQ(fast->frame, frames);
}

struct ThreadImage : ::testing::Test {
    ThreadImage() { mirelfrw7::SetDefAnimationProcess(mirelfrw7::AnimationProcessThread); }
    ~ThreadImage() override { mirelfrw7::SetDefAnimationProcess(mirelfrw7::AnimationProcessTimer); }

    // Starts the image's animation and lets the worker post frames that nobody runs yet.
    void StartWithFramesInFlight() {
        image->SetAnimation(animation);
        image->StartAnimation();
        ASSERT_TRUE(image->IsAnimated());
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    int Pump() { return fixture.window->RunPending(); }
    bool FramesAfter(std::string const& death) const {
        auto const at = std::find(journal.begin(), journal.end(), death);
        return std::any_of(at, journal.end(), [](std::string const& line) { return line.starts_with("a "); });
    }

    // Before the fixture: the animation writes to it while the tree dies.
    std::vector<std::string> journal;
    mirel_test::CControlFixture fixture;
    mirel_ptr<CTestAnimation> animation = new CTestAnimation({1}, "a", &journal);
    mirelfrw7::CImage* image = new mirelfrw7::CImage(fixture.Root(), {32, 32}, mirelfrw7::AlignLeft);
};

// Frames already posted are dropped when the image dies or its window closes.
TEST_F(ThreadImage, DestroyingTheImageDropsItsFrames) {
    StartWithFramesInFlight();
    delete image;
    journal.push_back("gone");
    Pump();
    EXPECT_FALSE(FramesAfter("gone"));
}

TEST_F(ThreadImage, ClosingTheWindowStopsTheAnimation) {
    StartWithFramesInFlight();
    fixture.window->InjectDestroy();
    journal.push_back("gone");
    EXPECT_FALSE(image->IsAnimated());
    Pump();
    EXPECT_FALSE(FramesAfter("gone"));
}

TEST_F(ThreadImage, FramesRepaintTheImage) {
    mirel_test::CUpdateCounter counter(image);
    StartWithFramesInFlight();
    fixture.Paint();
    ASSERT_TRUE(PumpUntil(*fixture.window, [&] { return counter.updates > 0; }));
    EXPECT_EQ(counter.updates, animation->frame);
    EXPECT_TRUE(fixture.window->IsPaintPending());
}

} // namespace
