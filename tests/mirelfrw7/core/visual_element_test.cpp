#include <mirelfrw7/core/base_control.h>
#include <mirelfrw7/core/visual_element.h>

#include <mirel7/system.h>

#include "support/assert_capture.h"
#include "support/control_fixture.h"
#include "support/test_elements.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel_test::CControlFixture;
using mirel_test::CFilledElement;
using R = rectangle<int>;

// Counts what the docking pass does to an element.
struct CCountingElement : CFilledElement {
    using CFilledElement::CFilledElement;
    void SetPos(rectangle<int> const& r, bool force) override {
        ++setPosCalls;
        CFilledElement::SetPos(r, force);
    }
    int setPosCalls = 0;
};

struct Docking : testing::Test {
    CControlFixture f{{200, 100}};
    void Arrange() { f.control->Rearrange(); }
};

TEST_F(Docking, EdgesAreCutInChildOrderAndTheClientTakesTheRest) {
    CFilledElement left(f.Root(), {20, 0}, AlignLeft), top(f.Root(), {0, 10}, AlignTop),
        right(f.Root(), {30, 0}, AlignRight), bottom(f.Root(), {0, 15}, AlignBottom),
        client(f.Root(), {0, 0}, AlignClient), none(f.Root(), {5, 5}, AlignNone);
    none.SetPos({1, 2, 3, 4}, false);
    Arrange();
    EXPECT_EQ(f.Root()->GetPosition(), (R{0, 0, 199, 99}));
    EXPECT_EQ(left.GetPosition(), (R{0, 0, 20, 99}));
    EXPECT_EQ(top.GetPosition(), (R{21, 0, 199, 10}));
    EXPECT_EQ(right.GetPosition(), (R{169, 11, 199, 99}));
    EXPECT_EQ(bottom.GetPosition(), (R{21, 84, 168, 99}));
    EXPECT_EQ(client.GetPosition(), (R{21, 11, 168, 83}));
    EXPECT_EQ(none.GetPosition(), (R{1, 2, 3, 4})) << "an unaligned child keeps its rectangle";
}

TEST_F(Docking, OverflowCollapsesLaterStripsIntoInvertedRectanglesThatAreNeitherHitNorDrawn) {
    CFilledElement a(f.Root(), {120, 0}, AlignLeft), b(f.Root(), {120, 0}, AlignLeft),
        c(f.Root(), {120, 0}, AlignLeft);
    Arrange();
    EXPECT_EQ(a.GetPosition(), (R{0, 0, 120, 99}));
    EXPECT_EQ(b.GetPosition(), (R{121, 0, 199, 99}));
    EXPECT_EQ(c.GetPosition(), (R{200, 0, 199, 99}));
    EXPECT_EQ(f.Root()->FindVisualElement(199, 50), &b);
    f.Paint();
    EXPECT_EQ(c.paints, 0);
    EXPECT_EQ(b.paints, 1);
}

TEST_F(Docking, AQueuedRearrangementOfAnOverflowedStripKeepsItInverted) {
    CFilledElement a(f.Root(), {120, 0}, AlignLeft), b(f.Root(), {120, 0}, AlignLeft),
        c(f.Root(), {120, 0}, AlignLeft);
    CFilledElement inner(&c, {5, 0}, AlignLeft);
    Arrange();
    f.Paint();
    inner.SetWidth(6, false);
    f.Paint();
    EXPECT_EQ(c.GetPosition(), (R{200, 0, 199, 99})) << "as a full layout places it";
    EXPECT_EQ(c.paints, 0);
}

