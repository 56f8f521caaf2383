#include <mirelfrw7/controls/check_box.h>
#include <mirelfrw7/controls/element_caption.h>
#include <mirelfrw7/controls/titled_pane.h>

#include "support/repaint_property.h"

#include <gtest/gtest.h>

namespace {

using namespace mirelfrw7;

// Every control in one window; random pointer gestures, keys and property changes, each followed by the
// partial repaint it asked for.
TEST(ControlsRepaint, PartialRepaintsEqualAFullOneUnderInputAndChanges) {
    mirel_test::SRepaintScenario scenario;
    scenario.clientSize = {240, 200};
    scenario.build = [](CBaseControl& control) {
        CVisualElement* root = control.GetContent();
        auto* caption = new CCaption(root, {0, 0}, AlignTop);
        caption->UseHTML(true);
        caption->SetCaption("a <a href=\"x:1\">link</a>");
        caption->SetAutoSize(true);
        for (bool native : {true, false}) {
            auto* button = new CButton(root, {0, 24}, AlignTop);
            button->SetCaption("press");
            button->SetNativeDrawing(native);
            button->SetStyle(mirel7::BorderFlat);
        }
        new CHelpButton(root, {0, 0}, AlignTop);
        (new CCheckBox(root, {0, 20}, AlignTop))->SetCaption("check");
        new CArrowButton(root, {0, 20}, AlignTop);
        (new CControlCaption(root, {0, 20}, AlignTop))->GetCaption().SetCaption("title");
        auto* pane = new CTitledPane(root, {0, 0}, AlignClient);
        new CButton(pane, {0, 20}, AlignTop);
        control.Rearrange();
    };
    scenario.act = [](CBaseControl& control, mirel7::headless::CHeadlessWindow& window,
                      std::mt19937& random) {
        IChildren* children = control.GetContent()->GetChildren();
        auto* element = children->GetItem(mirel_test::Uniform(random, 0, children->GetCount() - 1));
        int const x = mirel_test::Uniform(random, 0, 239), y = mirel_test::Uniform(random, 0, 199);
        switch (mirel_test::Uniform(random, 0, 4)) {
        case 0:
            window.InjectMouseMove(x, y);
            break;
        case 1:
            window.InjectButtonDown(x, y);
            break;
        case 2:
            window.InjectButtonUp(x, y);
            break;
        case 3:
            window.InjectKeyDown(32), window.InjectKeyUp(32);
            break;
        default:
            element->SetEnabled(!element->IsEnabled());
        }
    };
    for (unsigned seed : {1u, 2u, 3u})
        EXPECT_TRUE(mirel_test::IncrementalPaintEqualsFullPaint(scenario, seed));
}

} // namespace
