#include <mirelfrw7/core/base_control.h>

#include "support/repaint_property.h"
#include "support/test_elements.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel_test::CFilledElement;

int Uniform(std::mt19937& random, int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }

_color RandomColor(std::mt19937& random) {
    auto const byte = [&] { return static_cast<std::uint8_t>(Uniform(random, 0, 255)); };
    return _color(byte(), byte(), byte());
}

Alignment RandomEdge(std::mt19937& random) { return static_cast<Alignment>(Uniform(random, AlignLeft, AlignBottom)); }

// A random tree of docked, filled elements under one client element that covers the window. Siblings never
// overlap: the framework repaints an element without its siblings, so overlapping ones (a second client
// keeps its old place) are not its case.
void BuildTree(CVisualElement* parent, std::mt19937& random, int depth) {
    int const children = depth == 0 ? 0 : Uniform(random, 0, 4);
    for (int i = 0; i < children; ++i) {
        bool const lastAsClient = i == children - 1 && Uniform(random, 0, 1) == 1;
        Alignment const alignment = lastAsClient ? AlignClient : RandomEdge(random);
        auto* child = new CFilledElement(parent, {Uniform(random, 0, 40), Uniform(random, 0, 30)}, alignment);
        child->SetBkColor(RandomColor(random));
        BuildTree(child, random, depth - 1);
    }
}

// The elements of the tree below the root, depth first, in child order: the same list on equal trees.
void Collect(CVisualElement* e, std::vector<CVisualElement*>& out) {
    for (int i = 0; i < e->GetChildren()->GetCount(); ++i) {
        out.push_back(e->GetChildren()->GetItem(i));
        Collect(e->GetChildren()->GetItem(i), out);
    }
}

mirel_test::SRepaintScenario DockedTrees(unsigned seed) {
    mirel_test::SRepaintScenario scenario;
    scenario.build = [seed](CBaseControl& control) {
        std::mt19937 random(seed);
        auto* base = new CFilledElement(control.GetContent(), {0, 0}, AlignClient);
        base->SetBkColor(RandomColor(random));
        BuildTree(base, random, 3);
    };
    scenario.act = [](CBaseControl& control, mirel7::headless::CHeadlessWindow& window, std::mt19937& random) {
        std::vector<CVisualElement*> elements;
        Collect(control.GetContent(), elements);
        CVisualElement* const e = elements[static_cast<std::size_t>(Uniform(random, 0, int(elements.size()) - 1))];
        switch (Uniform(random, 0, 5)) {
        case 0:
            e->SetBkColor(RandomColor(random));
            break;
        case 1:
            e->SetSize({Uniform(random, 0, 50), Uniform(random, 0, 40)}, false);
            break;
        case 2:
            if (e->GetParent() != control.GetContent())
                e->SetVisible(!e->IsVisible());
            break;
        case 3:
            if (e->GetParent() != control.GetContent())
                e->SetAlignment(RandomEdge(random));
            break;
        case 4:
            window.InjectResize(Uniform(random, 60, 200), Uniform(random, 40, 150));
            break;
        default:
            e->Update(UpdateLocal);
            break;
        }
    };
    return scenario;
}

TEST(RepaintProperty, IncrementalPaintsOfDockedTreesEqualAFullPaint) {
    for (unsigned seed = 1; seed <= 25; ++seed)
        EXPECT_TRUE(mirel_test::IncrementalPaintEqualsFullPaint(DockedTrees(seed), seed));
}

} // namespace
