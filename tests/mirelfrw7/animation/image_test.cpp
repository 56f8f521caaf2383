#include "mirelfrw7/animation/test_animation.h"
#include "support/control_fixture.h"
#include "support/storm.h"

#include <mirelfrw7/animation/image.h>
#include <mirelfrw7/core/control.h>

#include <mirel7/image_list.h>
#include <mirel7/window_painter.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using mirel7::mirel_ptr;
using mirel7::size;
using mirel_test::CTestAnimation;
using mirelfrw7::CImage;

struct Image : ::testing::Test {
    Image() {
        images->AddPicture(mirel7::NewRasterPicture(32, 16).get());
        fixture.control->GetImp()->SetImageList(images.get());
        image->SetPos({10, 20, 50, 50}, true);
        fixture.Paint();
        fixture.Recorder()->Clear();
    }
    // What the next paint draws.
    std::vector<std::string> Drawn() {
        fixture.Recorder()->Clear();
        fixture.Paint();
        return fixture.Recorder()->Lines({"FillRect", "DrawRasterPicture"});
    }
    bool FramesAfter(std::string const& mark) const {
        auto const at = std::find(journal.begin(), journal.end(), mark);
        return std::any_of(at, journal.end(), [](std::string const& l) { return l.find(" dies") == l.npos; });
    }

    // Before the fixture: the animations write to it while the tree dies.
    std::vector<std::string> journal;
    mirel_test::CControlFixture fixture;
    mirel_ptr<mirel7::CImageList> images = new mirel7::CImageList({16, 16});
    CImage* image = new CImage(fixture.Root(), {40, 30}, mirelfrw7::AlignNone);
    mirel_ptr<CTestAnimation> animation = new CTestAnimation({10}, "a", &journal, {8, 6});
};

TEST_F(Image, DrawStartPosByAlignment) {
    struct Case {
        int align;
        mirel7::rectangle<int> offset;
        size<int> picture;
        mirel7::point<int> start;
    } const cases[] = {
        {9, {3, 2, 5, 1}, {10, 7}, {3, 2}},    {18, {3, 2, 5, 1}, {10, 7}, {25, 22}},
        {36, {3, 2, 5, 1}, {10, 7}, {14, 12}}, {27, {3, 2, 5, 1}, {10, 7}, {3, 2}},
        {36, {}, {45, 31}, {-2, 0}},           {12, {}, {10, 10}, {15, 0}},
    };
    for (Case const& c : cases) {
        image->SetImageAlign(c.align);
        image->SetOffset(c.offset);
        EXPECT_EQ(image->GetDrawStartPos(c.picture), c.start) << c.align;
    }
}

// A picture and an index exclude each other, each drawn centred, greyed when disabled; an index has a size
// only with a control and an image list.
TEST_F(Image, SourcesSizesAndDrawing) {
    EXPECT_FALSE(image->IsAssigned());
    image->SetImageIndex(1);
    EXPECT_EQ(image->GetImageSize(), (size<int>{16, 16}));
    EXPECT_EQ(Drawn(), (std::vector<std::string>{"DrawRasterPicture 22,27,38,43 picture=16x16"}));
    image->SetEnabled(false);
    EXPECT_EQ(Drawn(), (std::vector<std::string>{"DrawRasterPicture 22,27,38,43 picture=16x16 disabled"}));
    image->SetRasterPicture(mirel7::NewRasterPicture(4, 2));
    EXPECT_EQ(image->GetImageSize(), (size<int>{4, 2}));
    EXPECT_EQ(Drawn(), (std::vector<std::string>{"DrawRasterPicture 28,34,32,36 picture=4x2 disabled"}));
    image->SetImageIndex(0);
    EXPECT_EQ(image->GetImageSize(), (size<int>{16, 16}));
    image->Clear();
    EXPECT_FALSE(image->IsAssigned());

    auto* const loose = new CImage(nullptr, {}, mirelfrw7::AlignNone);
    loose->SetAutoSize(true);
    loose->SetOffset({1, 2, 3, 4});
    loose->SetImageIndex(0);
    EXPECT_EQ(loose->GetImageSize(), (size<int>{0, 0}));
    loose->ReParent(fixture.Root(), true);
    EXPECT_EQ(loose->GetSize(), (size<int>{20, 22}));
}

