#include <mirelfrw7/core/base_control.h>

#include "mirelfrw7/layout/strip_element.h"
#include "support/control_fixture.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

using namespace mirelfrw7;
using layout_test::CStrip;
using mirel_test::CFilledElement;
using R = mirel7::rectangle<int>;

// Counts the placements a child receives.
struct CCountingStrip : CStrip {
    using CStrip::CStrip;
    void SetPos(rectangle<int> const& r, bool force) override {
        ++placements;
        CStrip::SetPos(r, force);
    }
    int placements = 0;
};

char const* EdgeName(Alignment edge) {
    return edge == AlignLeft ? "left" : edge == AlignRight ? "right" : edge == AlignTop ? "top" : "bottom";
}

// Where the docking pass puts the children of one tree, written out per edge.
struct SDockingVector {
    Alignment edge;
    R a, zero, c, client, innerStrip, innerClient;
};

// The tree: strips of thickness 20, 0, a hidden 50 and 30 on one edge of a 200 x 100 root, then two
// clients; the later client holds a strip of 10 on the same edge and a client of its own.
SDockingVector const TreeVectors[] = {
    {AlignLeft,
     {0, 0, 20, 99},
     {21, 0, 21, 99},
     {22, 0, 52, 99},
     {53, 0, 199, 99},
     {0, 0, 10, 99},
     {11, 0, 146, 99}},
    {AlignRight,
     {179, 0, 199, 99},
     {178, 0, 178, 99},
     {147, 0, 177, 99},
     {0, 0, 146, 99},
     {136, 0, 146, 99},
     {0, 0, 135, 99}},
    {AlignTop,
     {0, 0, 199, 20},
     {0, 21, 199, 21},
     {0, 22, 199, 52},
     {0, 53, 199, 99},
     {0, 0, 199, 10},
     {0, 11, 199, 46}},
    {AlignBottom,
     {0, 79, 199, 99},
     {0, 78, 199, 78},
     {0, 47, 199, 77},
     {0, 0, 199, 46},
     {0, 36, 199, 46},
     {0, 0, 199, 35}},
};

void PrintTo(SDockingVector const& v, std::ostream* out) {
    *out << EdgeName(v.edge);
}

class DockingOnEachEdge : public testing::TestWithParam<SDockingVector> {};

TEST_P(DockingOnEachEdge, StripsAreCutInChildOrderAndTheLastClientTakesTheRest) {
    SDockingVector const& v = GetParam();
    mirel_test::CControlFixture f{{200, 100}};
    CStrip a(f.Root(), 20, v.edge), zero(f.Root(), 0, v.edge);
    CCountingStrip hidden(f.Root(), 50, v.edge);
    hidden.SetVisible(false);
    CStrip c(f.Root(), 30, v.edge);
    CFilledElement earlier(f.Root(), {0, 0}, AlignClient), client(f.Root(), {0, 0}, AlignClient);
    CStrip innerStrip(&client, 10, v.edge);
    CFilledElement innerClient(&client, {0, 0}, AlignClient);
    f.control->Rearrange();

    EXPECT_EQ(a.GetPosition(), v.a);
    EXPECT_EQ(zero.GetPosition(), v.zero) << "a strip of no thickness still takes one line of pixels";
    EXPECT_EQ(c.GetPosition(), v.c);
    EXPECT_EQ(client.GetPosition(), v.client);
    EXPECT_EQ(innerStrip.GetPosition(), v.innerStrip);
    EXPECT_EQ(innerClient.GetPosition(), v.innerClient);
    EXPECT_EQ(earlier.GetPosition(), R{}) << "an earlier client stays where it was";
    EXPECT_EQ(hidden.placements, 0) << "a hidden child takes no room and is not placed";
}

INSTANTIATE_TEST_SUITE_P(Layout, DockingOnEachEdge, testing::ValuesIn(TreeVectors),
                         [](auto const& info) { return std::string(EdgeName(info.param.edge)); });

// Strips of 60, 60 and 10 on one edge of a 100 x 100 root, then a client: the second strip is clamped,
// the third collapses, and the inverted rectangles that remain are handed on unrepaired.
struct SOverflowVector {
    Alignment edge;
    R first, second, third, client;
};

SOverflowVector const OverflowVectors[] = {
    {AlignLeft, {0, 0, 60, 99}, {61, 0, 99, 99}, {100, 0, 99, 99}, {100, 0, 99, 99}},
    {AlignRight, {39, 0, 99, 99}, {0, 0, 38, 99}, {0, 0, -1, 99}, {0, 0, -1, 99}},
    {AlignTop, {0, 0, 99, 60}, {0, 61, 99, 99}, {0, 100, 99, 99}, {0, 100, 99, 99}},
    {AlignBottom, {0, 39, 99, 99}, {0, 0, 99, 38}, {0, 0, 99, -1}, {0, 0, 99, -1}},
};

void PrintTo(SOverflowVector const& v, std::ostream* out) {
    *out << EdgeName(v.edge);
}

class OverflowOnEachEdge : public testing::TestWithParam<SOverflowVector> {};

TEST_P(OverflowOnEachEdge, LaterStripsClampToTheFreeRectangleAndInvertIt) {
    SOverflowVector const& v = GetParam();
    mirel_test::CControlFixture f{{100, 100}};
    CStrip first(f.Root(), 60, v.edge), second(f.Root(), 60, v.edge), third(f.Root(), 10, v.edge);
    CFilledElement client(f.Root(), {0, 0}, AlignClient);
    f.control->Rearrange();
    EXPECT_EQ(first.GetPosition(), v.first);
    EXPECT_EQ(second.GetPosition(), v.second);
    EXPECT_EQ(third.GetPosition(), v.third);
    EXPECT_EQ(client.GetPosition(), v.client);
}

INSTANTIATE_TEST_SUITE_P(Layout, OverflowOnEachEdge, testing::ValuesIn(OverflowVectors),
                         [](auto const& info) { return std::string(EdgeName(info.param.edge)); });

TEST(Docking, AForcedPlacementPassesTheForceDownAndReplacesChildrenOfUnchangedSize) {
    mirel_test::CControlFixture f{{200, 100}};
    CStrip box(f.Root(), 40, AlignLeft);
    CCountingStrip inner(&box, 10, AlignTop);
    f.control->Rearrange();
    int const before = inner.placements;
    box.SetPos(box.GetPosition(), false);
    EXPECT_EQ(inner.placements, before) << "an unforced placement at the same rectangle does nothing";
    box.SetPos(box.GetPosition(), true);
    EXPECT_EQ(inner.placements, before + 1);
    EXPECT_EQ(inner.GetPosition(), R(0, 0, 40, 10));
}

} // namespace