TEST_F(Docking, ZeroWidthStripsTakeOneColumnAndOnlyTheLastClientIsPlaced) {
    CFilledElement thin(f.Root(), {0, 0}, AlignLeft), next(f.Root(), {10, 0}, AlignLeft);
    CFilledElement first(f.Root(), {0, 0}, AlignClient), last(f.Root(), {0, 0}, AlignClient);
    CCountingElement hidden(f.Root(), {50, 0}, AlignLeft);
    hidden.SetVisible(false);
    Arrange();
    EXPECT_EQ(thin.GetPosition(), (R{0, 0, 0, 99}));
    EXPECT_EQ(next.GetPosition(), (R{1, 0, 11, 99}));
    EXPECT_EQ(last.GetPosition(), (R{12, 0, 199, 99}));
    EXPECT_EQ(first.GetPosition(), (R{})) << "an earlier client stays where it was";
    EXPECT_EQ(hidden.setPosCalls, 0) << "an invisible child takes no space and is not placed";
    EXPECT_EQ(f.Root()->FindVisualElement(0, 50), nullptr) << "a zero width is never hit";
}

TEST_F(Docking, AStripAsLargeAsAnIntCanBeStopsAtTheEdgeInsteadOfWrappingAround) {
    int const huge = std::numeric_limits<int>::max();
    CFilledElement left(f.Root(), {10, 0}, AlignLeft), top(f.Root(), {0, 5}, AlignTop);
    CFilledElement wide(f.Root(), {huge, 0}, AlignLeft), tall(f.Root(), {0, huge}, AlignTop);
    Arrange();
    EXPECT_EQ(wide.GetPosition(), (R{11, 6, 199, 99}));
    EXPECT_EQ(tall.GetPosition(), (R{200, 6, 199, 99}));

    CFilledElement collapsed(f.Root(), {0, 0}, AlignNone);
    collapsed.SetPos({0, 0, -5, -5}, false);
    CFilledElement right(&collapsed, {huge, 0}, AlignRight), bottom(&collapsed, {0, huge}, AlignBottom);
    collapsed.SetPos({0, 0, -5, -5}, true);
    EXPECT_EQ(right.GetPosition(), (R{0, 0, -5, -5}));
    EXPECT_EQ(bottom.GetPosition(), (R{0, 0, -1, -5}));
}

TEST_F(Docking, SetPosWithTheSameRectangleDoesNothingUnlessForced) {
    CCountingElement box(f.Root(), {50, 0}, AlignLeft);
    CCountingElement inner(&box, {0, 0}, AlignClient);
    Arrange();
    int positionsChanged = 0;
    struct Counter : tarnkit2::subscriber_base_t {
        int* n;
        void On(CVisualElement*) { ++*n; }
    } counter;
    counter.n = &positionsChanged;
    box.sigPosChanged.connect(&counter, &Counter::On);
    int const innerBefore = inner.setPosCalls;

    box.SetPos(box.GetPosition(), false);
    EXPECT_EQ(positionsChanged, 0);
    EXPECT_EQ(inner.setPosCalls, innerBefore);

    box.SetPos(box.GetPosition(), true);
    EXPECT_EQ(positionsChanged, 1);
    EXPECT_EQ(inner.setPosCalls, innerBefore + 1);
}

TEST_F(Docking, AnUnalignedParentDoesNotArrangeItsChildrenOnAResizeUnlessForced) {
    CFilledElement floating(f.Root(), {0, 0}, AlignNone);
    CFilledElement inner(&floating, {0, 0}, AlignClient);
    floating.SetPos({0, 0, 50, 50}, true);
    EXPECT_EQ(inner.GetPosition(), (R{0, 0, 50, 50}));
    floating.SetPos({0, 0, 60, 60}, false);
    EXPECT_EQ(inner.GetPosition(), (R{0, 0, 50, 50}));
    floating.SetPos({0, 0, 60, 60}, true);
    EXPECT_EQ(inner.GetPosition(), (R{0, 0, 60, 60}));
}

