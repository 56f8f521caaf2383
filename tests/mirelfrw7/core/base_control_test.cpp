#include <mirelfrw7/core/base_control.h>
#include <mirelfrw7/core/cancel_processing.h>

#include "support/assert_capture.h"
#include "support/control_fixture.h"
#include "support/test_elements.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel_test::CControlFixture;
using mirel_test::CFilledElement;
using R = rectangle<int>;

TEST(PaintPass, TheFirstPaintArrangesEverythingAndDrawsTheWholeTree) {
    CControlFixture f;
    CFilledElement left(f.Root(), {30, 0}, AlignLeft), client(f.Root(), {0, 0}, AlignClient);
    left.Update(UpdateLocal);
    ASSERT_TRUE(f.Paint());
    EXPECT_EQ(client.GetPosition(), (R{31, 0, 199, 99}));
    EXPECT_EQ(left.paints, 1);
    EXPECT_EQ(client.paints, 1);
    EXPECT_EQ(f.Recorder()->Lines({"BeginPaint", "EndPaint"}),
              (std::vector<std::string>{"BeginPaint 2", "EndPaint"}));

    EXPECT_FALSE(f.Paint()) << "the arrangement inside the pass asks for no paint of its own";
}

TEST(PaintPass, SignalsFrameThePassAndCancelProcessingEndsAnEventQuietly) {
    CControlFixture f;
    CFilledElement e(f.Root(), {0, 0}, AlignClient);
    struct Journal : tarnkit2::subscriber_base_t {
        std::vector<std::string> lines;
        void Before() { lines.push_back("before"); }
        void After() { lines.push_back("after"); }
        void Paint(CVisualElement*, IPainter*) {
            lines.push_back("paint");
            throw cancel_processing();
        }
    } journal;
    f.Imp()->sigBeforePaint.connect(&journal, &Journal::Before);
    f.Imp()->sigAfterPaint.connect(&journal, &Journal::After);
    e.sigPaint.connect(&journal, &Journal::Paint);
    EXPECT_NO_THROW(f.Paint());
    EXPECT_EQ(journal.lines, (std::vector<std::string>{"before", "paint"}))
        << "the throw ends the pass at the control's entry";
    e.sigPaint.disconnect(&journal, &Journal::Paint);
    f.control->Rearrange();
    f.Paint();
    EXPECT_EQ(journal.lines.back(), "after");
}

TEST(Rearranging, LockCountingNeverGoesBelowZero) {
    CControlFixture f;
    CFilledElement e(f.Root(), {30, 0}, AlignLeft);
    f.Paint();
    f.control->LockRearrange(false);
    f.control->LockRearrange(false);
    f.control->LockRearrange(true);
    e.SetWidth(50, false);
    f.Paint();
    EXPECT_EQ(e.GetPosition(), (R{0, 0, 30, 99}))
        << "one lock holds after surplus unlocks, also over a paint";
    f.control->LockRearrange(false);
    EXPECT_EQ(e.GetPosition(), (R{0, 0, 50, 99})) << "the last unlock arranges";
}

TEST(Rearranging, WhatChangedDuringALockIsLaidOutAndShownAtTheUnlock) {
    CControlFixture f;
    CFilledElement client(f.Root(), {0, 0}, AlignClient);
    f.Paint();
    f.control->LockRearrange(true);
    f.window->InjectResize(150, 80);
    f.Paint();
    f.control->LockRearrange(false);
    int const paints = client.paints;
    f.Paint();
    EXPECT_EQ(client.GetPosition(), (R{0, 0, 149, 79}));
    EXPECT_EQ(client.paints, paints + 1);

    f.control->LockRearrange(true);
    auto* root = new CFilledElement(nullptr, {0, 0}, AlignClient);
    CFilledElement inner(root, {0, 0}, AlignClient);
    f.control->SetContent(root);
    f.Paint();
    f.control->LockRearrange(false);
    f.Paint();
    EXPECT_EQ(inner.GetPosition(), (R{0, 0, 149, 79}));
    EXPECT_EQ(inner.paints, 1);
}

// An element that asks for a new arrangement of itself every time it is placed.
struct CRestlessElement : CFilledElement {
    CRestlessElement(CVisualElement* parent, int* placements)
        : CFilledElement(parent, {10, 0}, AlignLeft), n(placements) {}
    void SetPos(rectangle<int> const& r, bool force) override {
        ++*n;
        CFilledElement::SetPos(r, force);
        if (partner)
            partner->SetWidth(partner->GetSize().cx + 1, false);
        else
            SetWidth(GetSize().cx == 10 ? 11 : 10, false);
    }
    int* n;
    CVisualElement* partner = nullptr;
};

