#include <mirelfrw7/layout/layout_flavor.h>
#include <mirelfrw7/layout/layout_manager.h>

#include "mirelfrw7/layout/strip_element.h"
#include "support/assert_capture.h"
#include "support/control_fixture.h"

#include <gtest/gtest.h>

namespace {

using namespace mirelfrw7;
using layout_test::CStrip;
using mirel7::font;
using P = mirel7::point<double>;
using R = mirel7::rectangle<int>;
using RD = mirel7::rectangle<double>;

// The flavour alone, without an element.
struct CFlavored : CLayoutFlavor {
    explicit CFlavored(Alignment alignment) { ChangeLayout(alignment); }
};

constexpr Alignment Edges[] = {AlignLeft, AlignRight, AlignTop, AlignBottom};

TEST(LayoutFlavor, ForwardsEveryGeometricOperationToTheLayoutOfItsEdge) {
    for (Alignment edge : Edges) {
        SCOPED_TRACE(edge);
        CFlavored flavored(edge);
        ILayout const& own = *CLayoutManager::GetLayout(edge);
        EXPECT_EQ(flavored.GetAlong(3, 4), own.GetAlong(3, 4));
        EXPECT_EQ(flavored.GetAcross(3, 4), own.GetAcross(3, 4));
        EXPECT_EQ(flavored.MakePoint(1, 2), own.MakePoint(1, 2));
        EXPECT_EQ(flavored.MakeRect(1, 2, 3, 4), own.MakeRect(1, 2, 3, 4));

        int w = 0, h = 0;
        EXPECT_EQ(&flavored.GetAlongRef(w, h), &own.GetAlongRef(w, h));
        EXPECT_EQ(&flavored.GetAcrossRef(w, h), &own.GetAcrossRef(w, h));
        double x = 0, y = 0;
        EXPECT_EQ(&flavored.GetAlongRef(x, y), &own.GetAlongRef(x, y));
        EXPECT_EQ(&flavored.GetAcrossRef(x, y), &own.GetAcrossRef(x, y));

        P p(0, 0), q(0, 0);
        EXPECT_EQ(flavored.IncAlong(&p, 2), &p);
        EXPECT_EQ(flavored.IncAcross(&p, 5), &p);
        own.IncAcross(own.IncAlong(&q, 2), 5);
        EXPECT_EQ(p, q);

        R r(0, 0, 50, 50), s = r;
        R const limit(10, 10, 20, 20);
        EXPECT_EQ(flavored.CutRect(&r, limit), &r);
        EXPECT_EQ(r, *own.CutRect(&s, limit));
    }
}

TEST(LayoutFlavor, TextStaysHorizontalUntilConversionIsSwitchedOn) {
    for (Alignment edge : Edges) {
        SCOPED_TRACE(edge);
        CFlavored flavored(edge);
        EXPECT_FALSE(flavored.IsTextConverted());
        for (int flags : {36, 9, 0x109})
            EXPECT_EQ(flavored.ConvTextAlign(flags), flags);
        font f;
        flavored.ConvFont(&f);
        EXPECT_EQ(f.extra, 0);

        flavored.SetTextConversion(true);
        ILayout const& own = *CLayoutManager::GetLayout(edge);
        for (int flags : {36, 9, 0x109})
            EXPECT_EQ(flavored.ConvTextAlign(flags), own.ConvTextAlign(flags));
        font expected;
        own.ConvFont(&expected);
        flavored.ConvFont(&f);
        EXPECT_EQ(f, expected);
    }
}

TEST(LayoutFlavor, ChangeLayoutAnswersTrueEvenWhenNothingChanges) {
    CFlavored flavored(AlignLeft);
    EXPECT_TRUE(flavored.ChangeLayout(AlignLeft));
    EXPECT_TRUE(flavored.ChangeLayout(AlignClient));
    EXPECT_EQ(flavored.MakePoint(1, 2), P(1, 2)) << "a client edge lays out as the bottom one";
}

TEST(LayoutFlavor, AFlavourThatNeverChoseALayoutIsReportedAndServedAsTheBottomEdge) {
    struct CForgetful : CLayoutFlavor {
    } forgetful;
    mirel_test::CExpectAssertions expected;
    EXPECT_EQ(forgetful.MakeRect(1, 2, 3, 4), RD(1, 2, 3, 4));
    forgetful.SetTextConversion(true);
    EXPECT_EQ(forgetful.ConvTextAlign(8), 8);
    EXPECT_EQ(expected.Count(), 2u);
}

TEST(LayoutFlavor, AStripThatTurnsToAnotherEdgeTurnsItsGeometryAndIsDockedThere) {
    mirel_test::CControlFixture f{{200, 100}};
    CStrip strip(f.Root(), 12, AlignLeft);
    f.control->Rearrange();
    EXPECT_EQ(strip.GetPosition(), R(0, 0, 12, 99));
    EXPECT_EQ(strip.MakePoint(1, 2), P(2, 1));

    strip.SetAlignment(AlignBottom);
    strip.SetThickness(12);
    f.control->Rearrange();
    EXPECT_EQ(strip.GetSize(), (mirel7::size<int>{7, 12}));
    EXPECT_EQ(strip.GetPosition(), R(0, 87, 199, 99));
    EXPECT_EQ(strip.MakePoint(1, 2), P(1, 2));
}

} // namespace
