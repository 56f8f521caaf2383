#include <mirelfrw7/layout/layout_flavor.h>
#include <mirelfrw7/layout/layout_manager.h>

#include "mirelfrw7/layout/strip_element.h"
#include "support/assert_capture.h"
#include "support/control_fixture.h"

#include <gtest/gtest.h>

namespace {

using namespace mirelfrw7;
using P = mirel7::point<double>;
using R = mirel7::rectangle<int>;

// The flavour alone, without an element.
struct CFlavored : CLayoutFlavor {
    explicit CFlavored(Alignment alignment) { ChangeLayout(alignment); }
};

TEST(LayoutFlavor, ForwardsTheGeometryToItsEdgeAndTheTextOnlyOnceConversionIsOn) {
    for (Alignment edge : {AlignLeft, AlignRight, AlignTop, AlignBottom}) {
        SCOPED_TRACE(edge);
        CFlavored flavored(edge);
        ILayout const& own = *CLayoutManager::GetLayout(edge);
        EXPECT_EQ(flavored.GetAlong(3, 4), own.GetAlong(3, 4));
        EXPECT_EQ(flavored.MakeRect(1, 2, 3, 4), own.MakeRect(1, 2, 3, 4));
        int w = 0, h = 0;
        EXPECT_EQ(&flavored.GetAcrossRef(w, h), &own.GetAcrossRef(w, h));
        P p(0, 0), q(0, 0);
        EXPECT_EQ(flavored.IncAcross(flavored.IncAlong(&p, 2), 5), &p);
        EXPECT_EQ(p, *own.IncAcross(own.IncAlong(&q, 2), 5));
        R r(0, 0, 50, 50), s = r;
        EXPECT_EQ(*flavored.CutRect(&r, {10, 10, 20, 20}), *own.CutRect(&s, {10, 10, 20, 20}));

        EXPECT_EQ(flavored.ConvTextAlign(9), 9);
        mirel7::font f, expected;
        flavored.ConvFont(&f);
        EXPECT_EQ(f.extra, 0);
        flavored.SetTextConversion(true);
        EXPECT_EQ(flavored.ConvTextAlign(9), own.ConvTextAlign(9));
        own.ConvFont(&expected);
        flavored.ConvFont(&f);
        EXPECT_EQ(f, expected);
    }
    CFlavored client(AlignLeft);
    EXPECT_TRUE(client.ChangeLayout(AlignClient));
    EXPECT_EQ(client.MakePoint(1, 2), P(1, 2)) << "a client edge lays out as the bottom one";
}

TEST(LayoutFlavor, AFlavourThatNeverChoseALayoutIsReportedAndServedAsTheBottomEdge) {
    struct CForgetful : CLayoutFlavor {
    } forgetful;
    mirel_test::CExpectAssertions expected;
    EXPECT_EQ(forgetful.MakeRect(1, 2, 3, 4), mirel7::rectangle<double>(1, 2, 3, 4));
    EXPECT_EQ(expected.Count(), 1u);
}

// Docking reads the stored size across the edge: a strip keeps its thickness there whatever its edge.
TEST(LayoutFlavor, AStripThatTurnsToAnotherEdgeTurnsItsGeometryAndIsDockedThere) {
    mirel_test::CControlFixture f{{200, 100}};
    layout_test::CStrip strip(f.Root(), 12, AlignLeft);
    f.control->Rearrange();
    EXPECT_EQ(strip.GetPosition(), R(0, 0, 12, 99));
    EXPECT_EQ(strip.MakePoint(1, 2), P(2, 1));
    strip.SetAlignment(AlignBottom);
    strip.SetThickness(12);
    f.control->Rearrange();
    EXPECT_EQ(strip.GetPosition(), R(0, 87, 199, 99));
    EXPECT_EQ(strip.MakePoint(1, 2), P(1, 2));
}

} // namespace