// Records the moves asked of the window instead of making them.
struct CScrollSpy : CBaseControlImp {
    using CBaseControlImp::CBaseControlImp;
    bool ScrollContent(int dx, int dy, screen_rectangle<int> const& r) override {
        moves.push_back({dx, dy, r});
        return true;
    }
    struct SMove {
        int dx, dy;
        screen_rectangle<int> source;
        bool operator==(SMove const&) const = default;
    };
    std::vector<SMove> moves;
};

TEST(ScrollOnSetPos, MovesTheOldPixelsInsteadOfRepainting) {
    CControlFixture f;
    CScrollSpy spy(f.control.get());
    CFilledElement parent(nullptr, {0, 0}, AlignNone);
    CFilledElement child(&parent, {0, 0}, AlignNone);
    parent.SetPos({5, 7, 150, 90}, false);
    parent.SetControl(&spy);

    // Without draw bounds the source is the old place, less what the new one cuts off.
    ScrollOnSetPos(&child, {20, 15, 60, 35}, {10, 10, 50, 30}, {});
    ScrollOnSetPos(&child, {20, 15, 40, 25}, {10, 10, 50, 30}, {});
    // With draw bounds the source is narrowed by the move, in the element's own coordinates.
    child.SetPos({30, 20, 70, 40}, false);
    ScrollOnSetPos(&child, {30, 20, 70, 40}, {40, 30, 80, 50}, {0, 0, 40, 20});
    ScrollOnSetPos(&child, {30, 20, 70, 40}, {30, 20, 70, 40}, {0, 0, 40, 20});
    ASSERT_EQ(spy.moves.size(), 3u) << "no move, no scroll";
    EXPECT_EQ(spy.moves[0], (CScrollSpy::SMove{10, 5, {15, 17, 55, 37}}));
    EXPECT_EQ(spy.moves[1], (CScrollSpy::SMove{10, 5, {15, 17, 35, 27}}));
    EXPECT_EQ(spy.moves[2], (CScrollSpy::SMove{-10, -10, {45, 37, 75, 47}}));
    parent.SetControl(nullptr);
}

// A strip docked to the far edge moves with it when the window grows: its pixels move through the window,
// and it is no longer known to be correct where it stands, whichever way it moved.
TEST(ScrollOnSetPos, AStripMovedByAResizeScrollsThroughTheWindowAndIsInvalid) {
    for (bool vertical : {false, true}) {
        CControlFixture f;
        CFilledElement strip(f.Root(), {20, 20}, vertical ? AlignBottom : AlignRight);
        f.control->Rearrange();
        f.Paint();
        f.Recorder()->Clear();
        f.window->InjectResize(vertical ? 200 : 220, vertical ? 120 : 100);
        EXPECT_EQ(f.Recorder()->Lines({"ScrollBuffer"}),
                  (std::vector<std::string>{vertical ? "ScrollBuffer 0,20 0,79,199,99"
                                                     : "ScrollBuffer 20,0 179,0,199,99"}));
        EXPECT_EQ(strip.GetValidRect(), (R{})) << (vertical ? "moved down" : "moved right");
    }
}

struct UpdateProtocol : testing::Test {
    CControlFixture f;
    CFilledElement panel{f.Root(), {0, 0}, AlignClient};
    CFilledElement child{&panel, {40, 0}, AlignLeft};
    CFilledElement other{&panel, {40, 0}, AlignRight};

    void SetUp() override {
        f.control->Rearrange();
        f.Paint();
    }
    std::vector<CVisualElement*> Updates() {
        std::vector<CVisualElement*> list;
        auto& updates = const_cast<CElementList&>(f.Imp()->GetUpdates());
        for (int i = 0; i < updates.GetCount(); ++i)
            list.push_back(updates.GetItem(i));
        return list;
    }
};

TEST_F(UpdateProtocol, UpdatesQueueOnceAndInvalidateOnlyWhenTheListGrows) {
    int const before = f.window->GetInvalidateCount();
    child.Update(UpdateLocal);
    child.Update(UpdateLocal);
    other.Update(UpdateLocal);
    EXPECT_EQ(Updates(), (std::vector<CVisualElement*>{&child, &other}));
    EXPECT_EQ(f.window->GetInvalidateCount(), before + 2);
}

