#include <mirelfrw7/layout/bevel.h>
#include <mirelfrw7/layout/box.h>
#include <mirelfrw7/layout/central_part.h>
#include <mirelfrw7/layout/container.h>
#include <mirelfrw7/layout/pane.h>

#include "mirelfrw7/layout/fake_native.h"
#include "support/repaint_property.h"
#include "support/storm.h"
#include "support/test_elements.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace mirelfrw7;
using mirel_test::RandomColor;
using mirel_test::Uniform;

// A central part shows content of its own: here its background.
struct CFilledCentral : CCentralPart {
    using CCentralPart::CCentralPart;
    void DrawContent(IPainter* painter) override { painter->FillRect(rectangle<double>(GetBounds())); }
};

Alignment RandomAlignment(std::mt19937& random) {
    return static_cast<Alignment>(Uniform(random, AlignLeft, AlignClient));
}

// One element of any container kind, or a plain filled one, docked somewhere in `parent`.
CVisualElement* MakeContainer(CVisualElement* parent, std::mt19937& random) {
    mirel7::size<int> const wanted{Uniform(random, 1, 40), Uniform(random, 1, 40)};
    Alignment const alignment = RandomAlignment(random);
    CVisualElement* e = nullptr;
    switch (Uniform(random, 0, 8)) {
    case 0:
    case 1: {
        auto* const bevel = Uniform(random, 0, 1) ? new CBevel(parent, wanted, alignment)
                                                  : new CBorder(parent, wanted, alignment);
        bevel->SetShape(static_cast<CBevel::BorderShape>(Uniform(random, 0, 7)));
        bevel->SetStyle(static_cast<CBevel::BorderStyle>(Uniform(random, 0, 2)));
        bevel->SetOffset({Uniform(random, 0, 3), Uniform(random, 0, 3), Uniform(random, 0, 3), 0});
        e = bevel;
        break;
    }
    case 2:
        e = new CPane(parent, wanted, alignment);
        e->SetFocusable(Uniform(random, 0, 1) != 0);
        break;
    case 3:
        e = new CVertBox(parent, wanted, alignment);
        break;
    case 4:
        e = new CHorzBox(parent, wanted, alignment);
        break;
    case 5:
        e = new CFilledCentral(parent, wanted, alignment);
        break;
    case 6: {
        auto* const container = new CContainer(parent, wanted, alignment);
        container->SetNativeControl(new layout_test::CFakeNative);
        e = container;
        break;
    }
    default:
        e = new mirel_test::CFilledElement(parent, wanted, alignment);
        e->SetFocusable(Uniform(random, 0, 2) == 0);
        break;
    }
    e->SetBkColor(RandomColor(random));
    return e;
}

TEST(ContainersStorm, SurviveRandomInputAndTreeChanges) {
    EXPECT_TRUE(mirel_test::SurvivesStorm(MakeContainer, 16, mirel_test::StormActions(5000, 20000)));
}

void Build(CVisualElement* parent, std::mt19937& random, int depth) {
    for (int i = Uniform(random, 1, 4); i > 0; --i) {
        CVisualElement* const e = MakeContainer(parent, random);
        if (depth > 0) Build(e, random, depth - 1);
    }
}

void Collect(CVisualElement* e, std::vector<CVisualElement*>& out) {
    out.push_back(e);
    for (int i = 0; i < e->GetChildren()->GetCount(); ++i)
        Collect(e->GetChildren()->GetItem(i), out);
}

// One change of the kinds that each container repaints for partially.
void Change(CBaseControl& control, std::mt19937& random) {
    std::vector<CVisualElement*> all;
    Collect(control.GetContent(), all);
    CVisualElement* const e = all[static_cast<std::size_t>(Uniform(random, 2, int(all.size()) - 1))];
    int const kind = Uniform(random, 0, 5);
    if (kind == 0) {
        e->SetVisible(!e->IsVisible());
    } else if (kind == 1 && !dynamic_cast<CBoxBase*>(e)) {
        // A box takes the size of its children whenever it measures, whatever it was told before.
        e->SetSize({Uniform(random, 1, 40), Uniform(random, 1, 40)}, false);
    } else if (kind == 2) {
        e->SetBkColor(RandomColor(random));
    } else if (auto* const bevel = dynamic_cast<CBevel*>(e)) {
        bevel->SetShape(static_cast<CBevel::BorderShape>(Uniform(random, 0, 7)));
        bevel->SetContentOffset({Uniform(random, 0, 4), Uniform(random, 0, 4), 2, 2});
        if (auto* const border = dynamic_cast<CBorder*>(e)) border->SetTransparent(!border->IsTransparent());
    } else if (auto* const box = dynamic_cast<CVertBox*>(e)) {
        box->SetBottomPadSize(Uniform(random, 0, 9));
    } else if (auto* const box = dynamic_cast<CHorzBox*>(e)) {
        box->SetRightPadSize(Uniform(random, 0, 9));
    } else if (auto* const part = dynamic_cast<CCentralPart*>(e)) {
        part->Scroll(Uniform(random, -5, 5), Uniform(random, -5, 5), false);
    } else if (auto* const scrolled = dynamic_cast<CScrolled*>(e)) {
        scrolled->SetTransparent(!scrolled->IsTransparent());
    } else {
        e->Update(UpdateLocal);
    }
}

TEST(ContainersRepaint, IncrementalPaintsEqualAFullPaint) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        mirel_test::SRepaintScenario scenario;
        scenario.build = [seed](CBaseControl& control) {
            std::mt19937 random(seed * 7919u);
            // The root paints nothing of its own: an opaque ground stands behind the random tree.
            auto* const ground = new mirel_test::CFilledElement(control.GetContent(), {0, 0}, AlignClient);
            Build(ground, random, 2);
        };
        scenario.act = [](CBaseControl& control, mirel7::headless::CHeadlessWindow&, std::mt19937& random) {
            Change(control, random);
        };
        EXPECT_TRUE(mirel_test::IncrementalPaintEqualsFullPaint(scenario, seed));
    }
}

} // namespace
