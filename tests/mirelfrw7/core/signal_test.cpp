#include <mirelfrw7/core/signal.h>

#include "support/allocation_counter.h"
#include "support/assert_capture.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using tarnkit2::signal_t;
using tarnkit2::subscriber_base_t;
using tarnkit2::_internal::signal_core;

using Journal = std::vector<std::string>;

// A receiver that writes its name into a shared journal and then runs an optional action, which is how the
// tests make a slot disconnect, connect, emit, delete or throw.
struct Receiver : subscriber_base_t {
    Receiver(Journal& journal, std::string name) : journal(journal), name(std::move(name)) {}

    void Slot(int value) {
        journal.push_back(name + ":" + std::to_string(value));
        if (action) action(value);
    }
    void ConstSlot(int value) const { journal.push_back(name + " const:" + std::to_string(value)); }
    void Increment(int& value) { ++value; }

    Journal& journal;
    std::string name;
    std::function<void(int)> action;
};

struct SignalTest : testing::Test {
    Journal journal;
    signal_t<int> signal;
    Receiver a{journal, "a"}, b{journal, "b"}, c{journal, "c"};

    void ConnectAll() {
        signal.connect(&a, &Receiver::Slot);
        signal.connect(&b, &Receiver::Slot);
        signal.connect(&c, &Receiver::Slot);
    }
};

TEST_F(SignalTest, CallsSlotsInConnectOrderAndPassesReferencesThrough) {
    ConnectAll();
    signal(7);
    EXPECT_EQ(journal, (Journal{"a:7", "b:7", "c:7"}));

    signal_t<int&> counter;
    counter.connect(&a, &Receiver::Increment);
    counter.connect(&b, &Receiver::Increment);
    int value = 1;
    counter(value);
    EXPECT_EQ(value, 3);
}

TEST_F(SignalTest, ConstMemberFunctionsAreSlots) {
    signal.connect(&a, &Receiver::ConstSlot);
    signal(1);
    signal.disconnect(&a, &Receiver::ConstSlot);
    signal(2);
    EXPECT_EQ(journal, (Journal{"a const:1"}));
}

TEST_F(SignalTest, SlotDisconnectingItselfLetsLaterSlotsRunAndLeavesNoBlankEntry) {
    ConnectAll();
    a.action = [&](int) {
        signal.disconnect(&a, &Receiver::Slot);
        EXPECT_EQ(signal.entry_count(), 3u) << "the entry is blanked, not removed, during the walk";
        EXPECT_EQ(signal.connection_count(), 2u);
    };
    signal(1);
    EXPECT_EQ(signal.entry_count(), 2u);
    EXPECT_FALSE(signal.is_emitting());
    signal(2);
    EXPECT_EQ(journal, (Journal{"a:1", "b:1", "c:1", "b:2", "c:2"}));
}

TEST_F(SignalTest, SlotDisconnectingALaterSlotSkipsIt) {
    ConnectAll();
    a.action = [&](int) { signal.disconnect(&b, &Receiver::Slot); };
    signal(1);
    EXPECT_EQ(journal, (Journal{"a:1", "c:1"}));
    EXPECT_EQ(signal.entry_count(), 2u);
}

TEST_F(SignalTest, SlotConnectedDuringEmissionRunsInTheSameEmission) {
    signal.connect(&a, &Receiver::Slot);
    a.action = [&](int) {
        a.action = nullptr;
        signal.connect(&b, &Receiver::Slot);
    };
    signal(1);
    EXPECT_EQ(journal, (Journal{"a:1", "b:1"}));
}

TEST_F(SignalTest, EraseAllDuringEmissionStopsTheWalk) {
    ConnectAll();
    a.action = [&](int) { signal._erase_all(); };
    signal(1);
    EXPECT_EQ(journal, (Journal{"a:1"}));
    EXPECT_EQ(signal.entry_count(), 0u);
    // The receivers forgot the signal: destroying them now must not touch it.
    signal.connect(&a, &Receiver::Slot);
    EXPECT_EQ(signal.connection_count(), 1u);
}

TEST_F(SignalTest, NestedEmissionWalksAllSlotsAndSweepsOnlyAtTheOutermostEnd) {
    ConnectAll();
    int depth = 0;
    std::size_t entriesAfterInner = 0;
    a.action = [&](int value) {
        if (depth++ > 0) return;
        signal(value + 10);
        entriesAfterInner = signal.entry_count();
    };
    b.action = [&](int value) {
        if (value == 11) signal.disconnect(&b, &Receiver::Slot);
    };
    signal(1);
    EXPECT_EQ(journal, (Journal{"a:1", "a:11", "b:11", "c:11", "c:1"}));
    EXPECT_EQ(entriesAfterInner, 3u) << "the inner emission must not sweep under the outer walk";
    EXPECT_EQ(signal.entry_count(), 2u);
}

