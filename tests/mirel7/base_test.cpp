#include <mirel7/base.h>

#include <gtest/gtest.h>

namespace {

using mirel7::CBase;
using mirel7::mirel_ptr;

// Tells a test when it died.
struct Tracked : CBase {
    explicit Tracked(bool* died = nullptr) : died(died) {}
    ~Tracked() override {
        if (died) *died = true;
    }
    bool* died;
};
struct Derived : Tracked {
    using Tracked::Tracked;
};

TEST(MirelPtr, CountsDynamicObjectsAndDeletesAtTheLastRelease) {
    bool died = false;
    auto* object = new Tracked(&died);
    EXPECT_TRUE(object->IsDynamic());
    {
        mirel_ptr<Tracked> first(object);
        EXPECT_TRUE(first.counted());
        EXPECT_EQ(object->GetRefCount(), 1);
        mirel_ptr<Tracked> second = first;
        EXPECT_EQ(object->GetRefCount(), 2);
        second = second; // self-assignment changes nothing
        EXPECT_EQ(object->GetRefCount(), 2);
        mirel_ptr<Tracked> moved = std::move(second);
        EXPECT_EQ(object->GetRefCount(), 2);
        EXPECT_EQ(second.get(), nullptr);
    }
    EXPECT_TRUE(died);
}

TEST(MirelPtr, NeverCountsNorDeletesNonDynamicObjects) {
    bool died = false;
    {
        Tracked onStack(&died);
        EXPECT_FALSE(onStack.IsDynamic());
        mirel_ptr<Tracked> p(&onStack);
        EXPECT_FALSE(p.counted());
        mirel_ptr<Tracked> copy = p;
        EXPECT_EQ(onStack.GetRefCount(), 0);
        copy.reset();
        p = mirel_ptr<Tracked>();
        EXPECT_FALSE(died);
        // Release at 0 hands the object to DeleteBase, which leaves a non-dynamic object alone.
        EXPECT_EQ(onStack.Release(), 0);
        EXPECT_FALSE(died);
    }
    EXPECT_TRUE(died);
}

TEST(MirelPtr, ReleaseAtZeroDeletesADynamicObject) {
    bool died = false;
    auto* object = new Tracked(&died);
    EXPECT_EQ(object->AddRef(), 1);
    EXPECT_EQ(object->AddRef(), 2);
    EXPECT_EQ(object->Release(), 1);
    EXPECT_FALSE(died);
    EXPECT_EQ(object->Release(), 0);
    EXPECT_TRUE(died);

    died = false;
    EXPECT_EQ((new Tracked(&died))->Release(), 0) << "a count of 0 before the call also deletes";
    EXPECT_TRUE(died);
}

TEST(MirelPtr, ConvertsFromDerivedAndSharesTheCount) {
    bool died = false;
    mirel_ptr<Derived> derived(new Derived(&died));
    mirel_ptr<Tracked> base = derived;
    EXPECT_EQ(base->GetRefCount(), 2);
    EXPECT_TRUE(base == mirel_ptr<Tracked>(derived));
    derived.reset();
    EXPECT_FALSE(died);
    base.reset();
    EXPECT_TRUE(died);
    EXPECT_TRUE(base == nullptr);
}

} // namespace
