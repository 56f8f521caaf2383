// The element tree on a real window: gestures made with xdotool reach the elements as the control routes
// them.
#include <mirelfrw7/core/base_control.h>

#include "e2e/sdl_test.h"
#include "support/probe_element.h"

#include <gtest/gtest.h>

namespace {

using namespace mirelfrw7;
using mirel_test::CProbe;
using mirel_test::Journal;

// Three focusable probes side by side on the left of a 300 x 120 window: A, B and C, 60 pixels wide each.
class ControlOnX : public mirel_test::CSdlTest {
protected:
    void SetUp() override {
        OpenWindow({300, 120}, [&](mirel7::sdl::CSdlWindow* w) {
            control = std::make_unique<CBaseControl>(w);
            for (char const* name : {"A", "B", "C"}) {
                auto* probe = new CProbe(control->GetContent(), journal, name, AlignLeft, {59, 0});
                probe->SetFocusable(true);
                probes.push_back(probe);
            }
        });
        detach = [&] { control.reset(); };
    }

    std::unique_ptr<CBaseControl> control;
    std::vector<CProbe*> probes;
    Journal journal;
};

TEST_F(ControlOnX, ADragReleasedOutsideTheWindowEndsWithoutADropAndLetsTheMouseGo) {
    probes[1]->startDrag = true;
    probes[1]->filter = {"HandleStartDragging", "HandleDragFinished", "HandleDropDone"};
    probes[0]->filter = probes[2]->filter = {"HandleDropDone"};
    journal.clear(); // the window's focus went to A on opening
    Xdotool("mousemove " + At(90, 50) + " mousedown 1");
    Xdotool("mousemove " + At(95, 50));
    ASSERT_NE(control->GetImp()->GetDraggedElement(), nullptr) << "five pixels are past the threshold";
    EXPECT_TRUE(window->HasCapture());
    Xdotool("mousemove " + At(250, 50));
    Xdotool("mousemove " + At(400, 200) + " mouseup 1");
    EXPECT_EQ(journal, (Journal{"B:HandleStartDragging 30,50", "B:HandleDragFinished on null"}));
    EXPECT_EQ(control->GetImp()->GetDraggedElement(), nullptr);
    EXPECT_FALSE(window->HasCapture());
}

TEST_F(ControlOnX, TabAndShiftTabMoveTheFocus) {
    Xdotool("mousemove " + At(30, 50) + " click 1");
    EXPECT_EQ(control->GetFocusedElement(), probes[0]);
    Xdotool("key Tab");
    EXPECT_EQ(control->GetFocusedElement(), probes[1]);
    Xdotool("key Tab");
    EXPECT_EQ(control->GetFocusedElement(), probes[2]);
    Xdotool("key shift+Tab");
    EXPECT_EQ(control->GetFocusedElement(), probes[1]);
}

TEST_F(ControlOnX, CtrlCPutsTheFocusedElementsTextOnTheClipboard) {
    control->SetCopyToClipboard(true);
    probes[2]->text = "from the tree";
    probes[2]->copyEnabled = true;
    Xdotool("mousemove " + At(150, 50) + " click 1");
    ASSERT_EQ(control->GetFocusedElement(), probes[2]);
    Xdotool("key ctrl+c");
    EXPECT_EQ(mirel_test::SdlSystem().GetClipboard()->GetText(), "from the tree");
}

} // namespace