TEST(Rearranging, ASizeChangedAfterAnArrangementIsLaidOutInTheSamePass) {
    CControlFixture f;
    CFilledElement top(f.Root(), {0, 10}, AlignTop), client(f.Root(), {0, 0}, AlignClient);
    ASSERT_TRUE(f.Paint());
    struct Grower : tarnkit2::subscriber_base_t {
        explicit Grower(CFilledElement& e) : element(e) {}
        void After() { element.SetSize({0, 30}, false); }
        CFilledElement& element;
    } grower(top);
    f.Imp()->sigAfterArrange.connect(&grower, &Grower::After);
    top.SetSize({0, 20}, false);
    f.Paint();
    EXPECT_EQ(client.GetPosition(), (R{0, 31, 199, 99}));
}

TEST(Rearranging, AnElementThatMeasuresAnewWhilePlacedIsLaidOutAgainInTheSamePass) {
    // Like a box sized by its children: placing it once changes its height, which asks its parent again.
    struct CMeasuring : CFilledElement {
        using CFilledElement::CFilledElement;
        void SetPos(rectangle<int> const& r, bool force) override {
            CFilledElement::SetPos(r, force);
            if (int const h = std::exchange(measured, 0)) SetHeight(h, false);
        }
        int measured = 0;
    };
    CControlFixture f;
    CFilledElement holder(f.Root(), {0, 0}, AlignClient);
    CMeasuring measuring(&holder, {0, 10}, AlignTop);
    CFilledElement below(&holder, {0, 0}, AlignClient);
    f.Paint();
    measuring.measured = 30;
    measuring.SetHeight(20, false);
    f.Imp()->ForceRearrange();
    EXPECT_EQ(measuring.GetPosition(), (R{0, 0, 199, 30}));
    EXPECT_EQ(below.GetPosition(), (R{0, 31, 199, 99}));
}

TEST(Rearranging, ALayoutThatNeverSettlesStopsAfterTwoEqualRounds) {
    CControlFixture f;
    CFilledElement holder(f.Root(), {0, 0}, AlignClient);
    int placements = 0;
    CRestlessElement restless(&holder, &placements);
    f.Paint();
    placements = 0;
    restless.SetWidth(20, false);
    f.Imp()->ForceRearrange();
    EXPECT_LE(placements, 3);
    EXPECT_TRUE(f.Imp()->GetRearranges().IsEmpty());
}

TEST(Rearranging, AnOscillationBetweenTwoElementsStopsAfterABoundedNumberOfRounds) {
    CControlFixture f;
    CFilledElement first(f.Root(), {0, 50}, AlignTop), second(f.Root(), {0, 0}, AlignClient);
    int placements = 0;
    CRestlessElement a(&first, &placements), b(&second, &placements);
    a.partner = &b;
    b.partner = &a;
    f.Paint();
    placements = 0;
    a.SetWidth(20, false);
    f.Imp()->ForceRearrange();
    EXPECT_GT(placements, 2);
    EXPECT_LE(placements, 2 * 64 + 2);
    EXPECT_TRUE(f.Imp()->GetRearranges().IsEmpty());
}

TEST(Content, SetContentReplacesTheRootIgnoresNullAndDetachesAMemberRoot) {
    CControlFixture f;
    CFilledElement member(nullptr, {0, 0}, AlignClient);
    f.control->SetContent(nullptr);
    ASSERT_NE(f.control->GetContent(), nullptr);

    f.control->SetContent(&member);
    EXPECT_EQ(f.control->GetContent(), &member);
    EXPECT_EQ(member.GetControl(), f.Imp());
    ASSERT_TRUE(f.Paint());
    EXPECT_EQ(member.GetPosition(), (R{0, 0, 199, 99}));

    auto* dynamic = new CFilledElement(nullptr, {0, 0}, AlignClient);
    f.control->SetContent(dynamic);
    EXPECT_EQ(member.GetControl(), nullptr) << "the member root is detached, not deleted";
    EXPECT_EQ(f.control->GetContent(), dynamic);
}

TEST(Content, DestroyingTheControlDeletesTheTreeAndTheWindowEventReachesEveryElement) {
    mirel_test::CControlFixture f;
    auto* child = new CFilledElement(f.Root(), {10, 0}, AlignLeft);
    int destroyNotices = 0;
    struct Counter : tarnkit2::subscriber_base_t {
        int* n;
        void On(CVisualElement*) { ++*n; }
    } counter;
    counter.n = &destroyNotices;
    child->sigControlDestroy.connect(&counter, &Counter::On);
    f.Root()->sigControlDestroy.connect(&counter, &Counter::On);
    f.window->InjectDestroy();
    EXPECT_EQ(destroyNotices, 2);
    f.control.reset(); // deletes `child`; ASan tells if anything touches it afterwards
}

TEST(Content, RealDrawRectIsTheClientLessOnePixel) {
    CControlFixture f({64, 48});
    EXPECT_EQ(f.Imp()->GetRealDrawRect(), (R{0, 0, 63, 47}));
    f.window->InjectResize(80, 40);
    EXPECT_EQ(f.Root()->GetPosition(), (R{0, 0, 79, 39}));
}

} // namespace
