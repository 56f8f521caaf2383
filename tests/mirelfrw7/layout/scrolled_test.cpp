#include <mirelfrw7/layout/scrolled.h>

#include "support/control_fixture.h"

#include <gtest/gtest.h>

namespace {

using namespace mirelfrw7;
using mirel_test::CControlFixture;
using R = mirel7::rectangle<int>;

// A scrolled element of 300 x 250 (its stored size) in a window of 200 x 100, at `at`, counting its
// placements and resize signals.
struct CSpyScrolled : CScrolled {
    CSpyScrolled(CVisualElement* parent, R at) : CScrolled(parent, {300, 250}, AlignNone) {
        SetPos(at, false);
    }
    void SetPos(R const& r, bool force) override {
        ++placements;
        CScrolled::SetPos(r, force);
    }
    int placements = 0;
};

struct SMove {
    R at;
    int key, flags;
    R expected;
};

// The root's bounds are 0..199 x 0..99, which the element keeps covered.
SMove const Moves[] = {
    {{0, 0, 300, 250}, 38, 0, {0, 0, 300, 250}},             // up at the top stays
    {{0, -50, 300, 200}, 38, 0, {0, -40, 300, 210}},         // up by 10
    {{0, -50, 300, 200}, 40, 0, {0, -60, 300, 190}},         // down by 10
    {{0, -140, 300, 110}, 34, 0, {0, -151, 300, 99}},        // a page down stops at the bottom
    {{0, -140, 300, 110}, 33, 0, {0, -41, 300, 209}},        // a page up
    {{-30, 0, 270, 250}, 37, 0, {-20, 0, 280, 250}},         // left
    {{-95, 0, 205, 250}, 39, 0, {-101, 0, 199, 250}},        // right stops at the right edge
    {{-30, -60, 270, 190}, 36, 0, {0, -60, 300, 190}},       // home
    {{-30, -60, 270, 190}, 36, 0x200, {-30, 0, 270, 250}},   // Ctrl+home
    {{-30, -60, 270, 190}, 35, 0, {-101, -60, 199, 190}},    // end: the right edges meet
    {{-30, -60, 270, 190}, 35, 0x200, {-30, -152, 270, 98}}, // Ctrl+end: one pixel short of them
};

TEST(Scrolled, TheNavigationKeysKeepTheWindowCovered) {
    for (SMove const& m : Moves) {
        CControlFixture f;
        f.control->Rearrange();
        CSpyScrolled s(f.Root(), m.at);
        s.placements = 0;
        EXPECT_TRUE(s.HandleKeyDown(m.flags, m.key));
        EXPECT_EQ(s.GetPosition(), m.expected) << "key " << m.key << " flags " << m.flags;
        EXPECT_EQ(s.placements, 1) << "key " << m.key;
    }
}

TEST(Scrolled, WithoutClippingKeysAreNotHandledAndTheWholeElementIsDrawn) {
    CControlFixture f;
    f.control->Rearrange();
    CSpyScrolled s(f.Root(), {0, -50, 300, 200});
    EXPECT_EQ(s.GetDrawBounds(), (R{0, 50, 199, 149}));
    s.SetClipToParent(false);
    EXPECT_FALSE(s.HandleKeyDown(0, 38));
    EXPECT_EQ(s.GetDrawBounds(), R{});
}

TEST(Scrolled, AMoveAlongAnAxisOfUnchangedSizeSignalsOnce) {
    CControlFixture f;
    CSpyScrolled s(f.Root(), {0, 0, 300, 250});
    int signals = 0;
    struct CCounter : tarnkit2::subscriber_base_t {
        int* count;
        void On(CVisualElement*) { ++*count; }
    } counter;
    counter.count = &signals;
    s.sigPosChanged.connect(&counter, &CCounter::On);
    s.JumpVert(-10);
    EXPECT_EQ(signals, 1);
    s.SetPos({0, -10, 300, 230}, false);
    EXPECT_EQ(signals, 1) << "a resize on the moved axis is no scroll";
    s.SetPos({0, -10, 300, 230}, true);
    EXPECT_EQ(signals, 2) << "the arranging pass signals by itself";
    s.SetPos({5, -10, 305, 230}, true);
    EXPECT_EQ(signals, 3) << "an arranging move signals once";
}

} // namespace
