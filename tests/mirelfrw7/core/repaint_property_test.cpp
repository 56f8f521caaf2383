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
