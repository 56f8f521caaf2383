#include "mirelfrw7/animation/test_animation.h"

#include <mirelfrw7/animation/thread_animation_process.h>
#include <mirelfrw7/animation/timer_animation_process.h>

#include <mirel7/headless/headless_system.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using mirel7::mirel_ptr;
using mirel_test::CTestAnimation;
using mirel_test::CTestUpdater;
using mirelfrw7::CTimerAnimationProcess;

struct TimerAnimation : ::testing::Test {
    // The times of the frames on the virtual clock.
    std::vector<long> Run(int ms) {
        system.Advance(ms);
        return times;
    }

    mirel7::headless::CHeadlessSystem system;
    std::vector<std::string> journal;
    mirel_ptr<CTestAnimation> animation = new CTestAnimation({10, 30, 20}, "a", &journal);
    mirel_ptr<CTimerAnimationProcess> process = new CTimerAnimationProcess;
    CTestUpdater updater;
    std::vector<long> times;

    void SetUp() override {
        updater.onFrame = [this] { times.push_back(long(system.GetTime())); };
        process->SetUpdater(&updater);
    }
};

// A start waits for an animation; then the first frame comes at once, and each frame's interval sets the
// wait for the next: after frame 1 it is 30, after 2 it is 20, after 3 it is 10.
TEST_F(TimerAnimation, FramesFollowTheIntervalOfEachFrame) {
    process->StartAnimation();
    EXPECT_FALSE(process->IsAnimated());
    EXPECT_TRUE(Run(100).empty());
    process->SetAnimation(animation.get());
    EXPECT_TRUE(process->IsAnimated());
    EXPECT_EQ(Run(100), (std::vector<long>{100, 130, 150, 160, 190}));
    EXPECT_EQ(animation->frame, 5);
}

// A stop in any frame, the first included, is the last frame; a start after it begins again at once.
TEST_F(TimerAnimation, StopInsideAFrameAndRestart) {
    for (int stopAt : {1, 3}) {
        times.clear();
        updater.frames = 0;
        updater.onFrame = [&] {
            times.push_back(long(system.GetTime()));
            if (updater.frames == stopAt) process->StopAnimation();
        };
        process->SetAnimation(animation.get());
        process->StartAnimation();
        Run(200);
        EXPECT_EQ(updater.frames, stopAt);
        EXPECT_FALSE(process->IsAnimated());
        // A stopped process forgets its start: a new animation does not wake it.
        process->SetAnimation(animation.get());
        EXPECT_EQ(updater.frames, stopAt);
    }
    updater.onFrame = nullptr;
    process->StartAnimation();
    EXPECT_EQ(updater.frames, 4);
    EXPECT_TRUE(process->IsAnimated());
}

// An updater that does not want frames holds the animation and its interval.
TEST_F(TimerAnimation, NotUpdatableHoldsTheFrame) {
    process->SetAnimation(animation.get());
    process->StartAnimation();
    updater.updatable = false;
    EXPECT_EQ(Run(200), (std::vector<long>{0}));
    EXPECT_EQ(process->GetRepeatInterval(), 30);
    updater.updatable = true;
    EXPECT_EQ(Run(30), (std::vector<long>{0, 210, 230}));
}

// The last reference may go inside any frame, the first one included.
TEST_F(TimerAnimation, ProcessReleasedInsideAFrame) {
    for (int releaseAt : {1, 2}) {
        mirel_ptr<CTimerAnimationProcess> held = new CTimerAnimationProcess;
        CTimerAnimationProcess* const raw = held.get();
        updater.frames = 0;
        updater.onFrame = [&] {
            if (updater.frames == releaseAt) held.reset();
        };
        raw->SetUpdater(&updater);
        raw->SetAnimation(animation.get());
        raw->StartAnimation();
        Run(100);
        EXPECT_EQ(updater.frames, releaseAt);
    }
}

TEST(AnimationProcess, CreateFollowsTheDefaultType) {
    struct Case {
        int type;
        bool thread, timer;
    } const cases[] = {{0, true, false}, {1, false, true}, {7, false, false}};
    for (Case const& c : cases) {
        mirelfrw7::SetDefAnimationProcess(mirelfrw7::AnimationProcessType(c.type));
        mirel_ptr<mirelfrw7::IAnimationProcess> const made = mirelfrw7::CreateAnimationProcess();
        EXPECT_EQ(dynamic_cast<mirelfrw7::CThreadAnimationProcess*>(made.get()) != nullptr, c.thread);
        EXPECT_EQ(dynamic_cast<CTimerAnimationProcess*>(made.get()) != nullptr, c.timer);
    }
    mirelfrw7::SetDefAnimationProcess(mirelfrw7::AnimationProcessTimer);
}

} // namespace
