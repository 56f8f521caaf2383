#include <mirelfrw7/layout/box.h>

#include "support/control_fixture.h"
#include "support/test_elements.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel_test::CControlFixture;
using mirel_test::CFilledElement;
using S = mirel7::size<int>;

// Counts its measurements.
template <class Box>
struct CCounting : Box {
    using Box::Box;
    void RecalculateSize() override {
        ++measured;
        Box::RecalculateSize();
    }
    int measured = 0;
};

// Boxes of two docked children of 10 and 20 along the axis and a pad of 5, besides an undocked and a side
// child that never count.
TEST(Box, ABoxTakesTheSizesOfItsDockedChildrenEachAndAPixelAndItsPad) {
    CControlFixture f;
    CVertBox vert(f.Root(), {50, 0}, AlignTop);
    CFilledElement a(&vert, {0, 10}, AlignTop), b(&vert, {0, 20}, AlignBottom);
    CFilledElement loose(&vert, {0, 40}, AlignNone), side(&vert, {7, 40}, AlignLeft);
    vert.SetBottomPadSize(5);
    CHorzBox horz(f.Root(), {0, 30}, AlignLeft);
    CFilledElement c(&horz, {10, 0}, AlignLeft), d(&horz, {20, 0}, AlignClient), top(&horz, {0, 9}, AlignTop);
    horz.SetRightPadSize(5);
    EXPECT_EQ(vert.GetSize(), (S{50, 37}));
    EXPECT_EQ(horz.GetSize(), (S{37, 30}));
    side.SetSize({7, 60}, false);
    loose.SetSize({7, 60}, false);
    EXPECT_EQ(vert.GetSize(), (S{50, 37}));
    vert.SetBottomPadSize(-3);
    EXPECT_EQ(vert.GetSize(), (S{50, 32})) << "a negative pad is none";
}

TEST(Box, HidingAChildResizesTheBoxAtOnceAndTheBoxIsDockedAnew) {
    CControlFixture f;
    CVertBox box(f.Root(), {50, 0}, AlignTop);
    CFilledElement a(&box, {0, 10}, AlignTop), b(&box, {0, 20}, AlignTop);
    CFilledElement below(f.Root(), {0, 10}, AlignTop);
    f.control->Rearrange();
    EXPECT_EQ(below.GetPosition().top, 33);
    a.SetVisible(false);
    EXPECT_EQ(box.GetSize(), (S{50, 21}));
    f.control->Rearrange();
    EXPECT_EQ(box.GetPosition(), (mirel7::rectangle<int>{0, 0, 199, 21}));
    EXPECT_EQ(b.GetPosition(), (mirel7::rectangle<int>{0, 0, 199, 20}));
    EXPECT_EQ(below.GetPosition().top, 22);
}

TEST(Box, AChildThatLeavesNoLongerCounts) {
    CControlFixture f;
    CVertBox box(f.Root(), {50, 0}, AlignTop);
    CFilledElement a(&box, {0, 10}, AlignTop), b(&box, {0, 20}, AlignBottom);
    auto* doomed = new CFilledElement(&box, {0, 5}, AlignClient);
    b.ReParent(f.Root(), true);
    EXPECT_EQ(box.GetSize().cy, 17) << "moved elsewhere";
    delete doomed;
    EXPECT_EQ(box.GetSize().cy, 11) << "deleted";
    b.ReParent(&box, true);
    EXPECT_EQ(box.GetSize().cy, 32) << "back again";
}

TEST(Box, AnInnerBoxMeasuredAgainWhileItsOuterBoxIsPlacedIsPlacedInTheSamePaint) {
    CControlFixture f;
    auto* outer = new CVertBox(nullptr, {0, 0}, AlignClient);
    f.control->SetContent(outer);
    CFilledElement side(outer, {17, 10}, AlignLeft);
    CVertBox inner(&side, {0, 0}, AlignTop);
    CFilledElement below(&side, {0, 3}, AlignTop);
    f.Paint();
    inner.SetSize({0, 5}, false); // told a height that its next measure takes back
    f.Paint();
    side.SetAlignment(AlignTop);
    f.Paint();
    EXPECT_EQ(inner.GetSize().cy, 0);
    EXPECT_EQ(below.GetPosition(), (mirel7::rectangle<int>{0, 1, 199, 4}));
}

// Placed across anew, the box measures itself and takes another width while its parent places it: the parent
// places it once more in the same layout.
TEST(Box, ABoxThatMeasuresAnewWhileItsParentPlacesItIsPlacedAgain) {
    CControlFixture f;
    CFilledElement holder(f.Root(), {0, 0}, AlignNone);
    holder.SetPos({0, 0, 40, 30}, false);
    CHorzBox box(&holder, {0, 0}, AlignNone);
    box.SetSize({36, 21}, false); // kept until the box measures
    f.Paint();
    box.SetAlignment(AlignRight);
    f.Paint();
    EXPECT_EQ(box.GetSize(), (S{0, 21}));
    EXPECT_EQ(box.GetPosition(), (mirel7::rectangle<int>{40, 0, 40, 30}));
}

TEST(Box, ATreeBuiltDetachedIsMeasuredOnceWhenAttachedInnerBoxesFirst) {
    CControlFixture f;
    CCounting<CVertBox> outer(nullptr, {50, 0}, AlignTop);
    CCounting<CVertBox> inner(&outer, {0, 0}, AlignTop);
    CFilledElement a(&inner, {0, 10}, AlignTop), b(&inner, {0, 20}, AlignTop);
    EXPECT_FALSE(outer.GetAutoSize());
    EXPECT_EQ(outer.GetSize(), (S{50, 0})) << "measured without a control";
    outer.measured = inner.measured = 0;
    outer.ReParent(f.Root(), true);
    EXPECT_TRUE(outer.GetAutoSize());
    EXPECT_EQ(inner.GetSize().cy, 32);
    EXPECT_EQ(outer.GetSize().cy, 33);
    EXPECT_EQ(inner.measured, 1);
    EXPECT_EQ(outer.measured, 1);
    outer.ReParent(nullptr, true);
}

TEST(Box, AWiderVertBoxMeasuresAgainAndAMovedOneRepaintsWhole) {
    CControlFixture f;
    CCounting<CVertBox> box(f.Root(), {50, 0}, AlignNone);
    CFilledElement a(&box, {0, 10}, AlignTop);
    box.SetPos({0, 0, 50, 10}, false);
    f.Paint();
    box.measured = 0;
    box.SetPos({0, 0, 60, 10}, false);
    EXPECT_EQ(box.measured, 1);
    box.SetPos({0, 5, 60, 15}, false);
    std::vector<CVisualElement*> const held = f.Imp()->GetHeldElements();
    EXPECT_NE(std::find(held.begin(), held.end(), &box), held.end());
    EXPECT_FALSE(box.IsScrollableOnSetPos());
}

} // namespace
