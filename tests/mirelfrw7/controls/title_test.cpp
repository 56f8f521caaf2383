#include <mirelfrw7/controls/element_caption.h>
#include <mirelfrw7/controls/titled_pane.h>

#include "support/control_fixture.h"
#include "support/pixel_image.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel_test::CControlFixture;
using mirel_test::CPixelImage;

// The question mark's outline is 31 black pixels, columns 4 to 11 and rows 3 to 12 of the picture.
TEST(HelpButton, TheQuestionMarkOutlineLiesWhereThePictureSaysInsideTheCentredPicture) {
    for (int scale : {1}) {
        mirel7::headless::CHeadlessSystem system;
        system.SetDPIScale(scale);
        mirel7::headless::CHeadlessWindow window(system, {100, 60});
        auto control = std::make_unique<CBaseControl>(&window);
        CHelpButton help(control->GetContent(), {0, 0}, AlignLeft);
        control->Rearrange();
        window.Paint();
        CPixelImage const image = CPixelImage::Of(*window.GetPainter());
        rectangle<int> const p = help.GetContentRect();
        uint32_t const black = mirel_test::Opaque(0, 0, 0);
        EXPECT_EQ(image.CountOf(black), 31 * scale * scale) << scale;
        rectangle<int> ink{1000, 1000, -1, -1};
        for (int y = 0; y < image.Height(); ++y)
            for (int x = 0; x < image.Width(); ++x)
                if (image.At(x, y) == black)
                    ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x),
                           std::max(ink.bottom, y)};
        EXPECT_EQ(ink, (rectangle<int>{p.left + 4 * scale, p.top + 3 * scale, p.left + 12 * scale - 1,
                                       p.top + 13 * scale - 1}))
            << scale;
        if (::testing::Test::HasFailure())
            image.Save(mirel_test::TestOutputDirectory() + "/help_button_" + std::to_string(scale) + ".png");
        help.ReParent(nullptr, false);
        control.reset();
    }
}

struct SClickJournal : tarnkit2::subscriber_base_t {
    void OnClick(CControlCaption*) { ++clicks; }
    int clicks = 0;
};

TEST(ControlCaption, ThePressOnTheArrowClicksOnceAndTheArrowFollowsTheEdge) {
    CControlFixture f;
    CControlCaption caption(f.Root(), {0, 20}, AlignTop);
    f.control->Rearrange();
    SClickJournal journal;
    caption.sigCaptionClick.connect(&journal, &SClickJournal::OnClick);
    rectangle<int> const arrow = caption.GetArrowButton().GetPosition();
    for (point<int> at : {point<int>{arrow.left + 5, arrow.top + 5}, point<int>{20, 5}}) {
        f.window->InjectMouseMove(at.x, at.y);
        f.window->InjectButtonDown(at.x, at.y);
        f.window->InjectButtonUp(at.x, at.y);
    }
    EXPECT_EQ(journal.clicks, 2);
    struct SCase {
        Alignment edge, button;
        CArrowButton::ArrowType arrow;
    };
    SCase const cases[] = {{AlignLeft, AlignTop, CArrowButton::ArrowRight},
                           {AlignRight, AlignTop, CArrowButton::ArrowLeft},
                           {AlignBottom, AlignRight, CArrowButton::ArrowBottom},
                           {AlignTop, AlignRight, CArrowButton::ArrowTop}};
    for (SCase const& test : cases) {
        caption.SetAlignment(test.edge);
        EXPECT_EQ(caption.GetArrowButton().GetAlignment(), test.button) << test.edge;
        EXPECT_EQ(caption.GetArrowButton().GetArrowType(), test.arrow) << test.edge;
        EXPECT_EQ(caption.GetCaption().GetAlignment(), test.edge) << test.edge;
    }
}

TEST(TitledPane, TheTitleLightsWhileTheFocusIsInsideAndAClickBringsItIn) {
    CControlFixture f;
    f.window->InjectFocusIn();
    CButton outside(f.Root(), {0, 20}, AlignTop);
    CTitledPane pane(f.Root(), {0, 0}, AlignClient);
    CButton inside(&pane, {0, 20}, AlignBottom);
    f.control->Rearrange();
    int const y = pane.GetPosition().top + pane.GetTitle().GetPosition().top + 5;
    f.window->InjectButtonDown(5, y);
    f.window->InjectButtonUp(5, y);
    EXPECT_TRUE(inside.IsFocused());
    EXPECT_TRUE(pane.GetTitle().IsActive());
    EXPECT_EQ(pane.GetTitle().GetCaption().GetBkSysColor(), ISysPalette::ColorHighlight);
    outside.SetFocus(true);
    EXPECT_FALSE(pane.GetTitle().IsActive());
}

} // namespace
