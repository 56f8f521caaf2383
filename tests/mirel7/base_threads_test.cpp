#include <mirel7/base.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

using mirel7::CBase;
using mirel7::mirel_ptr;

struct Counted : CBase {
    explicit Counted(std::atomic<int>* deaths) : deaths(deaths) {}
    ~Counted() override { ++*deaths; }
    std::atomic<int>* deaths;
};

// A worker copies and drops references to an object while the GUI thread does the same with its own; the
// two last drops race, and whichever comes last deletes the object, once.
TEST(BaseThreads, ReferencesDroppedOnTwoThreadsDeleteTheObjectOnceAtTheLast) {
    constexpr int rounds = 100, copies = 1000;
    std::atomic<int> deaths{0};
    for (int round = 0; round < rounds; ++round) {
        mirel_ptr<Counted> gui(new Counted(&deaths));
        std::thread worker([held = gui]() mutable {
            for (int i = 0; i < copies; ++i)
                mirel_ptr<Counted> copy = held;
            held.reset();
        });
        for (int i = 0; i < copies; ++i)
            mirel_ptr<Counted> copy = gui;
        gui.reset();
        worker.join();
        ASSERT_EQ(deaths.load(), round + 1);
    }
}

} // namespace