TEST_F(UpdateProtocol, OnlyTheUpdatedElementIsDrawnAtItsPlace) {
    f.Recorder()->Clear();
    child.Update(UpdateLocal);
    ASSERT_TRUE(f.Paint());
    EXPECT_EQ(f.Recorder()->Lines({"FillRect"}),
              (std::vector<std::string>{"FillRect 0,0,40,99 brush=#f0f0f0"}));
    EXPECT_EQ(child.paints, 2);
    EXPECT_EQ(panel.paints, 1);
    EXPECT_EQ(other.paints, 1);
}

TEST_F(UpdateProtocol, WithoutAPainterNothingIsDrawnAndTheElementStaysInvalid) {
    child.Update(UpdateLocal);
    panel.OnDraw(nullptr);
    DrawElements(panel.GetChildren(), nullptr, {});
    EXPECT_EQ(panel.paints, 1);
    EXPECT_EQ(child.paints, 1);
    EXPECT_EQ(child.GetValidRect(), (R{})) << "still to be drawn";
}

TEST_F(UpdateProtocol, ATransparentElementHasItsParentRepaintAndReduceLeavesAHole) {
    child.transparent = true;
    child.Update(UpdateLocal);
    EXPECT_EQ(Updates(), (std::vector<CVisualElement*>{&panel, &child}));
    auto& updates = const_cast<CElementList&>(f.Imp()->GetUpdates());
    updates.Reduce();
    EXPECT_EQ(updates.GetCount(), 2);
    EXPECT_EQ(updates.GetItem(1), nullptr);
    f.Paint();
    EXPECT_EQ(panel.paints, 2);
    EXPECT_EQ(child.paints, 2) << "drawn once, as part of its parent";
}

// A parent that claims the updates of its children, or stops them.
struct CClaimingElement : CFilledElement {
    using CFilledElement::CFilledElement;
    void ProcessChange(CVisualElement** sender) override {
        if (*sender != this) *sender = stop ? nullptr : this;
    }
    bool stop = false;
};

TEST(UpdateProtocolClaims, AnAncestorMayReplaceOrClearTheSender) {
    CControlFixture f;
    CClaimingElement claimer(f.Root(), {0, 0}, AlignClient);
    CFilledElement child(&claimer, {10, 0}, AlignLeft);
    f.control->Rearrange();
    f.Paint();
    child.Update(UpdateLocal);
    ASSERT_EQ(f.Imp()->GetUpdates().GetCount(), 1);
    EXPECT_EQ(const_cast<CElementList&>(f.Imp()->GetUpdates()).GetItem(0), &claimer);
    f.Paint();
    claimer.stop = true;
    child.Update(UpdateLocal);
    EXPECT_EQ(f.Imp()->GetUpdates().GetCount(), 0);
}

// The claim of an ancestor covers repaints, never the notice that an element leaves: every element of a
// subtree that leaves, deleted or detached, is forgotten by the control itself.
TEST(UpdateProtocolClaims, TheLeavingOfEveryElementReachesTheControlPastAClaimingAncestor) {
    for (bool detachSubtree : {false, true}) {
        CControlFixture f;
        CClaimingElement outer(f.Root(), {0, 0}, AlignClient);
        CClaimingElement claimer(&outer, {0, 0}, AlignClient);
        auto* child = new CFilledElement(&claimer, {10, 0}, AlignLeft);
        child->SetFocusable(true);
        f.control->Rearrange();
        f.Paint();
        f.Imp()->SetFocusedElement(child, false);
        f.Imp()->SetMouseElement(child);
        f.Imp()->SetCapture(child);
        f.Imp()->SetTabHandler(child);
        claimer.stop = true;
        if (detachSubtree) claimer.ReParent(nullptr, true);
        delete child;
        EXPECT_EQ(f.Imp()->GetFocusedElement(), nullptr);
        EXPECT_EQ(f.Imp()->GetFocussingElement(), nullptr);
        EXPECT_EQ(f.Imp()->GetMouseElement(), nullptr);
        EXPECT_EQ(f.Imp()->GetCapture(), nullptr);
        f.window->InjectKeyDown(mirel7::KeyTab); // follows the tab handler, when one is left
        f.Paint();
    }
}

