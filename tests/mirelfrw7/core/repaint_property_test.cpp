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

using mirel_test::RandomColor;
using mirel_test::Uniform;

// A random tree of docked, filled elements under one client element that covers the window.
//
// Siblings never overlap and strips never overflow their parent: the framework repaints an element without
// its siblings, and a rearrangement normalises the inverted rectangle of an overflowing strip into a thin
// visible one that a full layout leaves inverted, so neither is the property's case. A parent open in both
// directions takes strips on every edge and one client; a strip takes strips across itself only; sizes stay
// small enough for every level to fit in the smallest window.
enum class Room { Both, AcrossHorizontal, AcrossVertical };

int SizeLimit(int depth) {
    return depth >= 3 ? 10 : depth == 2 ? 6 : 4;
}

// Knows how large it may grow without overflowing its parent.
struct CRandomElement : CFilledElement {
    CRandomElement(CVisualElement* parent, Alignment alignment, int limit, std::mt19937& random)
        : CFilledElement(parent, {Uniform(random, 1, limit), Uniform(random, 1, limit)}, alignment),
          limit(limit) {}
    int limit;
};

Alignment RandomEdge(std::mt19937& random, Room room) {
    switch (room) {
    case Room::AcrossHorizontal:
        return Uniform(random, 0, 1) ? AlignLeft : AlignRight;
    case Room::AcrossVertical:
        return Uniform(random, 0, 1) ? AlignTop : AlignBottom;
    default:
        return static_cast<Alignment>(Uniform(random, AlignLeft, AlignBottom));
    }
}

void BuildTree(CVisualElement* parent, std::mt19937& random, int depth, Room room) {
    int const children = depth == 0 ? 0 : Uniform(random, 1, 4);
    int const limit = SizeLimit(depth);
    for (int i = 0; i < children; ++i) {
        // Clients inside clients make the partial paints that cover several parents at once.
        bool const client = room == Room::Both && i == children - 1 && Uniform(random, 0, 3) != 0;
        Alignment const alignment = client ? AlignClient : RandomEdge(random, room);
        auto* child = new CRandomElement(parent, alignment, limit, random);
        child->SetBkColor(RandomColor(random));
        Room const inner = client                                              ? Room::Both
                           : alignment == AlignTop || alignment == AlignBottom ? Room::AcrossHorizontal
                                                                               : Room::AcrossVertical;
        // A strip inside a strip would be cut along its own length: it stays a leaf.
        BuildTree(child, random, room == Room::Both ? depth - 1 : 0, inner);
    }
}

// The elements of the tree below the root, depth first, in child order: the same list on equal trees.
void Collect(CVisualElement* e, std::vector<CVisualElement*>& out) {
    for (int i = 0; i < e->GetChildren()->GetCount(); ++i) {
        out.push_back(e->GetChildren()->GetItem(i));
        Collect(e->GetChildren()->GetItem(i), out);
    }
}

void Change(CBaseControl& control, mirel7::headless::CHeadlessWindow& window, std::mt19937& random) {
    std::vector<CVisualElement*> elements;
    Collect(control.GetContent(), elements);
    CVisualElement* const e =
        elements[static_cast<std::size_t>(Uniform(random, 0, int(elements.size()) - 1))];
    // Mostly changes of the layout; a resize of the window repaints everything, so it comes rarely.
    int const kind = Uniform(random, 0, 13);
    if (kind == 0) {
        e->SetBkColor(RandomColor(random));
    } else if (kind == 1) {
        e->Update(UpdateLocal);
    } else if (kind <= 4) {
        if (e->GetParent() != control.GetContent()) e->SetVisible(!e->IsVisible());
    } else if (kind <= 7) {
        // Only a leaf among edge strips of an open parent may turn to another edge without overflowing.
        if (e->GetAlignment() != AlignClient && !e->IsChildrenAvailable(0) &&
            e->GetParent() != control.GetContent() && e->GetParent()->GetAlignment() == AlignClient)
            e->SetAlignment(RandomEdge(random, Room::Both));
    } else if (kind <= 12) {
        if (auto* sized = dynamic_cast<CRandomElement*>(e))
            e->SetSize({Uniform(random, 1, sized->limit), Uniform(random, 1, sized->limit)}, false);
    } else {
        window.InjectResize(Uniform(random, 160, 220), Uniform(random, 120, 170));
    }
}

mirel_test::SRepaintScenario DockedTrees(unsigned seed) {
    mirel_test::SRepaintScenario scenario;
    scenario.build = [seed](CBaseControl& control) {
        std::mt19937 random(seed);
        auto* base = new CFilledElement(control.GetContent(), {0, 0}, AlignClient);
        base->SetBkColor(RandomColor(random));
        BuildTree(base, random, 3, Room::Both);
    };
    // Each step makes one to three changes, mostly to the layout, before the next paint: partial paints then
    // cover elements of several parents at once.
    scenario.act = [](CBaseControl& control, mirel7::headless::CHeadlessWindow& window,
                      std::mt19937& random) {
        for (int change = Uniform(random, 1, 3); change > 0; --change)
            Change(control, window, random);
    };
    return scenario;
}

