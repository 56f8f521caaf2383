#include <mirelfrw7/core/transparent_flavor.h>

#include "support/control_fixture.h"
#include "support/repaint_property.h"
#include "support/test_elements.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel_test::CFilledElement;

using mirel_test::RandomColor;
using mirel_test::Uniform;

// Fills its bounds only while opaque; always draws a frame and a cross in a half transparent foreground,
// which blends into whatever lies below: drawn twice without what lies below, it comes out darker.
class CFrame : public CTransparentFlavor<CVisualElement> {
public:
    CFrame(CVisualElement* parent, size<int> frameSize, Alignment alignment, bool transparent, int limit = 0)
        : CTransparentFlavor(parent, frameSize, alignment), limit(limit) {
        m_transparent = transparent;
    }

    void DrawContent(IPainter* painter) override {
        ++paints;
        rectangle<int> const b = GetBounds();
        if (!m_transparent) painter->FillRect(b.left, b.top, b.right, b.bottom);
        pen outline = painter->GetPen();
        outline.color.a = 128;
        painter->SetPen(outline);
        int const midX = (b.left + b.right) / 2, midY = (b.top + b.bottom) / 2;
        // Straight lines keep to the element's own pixels.
        Line(painter, b.left, b.top, b.right, b.top);
        Line(painter, b.left, b.bottom, b.right, b.bottom);
        Line(painter, b.left, b.top + 1, b.left, b.bottom - 1);
        Line(painter, b.right, b.top + 1, b.right, b.bottom - 1);
        Line(painter, b.left + 1, midY, b.right - 1, midY);
        Line(painter, midX, b.top + 1, midX, b.bottom - 1);
    }

    // The largest size it may take without overflowing its parent; 0 for one that keeps its size.
    int limit;
    int paints = 0;

private:
    static void Line(IPainter* painter, int x0, int y0, int x1, int y1) {
        if (x1 < x0 || y1 < y0) return;
        painter->MoveTo(x0, y0);
        painter->LineTo(x1, y1);
    }
};

TEST(TransparentFlavor, AnUpdateOfATransparentElementRepaintsItsParent) {
    mirel_test::CControlFixture f;
    auto* const parent = new CFilledElement(f.Root(), {0, 0}, AlignClient);
    auto* const frame = new CFrame(parent, {40, 0}, AlignLeft, false);
    f.Paint();
    parent->paints = frame->paints = 0;

    frame->Update(UpdateLocal);
    f.Paint();
    EXPECT_EQ(parent->paints, 0) << "opaque: it covers its own rectangle";
    EXPECT_EQ(frame->paints, 1);

    frame->SetTransparent(true);
    EXPECT_TRUE(frame->IsTransparent());
    f.Paint();
    EXPECT_EQ(parent->paints, 1) << "now the parent shows through";
    EXPECT_EQ(frame->paints, 2);

    frame->SetTransparent(true);
    EXPECT_FALSE(f.Paint()) << "no change, no paint";

    frame->Update(UpdateLocal);
    f.Paint();
    EXPECT_EQ(parent->paints, 2);

    frame->SetTransparent(false);
    f.Paint();
    EXPECT_EQ(parent->paints, 2);
    EXPECT_EQ(frame->paints, 4);
}

// A filled client with frames on its edges and a client frame, which has frames of its own: strips never
// overflow, so a partial paint and a full one see the same layout.
void BuildFrames(CBaseControl& control, unsigned seed) {
    std::mt19937 random(seed);
    auto* const base = new CFilledElement(control.GetContent(), {0, 0}, AlignClient);
    base->SetBkColor(RandomColor(random));
    auto const edges = [&](CVisualElement* parent, int count, int limit) {
        for (int i = 0; i < count; ++i) {
            auto const edge = static_cast<Alignment>(Uniform(random, AlignLeft, AlignBottom));
            auto* const frame = new CFrame(parent, {Uniform(random, 1, limit), Uniform(random, 1, limit)},
                                           edge, Uniform(random, 0, 1) != 0, limit);
            frame->SetBkColor(RandomColor(random));
            frame->SetFgColor(RandomColor(random));
        }
    };
    edges(base, 4, 15);
    auto* const centre = new CFrame(base, {0, 0}, AlignClient, Uniform(random, 0, 1) != 0);
    centre->SetBkColor(RandomColor(random));
    centre->SetFgColor(RandomColor(random));
    edges(centre, 3, 10);
}

void Collect(CVisualElement* e, std::vector<CFrame*>& out) {
    for (int i = 0; i < e->GetChildren()->GetCount(); ++i) {
        CVisualElement* const child = e->GetChildren()->GetItem(i);
        if (auto* const frame = dynamic_cast<CFrame*>(child)) out.push_back(frame);
        Collect(child, out);
    }
}

void ChangeFrame(CBaseControl& control, std::mt19937& random) {
    std::vector<CFrame*> frames;
    Collect(control.GetContent(), frames);
    CFrame* const frame = frames[static_cast<std::size_t>(Uniform(random, 0, int(frames.size()) - 1))];
    switch (Uniform(random, 0, 5)) {
    case 0:
        frame->SetBkColor(RandomColor(random));
        break;
    case 1:
        frame->SetFgColor(RandomColor(random));
        break;
    case 2:
        frame->SetTransparent(!frame->IsTransparent());
        break;
    case 3:
        frame->Update(UpdateLocal);
        break;
    case 4:
        if (frame->limit > 0)
            frame->SetSize({Uniform(random, 1, frame->limit), Uniform(random, 1, frame->limit)}, false);
        break;
    default:
        frame->SetVisible(!frame->IsVisible());
        break;
    }
}

TEST(TransparentFlavor, IncrementalPaintsOfTransparentFramesEqualAFullPaint) {
    for (unsigned seed = 1; seed <= 100; ++seed) {
        mirel_test::SRepaintScenario scenario;
        scenario.build = [seed](CBaseControl& control) { BuildFrames(control, seed); };
        scenario.act = [](CBaseControl& control, mirel7::headless::CHeadlessWindow&, std::mt19937& random) {
            for (int change = Uniform(random, 1, 3); change > 0; --change)
                ChangeFrame(control, random);
        };
        EXPECT_TRUE(mirel_test::IncrementalPaintEqualsFullPaint(scenario, seed));
    }
}

} // namespace