TEST_F(UpdateProtocol, AnElementUnderAnInvisibleAncestorQueuesNothing) {
    panel.SetVisible(false);
    f.Paint();
    child.Update(UpdateLocal);
    EXPECT_TRUE(Updates().empty());
}

TEST_F(UpdateProtocol, InFullRepaintModeUpdatesStayOutButALeavingElementIsStillForgotten) {
    auto* doomed = new CFilledElement(&panel, {10, 0}, AlignTop);
    f.control->Rearrange();
    f.Paint();
    doomed->Update(UpdateLocal);
    EXPECT_EQ(Updates().size(), 1u);
    f.control->Rearrange(); // sets the full repaint
    ASSERT_TRUE(f.Imp()->IsFullRepaintPending());
    child.Update(UpdateLocal);
    EXPECT_EQ(Updates().size(), 0u) << "the full repaint emptied the list and keeps it empty";
    other.Update(UpdateLocal);
    delete doomed;
    EXPECT_TRUE(Updates().empty());
    f.Paint();
}

TEST_F(UpdateProtocol, ADeletedElementLeavesEveryListAndPointerOfTheControl) {
    auto* doomed = new CFilledElement(&panel, {10, 0}, AlignTop);
    f.control->Rearrange();
    f.Paint();
    doomed->Update(UpdateLocal);
    f.Imp()->SetMouseElement(doomed);
    f.Imp()->SetCapture(doomed);
    f.Imp()->SetTabHandler(doomed);
    delete doomed;
    EXPECT_TRUE(Updates().empty());
    EXPECT_EQ(f.Imp()->GetMouseElement(), nullptr);
    EXPECT_EQ(f.Imp()->GetCapture(), nullptr);
    f.Paint();
}

TEST_F(UpdateProtocol, ATransparentElementMovedToAnotherControlIsForgottenThereAndItsNewParentIsNot) {
    CControlFixture other;
    child.transparent = true;
    f.Imp()->SetCapture(&child);
    other.Imp()->SetMouseElement(other.Root());
    child.ReParent(other.Root(), true);
    EXPECT_EQ(f.Imp()->GetCapture(), nullptr);
    EXPECT_EQ(other.Imp()->GetMouseElement(), other.Root());
}

// Paints each element of a tree once, then counts the paints that follow.
struct Repaints : testing::Test {
    CControlFixture f;
    CFilledElement client{f.Root(), {0, 0}, AlignClient};
    void SetUp() override {
        f.control->Rearrange();
        f.Paint();
    }
    // Paints and answers how often each element was drawn in that paint.
    std::vector<int> PaintCounts(std::vector<CFilledElement*> const& elements) {
        std::vector<int> before;
        for (CFilledElement* e : elements)
            before.push_back(e->paints);
        f.Paint();
        for (std::size_t i = 0; i < elements.size(); ++i)
            before[i] = elements[i]->paints - before[i];
        return before;
    }
};

TEST_F(Repaints, DeletingAVisibleElementRedocksItsSiblingsAndRepaintsWhereItWas) {
    auto* strip = new CFilledElement(f.Root(), {30, 0}, AlignLeft);
    auto* floating = new CFilledElement(&client, {0, 0}, AlignNone);
    f.control->Rearrange();
    floating->SetPos({10, 10, 40, 40}, false);
    f.Paint();
    delete floating;
    EXPECT_EQ(PaintCounts({&client}), std::vector<int>{1}) << "the place an undocked element left";
    delete strip;
    EXPECT_EQ(PaintCounts({&client}), std::vector<int>{1});
    EXPECT_EQ(client.GetPosition(), (R{0, 0, 199, 99}));
}

