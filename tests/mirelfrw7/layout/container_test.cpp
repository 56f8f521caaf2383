#include <mirelfrw7/layout/container.h>

#include "mirelfrw7/layout/fake_native.h"
#include "support/control_fixture.h"
#include "support/test_elements.h"

#include <gtest/gtest.h>

namespace {

using namespace mirelfrw7;
using layout_test::CFakeNative;
using mirel_test::CControlFixture;
using mirel_test::CFilledElement;
using R = mirel7::rectangle<int>;

struct Container : testing::Test {
    Container() {
        container.SetOffset({2, 3, 4, 5});
        f.control->Rearrange();
    }
    // Before the container, which outlives it by the order of destruction.
    CFakeNative native;
    CControlFixture f;
    CFilledElement holder{f.Root(), {0, 0}, AlignClient};
    CFilledElement strip{&holder, {0, 10}, AlignTop};
    CContainer container{&holder, {0, 30}, AlignTop};
};

TEST_F(Container, TheNativeControlCoversTheContentAndComesBackOnlyAfterThePaintBehindIt) {
    container.SetNativeControl(&native);
    // The container lies under the strip of 10: 11..41 in the window, less the offsets.
    EXPECT_EQ(native.rect, (mirel7::screen_rectangle<int>{2, 14, 195, 36}));
    EXPECT_EQ(container.GetControlPosition(), (R{2, 14, 195, 36}));
    EXPECT_TRUE(native.visible);
    container.SetVisible(false);
    EXPECT_FALSE(native.visible);
    strip.SetSize({0, 20}, false);
    container.SetVisible(true);
    f.control->Rearrange();
    EXPECT_EQ(native.rect, (mirel7::screen_rectangle<int>{2, 24, 195, 46}));
    EXPECT_FALSE(native.visible) << "shown before the container painted";
    EXPECT_TRUE(container.GetNeedToShow());
    f.Paint();
    EXPECT_TRUE(native.visible);
    EXPECT_FALSE(container.GetNeedToShow());
}

TEST_F(Container, HiddenWithItsParentAndShownAgainAtTheNextPaint) {
    holder.SetVisible(false);
    container.SetNativeControl(&native);
    EXPECT_FALSE(native.visible) << "given while its parent was hidden";
    EXPECT_FALSE(container.GetNeedToShow());
    holder.SetVisible(true);
    f.Paint();
    holder.SetVisible(false);
    EXPECT_FALSE(native.visible);
    EXPECT_FALSE(container.GetNeedToShow());
    holder.SetVisible(true);
    EXPECT_FALSE(native.visible) << "shown before the container painted";
    EXPECT_TRUE(container.GetNeedToShow());
    f.Paint();
    EXPECT_TRUE(native.visible);
}

TEST_F(Container, FittingTakesTheNaturalSizeWithTheDifferenceOfTheInsets) {
    container.SetNativeControl(&native);
    container.FitWidth();
    container.FitHeight();
    EXPECT_EQ(container.GetSize(), (mirel7::size<int>{40 + 2 - 4, 12 + 3 - 5}));
}

TEST_F(Container, FocusPassesBothWaysOnce) {
    container.SetFocusable(true);
    container.SetNativeControl(&native);
    native.SetFocus();
    EXPECT_EQ(f.Imp()->GetFocusedElement(), &container);
    EXPECT_EQ(native.focusCalls, 1) << "the element handed the focus back to the native control";
    CFilledElement other(&holder, {0, 5}, AlignTop);
    other.SetFocusable(true);
    other.SetFocus(false);
    native.focusCalls = 0;
    container.SetFocus(false);
    EXPECT_EQ(native.focusCalls, 1);
    EXPECT_EQ(f.Imp()->GetFocusedElement(), &container);
}

TEST_F(Container, ForwardsToTheNativeControlAndForgetsItAtTheControlsDestruction) {
    CFakeNative outliving;
    auto* doomed = new CContainer(&holder, {0, 5}, AlignTop);
    doomed->SetNativeControl(&outliving);
    f.Paint();
    ASSERT_TRUE(outliving.visible);
    delete doomed;
    EXPECT_FALSE(outliving.visible) << "left over the window where the container was";
    container.SetNativeControl(&native);
    container.SetEnabled(false);
    EXPECT_FALSE(native.enabled);
    EXPECT_EQ(container.AsString(), "native");
    f.window->InjectDestroy();
    EXPECT_EQ(container.GetNativeControl(), nullptr);
    EXPECT_EQ(container.AsString(), "");
    EXPECT_EQ(native.sender.GetSubscribersCount(typeid(mirel7::ICustomControlNotify)), 0);
}

} // namespace