TEST_F(SignalTest, ThrowingSlotSkipsTheRestAndLeavesTheSignalClean) {
    ConnectAll();
    a.action = [&](int) { signal.disconnect(&a, &Receiver::Slot); };
    b.action = [&](int) { throw std::runtime_error("slot failed"); };
    EXPECT_THROW(signal(1), std::runtime_error);
    EXPECT_EQ(journal, (Journal{"a:1", "b:1"}));
    EXPECT_FALSE(signal.is_emitting());
    EXPECT_EQ(signal.entry_count(), 2u) << "the blanked entry is swept on the way out";

    b.action = nullptr;
    signal(2);
    EXPECT_EQ(journal, (Journal{"a:1", "b:1", "b:2", "c:2"}));
}

TEST_F(SignalTest, DuplicateConnectAssertsOnceAndKeepsOneConnection) {
    mirel_test::CExpectAssertions expected;
    signal.connect(&a, &Receiver::Slot);
    signal.connect(&a, &Receiver::Slot);
    ASSERT_EQ(expected.Count(), 1u);
    auto const taken = expected.Taken().front();
    EXPECT_EQ(taken.condition, "signal_t::_insert: this connection is already exists.");
    EXPECT_EQ(taken.source, "functor/signal");
    EXPECT_EQ(taken.line, 263);
    EXPECT_EQ(signal.connection_count(), 1u);
    signal(1);
    EXPECT_EQ(journal, (Journal{"a:1"}));
}

TEST_F(SignalTest, DisconnectingAnUnknownConnectionAsserts) {
    mirel_test::CExpectAssertions expected;
    signal.connect(&a, &Receiver::Slot);
    signal.disconnect(&b, &Receiver::Slot);
    signal.disconnect(&a, &Receiver::ConstSlot);
    EXPECT_EQ(expected.CountContaining("subscriber_found"), 2u);
    EXPECT_EQ(expected.CountContaining("attempt to disconnect unknown connection"), 2u);
    EXPECT_EQ(signal.connection_count(), 1u);
}

TEST_F(SignalTest, DeadReceiverIsNeverCalled) {
    auto doomed = std::make_unique<Receiver>(journal, "doomed");
    signal.connect(doomed.get(), &Receiver::Slot);
    signal.connect(&a, &Receiver::Slot);
    doomed.reset();
    EXPECT_EQ(signal.connection_count(), 1u);
    signal(1);
    EXPECT_EQ(journal, (Journal{"a:1"}));
}

// Two slots of one receiver; the calls are counted outside it, so that a call after its death shows.
struct TwoSlots : subscriber_base_t {
    explicit TwoSlots(int* calls) : calls(calls) {}
    void First(int) { ++*calls; }
    void Second(int) { ++*calls; }
    int* calls;
};

TEST_F(SignalTest, AReceiverWithTwoConnectionsThatDropsOneIsStillCutOffAtItsDeath) {
    int calls = 0;
    std::optional<TwoSlots> receiver(std::in_place, &calls);
    signal.connect(&*receiver, &TwoSlots::First);
    signal.connect(&*receiver, &TwoSlots::Second);
    signal.disconnect(&*receiver, &TwoSlots::First);
    signal(1);
    EXPECT_EQ(calls, 1);
    receiver.reset();
    EXPECT_EQ(signal.connection_count(), 0u);
    signal(2);
    EXPECT_EQ(calls, 1) << "a dead receiver is never called";
}

// Receivers that outlive a signal they were disconnected from: a link left behind by the disconnect would
// be followed into the freed signal when the receiver dies.
TEST_F(SignalTest, DisconnectedReceiversOutliveTheirSignal) {
    for (bool all : {false, true}) {
        auto receiver = std::make_unique<Receiver>(journal, "r");
        std::optional<signal_t<int>> dying(std::in_place);
        dying->connect(receiver.get(), &Receiver::Slot);
        if (all)
            dying->_erase_all();
        else
            dying->disconnect(receiver.get(), &Receiver::Slot);
        dying.reset();
        receiver.reset();
    }
}