TEST_F(Repaints, AnUndockedElementRepaintsWhereItWasAndIsAndLaterOverlappingSiblingsStayOnTop) {
    CFilledElement under(&client, {0, 0}, AlignNone), over(&client, {0, 0}, AlignNone);
    CFilledElement apart(&client, {0, 0}, AlignNone);
    under.SetPos({10, 10, 50, 50}, false);
    over.SetPos({30, 30, 70, 70}, false);
    apart.SetPos({100, 10, 120, 30}, false);
    f.Paint();
    std::vector<CFilledElement*> const all{&client, &under, &over, &apart};
    under.SetVisible(false);
    EXPECT_EQ(PaintCounts(all), (std::vector<int>{1, 0, 1, 1}));
    under.SetVisible(true);
    EXPECT_EQ(PaintCounts(all), (std::vector<int>{1, 1, 1, 1}));
    f.Recorder()->Clear();
    under.SetPos({12, 20, 52, 60}, false);
    EXPECT_EQ(PaintCounts(all), (std::vector<int>{1, 1, 1, 1})) << "a move of an undocked element";
    EXPECT_TRUE(f.Recorder()->Lines({"ScrollBuffer"}).empty()) << "nothing of the old place is moved";
    under.Update(UpdateLocal);
    EXPECT_EQ(PaintCounts(all), (std::vector<int>{0, 1, 1, 0})) << "the later sibling over it comes again";
    over.Update(UpdateLocal);
    EXPECT_EQ(PaintCounts(all), (std::vector<int>{0, 0, 1, 0}));
}

TEST(EmptyWindow, AWindowWithoutWidthOrHeightPaintsNothingAndAsksForNothing) {
    for (mirel7::size<int> const empty : {mirel7::size<int>{0, 50}, mirel7::size<int>{50, 0}}) {
        CControlFixture f(empty);
        CFilledElement client(f.Root(), {0, 0}, AlignClient);
        f.Paint();
        EXPECT_FALSE(f.Paint()) << "an empty window asks for no further paint";
        EXPECT_EQ(client.paints, 0);
        f.window->InjectResize(40, 30);
        f.Paint();
        EXPECT_EQ(client.GetPosition(), (R{0, 0, 39, 29}));
        EXPECT_EQ(client.paints, 1);
        f.window->InjectResize(0, 0);
        f.Paint();
        EXPECT_FALSE(f.Paint());
    }
}

TEST(ConstructorSize, ANegativeSizeIsClampedAsSetSizeClampsIt) {
    CControlFixture f;
    CFilledElement e(f.Root(), {-5, -7}, AlignLeft);
    EXPECT_EQ(e.GetSize(), (size<int>{0, 0}));
}

struct Lifecycle : testing::Test {
    CControlFixture f;
};

// Tells whether it was destroyed.
struct CWatchedElement : CFilledElement {
    CWatchedElement(CVisualElement* parent, bool* died)
        : CFilledElement(parent, {0, 0}, AlignNone), died(died) {}
    ~CWatchedElement() override { *died = true; }
    bool* died;
};

TEST_F(Lifecycle, DynamicChildrenDieWithTheParentMembersSurviveDetached) {
    bool dynamicDied = false, memberDied = false;
    CWatchedElement member(nullptr, &memberDied);
    {
        auto* parent = new CFilledElement(f.Root(), {0, 0}, AlignClient);
        new CWatchedElement(parent, &dynamicDied);
        member.ReParent(parent, true);
        EXPECT_EQ(parent->GetChildren()->GetCount(), 2);
        delete parent;
    }
    EXPECT_TRUE(dynamicDied);
    EXPECT_FALSE(memberDied);
    EXPECT_EQ(member.GetParent(), nullptr);
    EXPECT_EQ(member.GetControl(), nullptr);
}

