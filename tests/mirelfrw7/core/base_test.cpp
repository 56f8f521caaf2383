#include <mirelfrw7/core/base.h>
#include <mirelfrw7/core/cancel_processing.h>

#include <mirel7/cancel_processing.h>

#include <gtest/gtest.h>

#include <memory>
#include <new>

namespace {

using mirelfrw7::CBase;

struct Element : CBase {};

struct Holder : CBase {
    struct Part : CBase {
    } part;
};

TEST(FrameworkBase, DynamicFlagTellsObjectsMadeByNewFromOthers) {
    Element onStack;
    EXPECT_FALSE(onStack.IsDynamic());

    std::unique_ptr<Element> made(new Element);
    EXPECT_TRUE(made->IsDynamic());

    // The flag is consumed by the first constructor after operator new: a member built afterwards is not
    // dynamic, an object created on the stack right after a new is not either.
    std::unique_ptr<Holder> holder(new Holder);
    EXPECT_TRUE(holder->IsDynamic());
    EXPECT_FALSE(holder->part.IsDynamic());
    Element afterwards;
    EXPECT_FALSE(afterwards.IsDynamic());

    alignas(Element) unsigned char storage[sizeof(Element)];
    auto* placed = new (storage) Element;
    EXPECT_FALSE(placed->IsDynamic());
    placed->~Element();

    onStack.SetDynamic(true);
    EXPECT_TRUE(onStack.IsDynamic());
    onStack.SetDynamic(false);
}

TEST(FrameworkBase, CancelProcessingExistsInBothNamespaces) {
    EXPECT_THROW(throw mirelfrw7::cancel_processing(), std::exception);
    EXPECT_THROW(throw mirel7::cancel_processing(), std::exception);
    EXPECT_STRNE(mirelfrw7::cancel_processing().what(), mirel7::cancel_processing().what());
}

} // namespace
