#include <mirel7/event_sender.h>
#include <mirel7/headless/headless_system.h>
#include <mirel7/timer.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

using namespace mirel7;
using mirel7::headless::CHeadlessSystem;

// Writes "name@time" at each tick and runs an optional action.
struct CTickLog : CTimerNotify {
    CTickLog(CHeadlessSystem& s, std::vector<std::string>& l, std::string n)
        : system(s), log(l), name(std::move(n)) {}
    void OnTimer(CTimerEvent*) override {
        log.push_back(name + "@" + std::to_string(system.GetTime()));
        if (action) action();
    }
    CHeadlessSystem& system;
    std::vector<std::string>& log;
    std::string name;
    std::function<void()> action;
};

class Timers : public testing::Test {
protected:
    mirel_ptr<ISysTimer> Make(CTickLog& log, int interval) {
        mirel_ptr<ISysTimer> timer = system.CreateTimer(interval, true);
        timer->GetEventSender()->Subscribe<ITimerNotify>(&log);
        return timer;
    }
    CHeadlessSystem system;
    std::vector<std::string> log;
};

// An inactive timer does not tick; its activation starts a fresh interval.
TEST_F(Timers, TickAtTheirDueTimesInOrder) {
    CTickLog a(system, log, "a"), b(system, log, "b"), c(system, log, "c");
    auto ta = Make(a, 30);
    auto tb = Make(b, 20);
    mirel_ptr<ISysTimer> const tc = system.CreateTimer(10, false);
    tc->GetEventSender()->Subscribe<ITimerNotify>(&c);
    system.Advance(65);
    tc->SetActive(true);
    system.Advance(10);
    EXPECT_EQ(log, (std::vector<std::string>{"b@20", "a@30", "b@40", "a@60", "b@60", "c@75"}));
    EXPECT_EQ(system.GetTime(), 75);
}

TEST_F(Timers, StopOrReleaseFromInsideItsOwnTick) {
    for (bool const release : {false, true}) {
        log.clear();
        CTickLog a(system, log, "a");
        auto timer = Make(a, 10);
        a.action = [&] { release ? timer.reset() : timer->SetActive(false); };
        system.Advance(100);
        EXPECT_EQ(log.size(), 1u) << release;
        EXPECT_TRUE(release || !timer->IsActive());
    }
}

TEST_F(Timers, ATickReleasingAnotherDueTimerKeepsItFromTicking) {
    CTickLog a(system, log, "a"), b(system, log, "b");
    auto ta = Make(a, 10);
    auto tb = Make(b, 10);
    a.action = [&] { tb.reset(); };
    system.Advance(30);
    EXPECT_EQ(log, (std::vector<std::string>{"a@10", "a@20", "a@30"}));
}

TEST_F(Timers, IntervalChangeCountsFromNow) {
    CTickLog a(system, log, "a");
    auto timer = Make(a, 10);
    a.action = [&] {
        if (timer->GetInterval() == 10) timer->SetInterval(25);
    };
    system.Advance(7);
    timer->SetInterval(10); // from 7: next at 17
    system.Advance(60);
    EXPECT_EQ(log, (std::vector<std::string>{"a@17", "a@42", "a@67"}));
}

TEST_F(Timers, ATimerOutlivingItsSystemNeverTicks) {
    mirel_ptr<ISysTimer> timer;
    {
        CHeadlessSystem other;
        timer = other.CreateTimer(10, true);
    }
    timer->SetActive(false);
    timer->SetInterval(5);
    timer->SetActive(true);
    EXPECT_TRUE(timer->IsActive());
}

} // namespace
