#include <mirel7/event_sender.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using namespace mirel7;

struct CLog : CSubscriber<ICustomEventNotify, IFocusNotify> {
    CLog(std::vector<std::string>& l, std::string n) : log(l), name(std::move(n)) {}
    void OnCustomEvent(CCustomEvent* e) override {
        log.push_back(name + std::to_string(e->data));
        if (action) action();
    }
    void OnGetFocus(CFocusEvent*) override { log.push_back(name + "+"); }
    void OnLostFocus(CFocusEvent*) override {}
    std::vector<std::string>& log;
    std::string name;
    std::function<void()> action;
};

class EventSender : public testing::Test {
protected:
    void SetUp() override {
        sender.SetSupportedEvent(typeid(ICustomEventNotify));
        sender.SetSupportedEvent(typeid(IFocusNotify));
    }
    void Send(int data) {
        CCustomEvent e(data);
        sender.Fire(&ICustomEventNotify::OnCustomEvent, &e);
    }
    std::vector<std::string> log;
    CImplEventSender<IEventSender> sender;
};

TEST_F(EventSender, SendsInSubscriptionOrderAndOnlyToTheInterfaceSubscribed) {
    CLog a(log, "a"), b(log, "b"), c(log, "c");
    EXPECT_TRUE(sender.Subscribe<ICustomEventNotify>(&a));
    EXPECT_TRUE(sender.Subscribe<ICustomEventNotify>(&b));
    EXPECT_TRUE(sender.SubscribeToFront<ICustomEventNotify>(&c));
    EXPECT_FALSE(sender.Subscribe<ICustomEventNotify>(&a)) << "one subscription per object and interface";
    EXPECT_TRUE(sender.Subscribe<IFocusNotify>(&b));
    Send(1);
    CFocusEvent f;
    sender.Fire(&IFocusNotify::OnGetFocus, &f);
    EXPECT_EQ(log, (std::vector<std::string>{"c1", "a1", "b1", "b+"}));
    struct CTimerLog : CSubscriber<ITimerNotify> {
        void OnTimer(CTimerEvent*) override {}
    } timerLog;
    EXPECT_FALSE(sender.Subscribe<ITimerNotify>(&timerLog)) << "an interface it does not send";
    EXPECT_EQ(sender.GetSubscribersCount(typeid(ITimerNotify)), 0);
}

TEST_F(EventSender, ASubscriberLeavingDuringASendingIsNotCalledAnyMore) {
    CLog a(log, "a"), b(log, "b"), c(log, "c");
    sender.Subscribe<ICustomEventNotify>(&a);
    sender.Subscribe<ICustomEventNotify>(&b);
    a.action = [&] {
        sender.Unsubscribe<ICustomEventNotify>(&b);
        sender.SubscribeToFront<ICustomEventNotify>(&c);
    };
    Send(1);
    EXPECT_EQ(log, (std::vector<std::string>{"a1"})) << "b left, c joined for later events";
    a.action = nullptr;
    Send(2);
    EXPECT_EQ(log, (std::vector<std::string>{"a1", "c2", "a2"}));
}

TEST_F(EventSender, ASubscriberMayDieInsideItsOwnCall) {
    auto a = std::make_unique<CLog>(log, "a");
    CLog b(log, "b");
    sender.Subscribe<ICustomEventNotify>(a.get());
    sender.Subscribe<ICustomEventNotify>(&b);
    a->action = [&] { a.reset(); };
    Send(1);
    Send(2);
    EXPECT_EQ(log, (std::vector<std::string>{"a1", "b1", "b2"}));
}

TEST_F(EventSender, EitherSideMayDieFirst) {
    auto own = std::make_unique<CImplEventSender<IEventSender>>();
    own->SetSupportedEvent(typeid(ICustomEventNotify));
    own->SetSupportedEvent(typeid(IFocusNotify));
    {
        CLog a(log, "a");
        own->Subscribe<ICustomEventNotify>(&a);
        own->Subscribe<IFocusNotify>(&a);
        sender.Subscribe<ICustomEventNotify>(&a);
        own.reset(); // a forgets the dead sender
    }
    EXPECT_EQ(sender.GetSubscribersCount(typeid(ICustomEventNotify)), 0)
        << "a left the living one when it died";
}

// Sent in reverse when asked; a stopped sending sends nothing and can stop midway; unsubscribing an object
// ends all its subscriptions.
TEST_F(EventSender, ReverseStopAndUnsubscribe) {
    CLog a(log, "a"), b(log, "b");
    sender.Subscribe<ICustomEventNotify>(&a);
    sender.Subscribe<ICustomEventNotify>(&b);
    sender.Subscribe<IFocusNotify>(&a);
    CCustomEvent e(3);
    sender.FireEvent(
        typeid(ICustomEventNotify),
        [&](INotify* n) { dynamic_cast<ICustomEventNotify*>(n)->OnCustomEvent(&e); }, true);
    sender.StopEventSending(true);
    Send(1);
    sender.StopEventSending(false);
    a.action = [&] { sender.StopEventSending(true); };
    Send(2);
    EXPECT_EQ(log, (std::vector<std::string>{"b3", "a3", "a2"}));
    sender.Unsubscribe(static_cast<INotify*>(&a));
    EXPECT_FALSE(sender.IsSubscribed(&a, typeid(IFocusNotify)));
    EXPECT_FALSE(sender.IsSubscribed(&a, typeid(ICustomEventNotify)));
    EXPECT_TRUE(sender.IsSubscribed(&b, typeid(ICustomEventNotify)));
}

TEST(DefaultSenderList, SendsTheWindowInterfacesButNotTimers) {
    auto sender = CreateDefSenderList();
    EXPECT_TRUE(sender->IsEventSupported(typeid(IMouseNotify)));
    EXPECT_TRUE(sender->IsEventSupported(typeid(IDrawingNotify)));
    EXPECT_TRUE(sender->IsEventSupported(typeid(ICustomEventNotify)));
    EXPECT_FALSE(sender->IsEventSupported(typeid(ITimerNotify)));
}

} // namespace