TEST_F(SignalTest, ReceiverDestroyedDuringEmissionIsSkipped) {
    auto doomed = std::make_unique<Receiver>(journal, "doomed");
    signal.connect(&a, &Receiver::Slot);
    signal.connect(doomed.get(), &Receiver::Slot);
    a.action = [&](int) { doomed.reset(); };
    signal(1);
    EXPECT_EQ(journal, (Journal{"a:1"}));
    EXPECT_EQ(signal.entry_count(), 1u);
}

TEST_F(SignalTest, SignalCanReceiveAnotherSignalAndIsCutOffWhenItDies) {
    auto relay = std::make_unique<signal_t<int>>();
    relay->connect(&b, &Receiver::Slot);
    signal.connect(relay.get(), &signal_core<int>::operator());
    signal.connect(&a, &Receiver::Slot);
    signal(1);
    EXPECT_EQ(journal, (Journal{"b:1", "a:1"}));

    relay.reset();
    EXPECT_EQ(signal.connection_count(), 1u);
    signal(2);
    EXPECT_EQ(journal, (Journal{"b:1", "a:1", "a:2"}));
}

// An object whose signal is emitting when a slot deletes the object.
struct Owner {
    signal_t<int> changed;
};

// A slot deletes the owner of the emitting signal: in a plain emission, inside a nested one, and just before
// it throws. The walk stops there and nothing touches the dead signal (ASan watches this).
TEST_F(SignalTest, SlotDeletingTheSignalsOwnerStopsTheWalk) {
    enum How { Plain, Nested, Throwing };
    for (How how : {Plain, Nested, Throwing}) {
        journal.clear();
        auto* owner = new Owner;
        owner->changed.connect(&a, &Receiver::Slot);
        owner->changed.connect(&b, &Receiver::Slot);
        a.action = [&](int value) {
            if (how == Nested) {
                if (value == 1) owner->changed(2);
                return;
            }
            delete owner;
            if (how == Throwing) throw std::runtime_error("after delete");
        };
        b.action = [&](int value) {
            if (how == Nested && value == 2) delete owner;
        };
        if (how == Throwing)
            EXPECT_THROW(owner->changed(1), std::runtime_error);
        else
            owner->changed(1);
        EXPECT_EQ(journal, how == Nested ? (Journal{"a:1", "a:2", "b:2"}) : (Journal{"a:1"})) << how;
    }
}

struct Wide : subscriber_base_t {
    void Six(int a, double b, std::string const& c, char d, bool e, long f) {
        seen = std::to_string(a) + std::to_string(int(b)) + c + d + (e ? "t" : "f") + std::to_string(f);
    }
    void None() { seen = "none"; }
    std::string seen;
};

TEST(Signal, ZeroAndSixArguments) {
    Wide w;
    signal_t<> none;
    none.connect(&w, &Wide::None);
    none();
    EXPECT_EQ(w.seen, "none");

    signal_t<int, double, std::string const&, char, bool, long> six;
    six.connect(&w, &Wide::Six);
    six(1, 2.5, "x", 'y', true, 9L);
    EXPECT_EQ(w.seen, "12xyt9");
}

// Counts what reaches it; optionally disconnects itself on the first call.
struct Sink : subscriber_base_t {
    void Take(std::string const& s) { length += s.size(); }
    void Count(int) {
        ++calls;
        if (self) self->disconnect(this, &Sink::Count);
        self = nullptr;
    }
    std::size_t length = 0;
    int calls = 0;
    signal_t<int>* self = nullptr;
};

// An element carries thirty signals and most never connect: those must cost one pointer and nothing on the
// heap, even when emitted or cleared.
TEST(Signal, AnUnconnectedSignalIsOnePointerAndAllocatesNothing) {
    static_assert(sizeof(signal_t<int, std::string const&>) == sizeof(void*));
    mirel_test::CCountAllocations count;
    {
        signal_t<int> idle;
        idle(1);
        idle._erase_all();
        EXPECT_EQ(idle.connection_count(), 0u);
    }
    EXPECT_EQ(count.Allocations(), 0u);
}

TEST(Signal, EmissionAllocatesNothing) {
    signal_t<std::string const&> text;
    signal_t<int> numbers;
    Sink first, second;
    text.connect(&first, &Sink::Take);
    text.connect(&second, &Sink::Take);
    numbers.connect(&first, &Sink::Count);
    numbers.connect(&second, &Sink::Count);
    first.self = &numbers;
    std::string const payload(100, 'x');

    mirel_test::CCountAllocations count;
    text(payload);
    numbers(1);
    numbers(2);
    EXPECT_EQ(count.Allocations(), 0u);
    EXPECT_EQ(first.length + second.length, 200u);
    EXPECT_EQ(first.calls + second.calls, 3);
}

} // namespace