// Counts the ends of its control.
struct CControlWatcher : CFilledElement {
    using CFilledElement::CFilledElement;
    void HandleControlDestroy() override { ++ends; }
    int ends = 0;
};

TEST_F(Lifecycle, EveryElementOfASubtreeThatLeavesItsControlSeesTheControlEnd) {
    CFilledElement outer(f.Root(), {0, 0}, AlignClient);
    CControlWatcher inner(&outer, {0, 0}, AlignClient);
    inner.ReParent(f.Root(), true);
    inner.ReParent(&outer, true);
    EXPECT_EQ(inner.ends, 0) << "moving inside the control ends nothing";
    outer.ReParent(nullptr, true);
    EXPECT_EQ(inner.ends, 1);
}

TEST_F(Lifecycle, ReparentingIntoTheOwnSubtreeAssertsAndChangesNothing) {
    CFilledElement outer(f.Root(), {0, 0}, AlignClient);
    CFilledElement inner(&outer, {0, 0}, AlignClient);
    mirel_test::CExpectAssertions expected;
    outer.ReParent(&inner, true);
    outer.ReParent(&outer, true);
    EXPECT_EQ(expected.Count(), 2u);
    EXPECT_EQ(outer.GetParent(), f.Root());
}

TEST_F(Lifecycle, MoveItemAppendsPastTheEndAndAssertsOnABadSource) {
    CFilledElement a(f.Root(), {}, AlignNone), b(f.Root(), {}, AlignNone), c(f.Root(), {}, AlignNone);
    IChildren* children = f.Root()->GetChildren();
    children->MoveItem(0, 2);
    EXPECT_EQ(children->GetIndex(&a), 2);
    children->MoveItem(2, 0);
    EXPECT_EQ(children->GetIndex(&a), 0);
    mirel_test::CExpectAssertions expected;
    children->MoveItem(3, 0);
    EXPECT_EQ(expected.Count(), 1u);
    EXPECT_EQ(children->GetCount(), 3);
}

TEST(DpiScaling, SizesGrowByTheScaleAndSetWidthScalesTheHeightAgain) {
    CControlFixture f;
    f.system.SetDPIScale(1.5);
    CFilledElement e(f.Root(), {10, 20}, AlignLeft);
    EXPECT_EQ(e.GetSize(), (size<int>{15, 30}));
    e.SetWidth(11, true);
    EXPECT_EQ(e.GetSize(), (size<int>{16, 45}));
    int value = 3;
    ApplyDPIScale(value);
    EXPECT_EQ(value, 4) << "truncated towards zero";
    mirel7::SetDPIAutoScale(0);
    value = 3;
    ApplyDPIScale(value);
    EXPECT_EQ(value, 3);
    mirel7::SetDPIAutoScale(1);
}

TEST(DpiScaling, AScaledValueBeyondTheRangeOfIntStopsAtItsEnd) {
    CControlFixture f;
    f.system.SetDPIScale(1.5);
    int const huge = std::numeric_limits<int>::max(), lowest = std::numeric_limits<int>::min();
    rectangle<int> r{huge, lowest, huge / 2, -(huge / 2)};
    ApplyDPIScale(r);
    EXPECT_EQ(r, (R{huge, lowest, static_cast<int>(huge / 2 * 1.5), static_cast<int>(-(huge / 2) * 1.5)}));
    CFilledElement e(f.Root(), {huge, 10}, AlignLeft);
    EXPECT_EQ(e.GetSize(), (size<int>{huge, 15}));
}