// A frame on the timer repaints the image's rectangle and nothing else: its background, then the frame.
TEST_F(Image, TimerFrameRepaintsOnlyTheImage) {
    mirel_test::CUpdateCounter counter(image);
    image->SetAnimation(animation);
    image->StartAnimation();
    Drawn();
    fixture.system.Advance(10);
    EXPECT_EQ(counter.updates, 2);
    std::vector<std::string> drawn = Drawn();
    ASSERT_EQ(drawn.size(), 2u);
    EXPECT_EQ(drawn[0], "FillRect 10,20,50,50 brush=#f0f0f0");
    EXPECT_TRUE(drawn[1].starts_with("FillRect 26,32,33,37")) << drawn[1];
}

// A frame larger than the image is cut at the image's edges: a repaint of the image alone must be able to
// put right everything it drew.
TEST_F(Image, FrameLargerThanTheImageStaysInside) {
    struct CClipSpy : CTestAnimation {
        using CTestAnimation::CTestAnimation;
        void Draw(mirel7::IPainter* painter, int x, int y) override {
            clips.push_back(painter->GetClipRect());
            CTestAnimation::Draw(painter, x, y);
        }
        std::vector<mirel7::rectangle<double>> clips;
    };
    mirel_ptr<CClipSpy> const spy = new CClipSpy({10}, "s", nullptr, {8, 8});
    image->SetPos({10, 20, 11, 21}, true);
    image->SetAnimation(spy);
    image->StartAnimation();
    Drawn();
    ASSERT_FALSE(spy->clips.empty());
    for (mirel7::rectangle<double> const& clip : spy->clips)
        EXPECT_EQ(clip, (mirel7::rectangle<double>{10, 20, 12, 22}));
}

// Started before it has a control, the animation runs once it reaches one; out of sight it holds still.
TEST_F(Image, PendingStartAndHiddenImage) {
    auto* const loose = new CImage(nullptr, {}, mirelfrw7::AlignNone);
    loose->SetAnimation(animation);
    loose->StartAnimation();
    EXPECT_FALSE(loose->IsAnimated());
    loose->ReParent(fixture.Root(), true);
    EXPECT_TRUE(loose->IsAnimated());
    EXPECT_EQ(animation->frame, 1);
    loose->SetVisible(false);
    fixture.system.Advance(50);
    EXPECT_EQ(animation->frame, 1);
    loose->SetVisible(true);
    fixture.system.Advance(10);
    EXPECT_EQ(animation->frame, 2);
}

// A new animation replaces a running one, which is let go only after the process forgot it; an image that
// dies takes its frames with it.
TEST_F(Image, ReplacingAndDestroyingStopTheFrames) {
    image->SetAnimation(animation);
    image->StartAnimation();
    animation.reset();
    mirel_ptr<CTestAnimation> const next = new CTestAnimation({10}, "b", &journal);
    image->SetAnimation(next);
    ASSERT_NE(std::find(journal.begin(), journal.end(), "a dies"), journal.end());
    fixture.system.Advance(30);
    EXPECT_TRUE(image->IsAnimated());
    EXPECT_EQ(next->frame, 4);
    delete image;
    journal.push_back("image dies");
    fixture.system.Advance(30);
    EXPECT_FALSE(FramesAfter("image dies"));
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "a 2"), 0);
}

// Running images under random input and tree changes: deleted, hidden and reparented while their frames
// come on the virtual clock.
TEST(ImageStorm, RunningImagesSurviveRandomInputAndTreeChanges) {
    auto const make = [](mirelfrw7::CVisualElement* parent,
                         std::mt19937& random) -> mirelfrw7::CVisualElement* {
        int const side = std::uniform_int_distribution<int>(0, 40)(random);
        auto const alignment =
            static_cast<mirelfrw7::Alignment>(std::uniform_int_distribution<int>(0, 5)(random));
        auto* const image = new CImage(parent, {side, side}, alignment);
        image->SetAnimation(
            mirel_ptr<mirelfrw7::IAnimation>(new CTestAnimation({16, 40}, "a", nullptr, {8, 8})));
        image->StartAnimation();
        return image;
    };
    EXPECT_TRUE(mirel_test::SurvivesStorm(make, 7, mirel_test::StormActions(5000, 20000)));
}

} // namespace