TEST(RepaintProperty, IncrementalPaintsOfDockedTreesEqualAFullPaint) {
    for (unsigned seed = 1; seed <= 200; ++seed)
        EXPECT_TRUE(mirel_test::IncrementalPaintEqualsFullPaint(DockedTrees(seed), seed));
}

// Places that no docking pass of a parent repaints: a row taken by a strip too thin to draw, a place beyond
// the parent left by a loose child while the parent repaints itself, and a docked element that stood
// beyond its parent when it leaves, hides or is docked again.
CFilledElement* Add(CVisualElement* parent, Alignment alignment, int size, std::uint8_t shade) {
    auto* e = new CFilledElement(parent, {size, size}, alignment);
    e->SetBkColor(mirel7::_color(shade, std::uint8_t(255 - shade), std::uint8_t(shade / 2)));
    return e;
}

CVisualElement* At(CBaseControl& control, std::vector<int> const& path) {
    CVisualElement* e = control.GetContent();
    for (int i : path)
        e = e->GetChildren()->GetItem(i);
    return e;
}

// A client, a narrow undocked element in it and a strip docked in that one but placed wider than it.
void BuildWideStrip(CBaseControl& control) {
    CVisualElement* const narrow = Add(Add(control.GetContent(), AlignClient, 0, 40), AlignNone, 0, 80);
    narrow->SetPos({10, 10, 12, 40}, false);
    CVisualElement* const strip = Add(narrow, AlignTop, 10, 120);
    control.Rearrange();
    strip->SetPos({0, 0, 40, 10}, false);
}

TEST(RepaintProperty, PlacesNoDockingPassCoversAreRepainted) {
    using Act = std::function<void(CBaseControl&)>;
    Act const thin = [](CBaseControl& control) {
        CVisualElement* const parent = Add(control.GetContent(), AlignClient, 0, 40);
        Add(parent, AlignBottom, 5, 80);
        Add(parent, AlignClient, 0, 120);
    };
    Act const loose = [](CBaseControl& control) {
        CVisualElement* const strips = Add(Add(control.GetContent(), AlignClient, 0, 40), AlignTop, 30, 80);
        Add(strips, AlignTop, 5, 120);
        Add(Add(strips, AlignTop, 10, 160), AlignNone, 0, 200)->SetPos({0, 15, 20, 50}, false);
    };
    struct SCase {
        Act build;
        Act act;
    } const cases[] = {
        {thin,
         [](CBaseControl& c) {
             At(c, {0, 0})->SetSize({0, 0}, false);
         }},
        {loose,
         [](CBaseControl& c) {
             At(c, {0, 0, 0})->SetSize({2, 2}, false);
         }},
        {BuildWideStrip,
         [](CBaseControl& c) {
             delete At(c, {0, 0, 0});
         }},
        {BuildWideStrip,
         [](CBaseControl& c) {
             At(c, {0, 0, 0})->SetVisible(false);
         }},
        {BuildWideStrip,
         [](CBaseControl& c) {
             At(c, {0, 0})->SetPos(At(c, {0, 0})->GetPosition(), true);
         }},
    };
    unsigned row = 0;
    for (SCase const& c : cases) {
        mirel_test::SRepaintScenario scenario;
        scenario.clientSize = {60, 60};
        scenario.build = c.build;
        scenario.act = [&](CBaseControl& control, mirel7::headless::CHeadlessWindow&, std::mt19937&) {
            c.act(control);
        };
        scenario.steps = 1;
        EXPECT_TRUE(mirel_test::IncrementalPaintEqualsFullPaint(scenario, row++));
    }
}

// A drag item leaves the painter mapped to its element; the copy of the window under it goes back at the
// window's origin all the same when the drag ends.
TEST(RepaintProperty, TheCopyUnderADragItemGoesBackAtTheWindowsOrigin) {
    int step = 0;
    mirel_test::SRepaintScenario scenario;
    scenario.clientSize = {60, 60};
    scenario.build = [&](CBaseControl& control) {
        step = 0;
        Add(control.GetContent(), AlignTop, 10, 40);
        Add(control.GetContent(), AlignClient, 0, 80);
        Add(control.GetContent(), AlignNone, 0, 120)->SetPos({5, 5, 15, 15}, false);
    };
    scenario.act = [&](CBaseControl& control, mirel7::headless::CHeadlessWindow& window, std::mt19937&) {
        CVisualElement* const dragged = At(control, {2});
        if (step++ == 0) {
            DragInfo local;
            local.globalUpdate = false;
            control.GetImp()->StartDragging(dragged, local);
            dragged->Update(UpdateLocal);
        } else {
            window.InjectButtonUp(10, 10);
        }
    };
    scenario.steps = 2;
    EXPECT_TRUE(mirel_test::IncrementalPaintEqualsFullPaint(scenario, 0));
}

} // namespace