TEST(AsString, ChildrenOnOneRowAreJoinedByTabsAndRowsByEmptyLines) {
    CControlFixture f;
    CFilledElement a(f.Root(), {}, AlignNone), b(f.Root(), {}, AlignNone), c(f.Root(), {}, AlignNone),
        d(f.Root(), {}, AlignNone), hidden(f.Root(), {}, AlignNone);
    a.SetPos({50, 0, 60, 10}, false);
    b.SetPos({0, 0, 10, 10}, false);
    c.SetPos({0, 20, 10, 30}, false);
    d.SetPos({20, 20, 30, 30}, false);
    a.text = "right";
    b.text = "left";
    c.text = "two\nlines";
    d.text = "after";
    hidden.text = "hidden";
    hidden.SetVisible(false);
    EXPECT_EQ(f.Root()->AsString(), "left\tright\n\ntwo\nlines\n\nafter");
    EXPECT_TRUE(CopyToClipboard(f.Root()));
    EXPECT_EQ(f.system.GetClipboard()->GetText(), "left\tright\n\ntwo\nlines\n\nafter");
}

TEST(Colors, AnExplicitColourEqualToThePaletteKeepsTheBinding) {
    CControlFixture f;
    CFilledElement e(f.Root(), {}, AlignClient);
    _color const paletteBackground = mirel7::GetSysPalette()->GetColor(ISysPalette::ColorElementBackground);
    EXPECT_EQ(e.GetBkColor(), paletteBackground);
    e.SetBkColor(paletteBackground);
    EXPECT_EQ(e.GetBkSysColor(), ISysPalette::ColorElementBackground);
    e.SetBkColor(_color(1, 2, 3));
    EXPECT_EQ(e.GetBkSysColor(), ISysPalette::ColorNone);
    EXPECT_EQ(e.GetBkColor(), _color(1, 2, 3));
    e.SetBkColor(ISysPalette::ColorHighlight);
    EXPECT_EQ(e.GetBkColor(), mirel7::GetSysPalette()->GetColor(ISysPalette::ColorHighlight));
}

TEST(Font, AnUnsizedFontDerivesFromTheDefaultGuiFont) {
    CControlFixture f;
    CFilledElement e(f.Root(), {}, AlignClient);
    font const base = mirel7::GetDefaultGUIFont();
    font wanted;
    wanted.scale = 1.5;
    wanted.style = font::StyleBold;
    e.SetFont(wanted);
    font const result = e.GetFont();
    EXPECT_EQ(result.size, static_cast<int>(1.5 * base.size));
    EXPECT_EQ(result.style, font::StyleBold);
    EXPECT_EQ(result.face, base.face);
    EXPECT_DOUBLE_EQ(e.GetSizeScale(), result.size * 0.125);

    wanted.size = 20;
    e.SetFont(wanted);
    EXPECT_EQ(e.GetFont(), wanted) << "a sized font stands as it is";
    CFilledElement child(&e, {}, AlignClient);
    EXPECT_EQ(child.GetStoredFont(), wanted) << "a new child takes its parent's stored font";
}

TEST(Geometry, ConversionsAndTheDisplayableRect) {
    CControlFixture f;
    CFilledElement outer(f.Root(), {}, AlignNone), inner(&outer, {}, AlignNone);
    f.control->Rearrange();
    outer.SetPos({10, 20, 110, 70}, false);
    inner.SetPos({5, 5, 200, 30}, false);
    point<int> p{1, 2};
    inner.ElementToControl(&p);
    EXPECT_EQ(p, (point<int>{16, 27}));
    inner.ControlToElement(&p);
    EXPECT_EQ(p, (point<int>{1, 2}));

    R r{0, 0, 300, 10};
    EXPECT_TRUE(inner.GetDisplayableRect(&r));
    EXPECT_EQ(r, (R{0, 0, 95, 10})) << "clipped by the outer element, back in the inner's coordinates";
    outer.SetVisible(false);
    r = {0, 0, 10, 10};
    EXPECT_FALSE(inner.GetDisplayableRect(&r));
    EXPECT_TRUE(r.IsAllZero());
}

} // namespace
