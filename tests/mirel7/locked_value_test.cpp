#include <mirel7/locked_value.h>

#include <gtest/gtest.h>

#include <string>

namespace {

struct JournalLock : mirel7::ILock {
    void Acquire() override {
        ++acquired;
        EXPECT_FALSE(held);
        held = true;
    }
    void Release() override {
        ++released;
        EXPECT_TRUE(held);
        held = false;
    }
    int acquired = 0, released = 0;
    bool held = false;
};

TEST(LockedValue, TakesTheLockAroundEveryReadAndWrite) {
    auto* lock = new JournalLock;
    {
        mirel7::LockedValue<std::string> value(lock, "start");
        EXPECT_EQ(lock->GetRefCount(), 1) << "the value holds a counted reference to its lock";
        EXPECT_EQ(value.Get(), "start");
        value.Set("next");
        EXPECT_EQ(value.Get(), "next");
        EXPECT_EQ(lock->acquired, 3);
        EXPECT_EQ(lock->released, 3);
        EXPECT_FALSE(lock->held);
    }
    // The lock died with the last reference; a leak here shows under the sanitizer build.
    mirel7::LockedValue<int> bare;
    bare.Set(5);
    EXPECT_EQ(bare.Get(), 5);
}

} // namespace
