#include <mirelfrw7/scroll/scroll_container.h>

#include "support/control_fixture.h"
#include "support/pixel_image.h"
#include "support/repaint_property.h"
#include "support/test_elements.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel_test::CFilledElement;

// A content of 400 by 300 with a grid of coloured cells, focusable ones among them.
CFilledElement* Content(CVisualElement* parent) {
    auto* const content = new CFilledElement(parent, {400, 300}, AlignNone);
    for (int i = 0; i < 12; ++i) {
        auto* const cell = new CFilledElement(content, {30, 20}, AlignNone);
        int const x = (i % 4) * 100 + 10, y = (i / 4) * 100 + 10;
        cell->SetPos({x, y, x + 30, y + 20}, false);
        cell->SetBkColor(mirel7::_color(std::uint8_t(i * 20), 90, std::uint8_t(250 - i * 20)));
        cell->SetFocusable(true);
    }
    return content;
}

struct ScrollContainer : testing::Test {
    ScrollContainer() {
        box->SetScrolled(content);
        fixture.Paint();
    }
    mirel_test::CControlFixture fixture{{200, 100}};
    CScrollContainer* box = new CScrollContainer(fixture.Root(), {10, 10}, AlignClient);
    CFilledElement* content = Content(box);
};

TEST_F(ScrollContainer, TheContentsRectangleIsThePosition) {
    CScrollContainer::CCentralPart& part = box->GetPart();
    EXPECT_EQ(part.GetVertTo(), 301);
    EXPECT_TRUE(box->GetRightStrip().IsVisible());
    box->GetWrappedVertScroll()->SetStart(50);
    box->GetWrappedHorzScroll()->SetStart(1000);
    fixture.Paint();
    int const width = part.GetBounds().Width();
    EXPECT_EQ(content->GetPosition(), (rectangle<int>{width - 401, -50, width - 1, 250}));
    EXPECT_EQ(box->GetHorzBar()->GetPos(), 401 - width);
}

TEST_F(ScrollContainer, AFocusedChildIsScrolledIntoViewWhenItCanShowWhole) {
    auto* const cell = content->GetChildren()->GetItem(11);
    cell->SetFocus(false);
    rectangle<int> r = cell->GetBounds();
    cell->ElementToControl(&r);
    EXPECT_EQ(r.bottom, box->GetPart().GetBounds().bottom);
    // Twice the view's height: nothing moves.
    auto* const tall = new CFilledElement(content, {30, 300}, AlignNone);
    tall->SetPos({0, 0, 30, 300}, false);
    tall->SetFocusable(true);
    double const start = box->GetPart().GetVertStart();
    tall->SetFocus(false);
    EXPECT_EQ(box->GetPart().GetVertStart(), start);
}

TEST_F(ScrollContainer, NoContentResetsBothStartsAndHidesTheBars) {
    box->GetWrappedVertScroll()->SetStart(50);
    box->GetWrappedHorzScroll()->SetStart(60);
    box->SetScrolled(nullptr);
    fixture.Paint();
    EXPECT_EQ(content->GetParent(), nullptr);
    EXPECT_EQ(box->GetPart().GetVertTo(), 0);
    EXPECT_FALSE(box->GetRightStrip().IsVisible());
    EXPECT_FALSE(box->GetBottomStrip().IsVisible());
    // Set again, the content starts from the top left.
    box->SetScrolled(content);
    EXPECT_EQ(content->GetPosition().top, 0);
    EXPECT_EQ(content->GetPosition().left, 0);
}

// The part paints what changed inside it, within its own clip, and nothing of itself.
TEST_F(ScrollContainer, AChangeInsideRepaintsOnlyWhatChangedWithinThePart) {
    fixture.Recorder()->Clear();
    content->GetChildren()->GetItem(0)->Update(UpdateLocal);
    fixture.Paint();
    EXPECT_EQ(fixture.Recorder()->Lines({"SetClipRect", "FillRect"}),
              (std::vector<std::string>{"SetClipRect 0,0,183,83", "FillRect 10,10,40,30 brush=#005afa"}));
}

TEST(ScrollContainerPaint, TheContentNeverSpillsOverTheBoxsNeighbours) {
    mirel_test::CControlFixture fixture({200, 100}, false);
    auto* const above = new CFilledElement(fixture.Root(), {10, 30}, AlignTop);
    above->SetBkColor(mirel7::_color(0, 200, 0));
    auto* const box = new CScrollContainer(fixture.Root(), {10, 10}, AlignClient);
    CFilledElement* const content = Content(box);
    content->SetBkColor(mirel7::_color(200, 0, 0));
    box->SetScrolled(content);
    fixture.Paint();
    // Scrolled down, the content lies partly above the box, where the neighbour is.
    box->GetWrappedVertScroll()->SetStart(100);
    content->Update(UpdateLocal);
    fixture.Paint();
    EXPECT_EQ(mirel_test::CPixelImage::Of(*fixture.window->GetPainter()).At(50, 10),
              mirel_test::CPixelImage::Of(*fixture.window->GetPainter()).At(50, 0));
    EXPECT_NE(mirel_test::CPixelImage::Of(*fixture.window->GetPainter()).At(50, 10),
              mirel_test::CPixelImage::Of(*fixture.window->GetPainter()).At(50, 60));
}

TEST(ScrollContainerRepaint, IncrementalPaintsEqualAFullPaintOverScrollsAndResizes) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        mirel_test::SRepaintScenario scenario;
        scenario.build = [](CBaseControl& control) {
            auto* const box = new CScrollContainer(control.GetContent(), {10, 10}, AlignClient);
            box->SetScrolled(Content(box));
            auto* const panel = new CFilledElement(control.GetContent(), {0, 0}, AlignNone);
            panel->SetPos({20, 20, 90, 50}, false);
            panel->SetBkColor(mirel7::_color(0, 250, 0));
            panel->SetVisible(false);
        };
        scenario.act = [](CBaseControl& control, mirel7::headless::CHeadlessWindow& window,
                          std::mt19937& random) {
            auto* const box =
                dynamic_cast<CScrollContainer*>(control.GetContent()->GetChildren()->GetItem(0));
            // The models' state depends on the sizes the box had when they moved: both runs lay out alike.
            if (box->GetBounds().Width() < 20) window.InjectResize(160, 120);
            switch (mirel_test::Uniform(random, 0, 4)) {
            case 0:
                box->GetWrappedVertScroll()->SetStart(mirel_test::Uniform(random, 0, 400));
                break;
            case 1:
                box->GetWrappedHorzScroll()->SetStart(mirel_test::Uniform(random, 0, 300));
                break;
            case 2:
                window.InjectResize(mirel_test::Uniform(random, 60, 300),
                                    mirel_test::Uniform(random, 40, 500));
                break;
            // A change inside while a panel over the box comes or goes: the part must then paint whole.
            case 3: {
                box->GetScrolled()
                    ->GetChildren()
                    ->GetItem(mirel_test::Uniform(random, 0, 11))
                    ->Update(UpdateLocal);
                CVisualElement* const panel = control.GetContent()->GetChildren()->GetItem(1);
                panel->SetVisible(!panel->IsVisible());
                break;
            }
            // Away from the bars: a native bar takes the wheel only once a paint has shown it.
            default:
                window.InjectWheel(5, 5, mirel_test::Uniform(random, -3, 3));
                break;
            }
            control.GetImp()->RearrangeInt();
        };
        EXPECT_TRUE(mirel_test::IncrementalPaintEqualsFullPaint(scenario, seed));
    }
}

} // namespace
