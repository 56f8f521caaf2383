#include <mirelfrw7/core/label.h>
#include <mirelfrw7/layout/layout_flavor.h>
#include <mirelfrw7/layout/layout_manager.h>

#include "support/pixel_image.h"

#include <mirel7/image_list.h>
#include <mirel7/recording_painter.h>
#include <mirel7/window_painter.h>

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel7::CImageList;
using mirel7::CRecordingPainter;
using Lines = std::vector<std::string>;
using R = rectangle<int>;

constexpr _color ImageColour{0, 255, 0};

// A list of two images of `s`, filled with the image colour.
mirel_ptr<CImageList> SolidImages(size<int> s) {
    mirel_ptr<CImageList> list(new CImageList(s));
    mirel_ptr<IRasterPicture> const picture = mirel7::NewRasterPicture(2 * s.cx, s.cy);
    picture->GetPainter()->SetBrush({ImageColour});
    picture->GetPainter()->FillRect(0, 0, 2 * s.cx - 1, s.cy - 1);
    list->AddPicture(picture.get());
    return list;
}

// An edge with text conversion on or off.
struct CEdge : CLayoutFlavor {
    CEdge(Alignment alignment, bool convert) {
        ChangeLayout(alignment);
        SetTextConversion(convert);
    }
};

// The recording painter's fixed metrics: a character is 8 pixels wide, a line 16 high.
class Label : public testing::Test {
protected:
    R Draw(R const& rect, std::string const& text, int flags, mirel7::IImageList* list, int index,
           ILayout* layout = nullptr, char const* delimiters = DefaultDelimiters) {
        return DrawLabel(&painter, rect, text, flags, 4, list, index, layout, delimiters, nullptr);
    }
    int Hit(point<double> at, R const& rect, std::string const& text, int flags, mirel7::IImageList* list,
            int index, ILayout* layout = nullptr) {
        return LabelHitTest(at, &painter, rect, text, flags, 4, list, index, layout, DefaultDelimiters,
                            nullptr);
    }
    Lines Drawn() const { return painter.Lines({"DrawStringEx", "DrawRasterPicture"}); }

    CRecordingPainter painter{{400, 400}};
    mirel_ptr<CImageList> images = SolidImages({16, 16});
};

TEST_F(Label, CentredImageStandsBeforeTheCentredText) {
    // The text gets (20, 0, 199, 29): 40 by 16, centred at (89.5, 6.5). The image goes 4 before it, at
    // 0.5 + (179 - 40) / 2 + 20 - 4 - 16 = 69.5, and across at (29 - 16) / 2 + 0.5 = 7.
    EXPECT_EQ(Draw({0, 0, 199, 29}, "Hello", 36, images.get(), 1), (R{69, 6, 129, 22}));
    EXPECT_EQ(
        Drawn(),
        (Lines{
            R"(DrawStringEx "Hello" 20,0,199,29 flags=0x124 delimiters=" .\n" color=#000000 at=90,7,130,23)",
            "DrawRasterPicture 69,7,85,23 picture=16x16"}));
}

TEST_F(Label, RightAlignedImageStandsBeforeTheTextByTheSpace) {
    // 199 - 16 - 40 - 4 = 139.
    EXPECT_EQ(Draw({0, 0, 199, 29}, "Hello", 34, images.get(), 0), (R{139, 6, 199, 22}));
    EXPECT_EQ(
        Drawn(),
        (Lines{
            R"(DrawStringEx "Hello" 20,0,199,29 flags=0x122 delimiters=" .\n" color=#000000 at=159,7,199,23)",
            "DrawRasterPicture 139,7,155,23 picture=16x16"}));
}

TEST_F(Label, RightAlignedImageIsHeldAtTheLabelsStartWhenTheTextFillsIt) {
    // The text is 96 wide in the 39 left after the image: 59 - 16 - 96 - 4 is far before the label.
    EXPECT_EQ(Draw({0, 0, 59, 19}, "Hello World!", 34, images.get(), 0, nullptr, nullptr), (R{0, 1, 59, 17}));
    EXPECT_EQ(painter.Lines({"DrawRasterPicture"}), (Lines{"DrawRasterPicture 0,2,16,18 picture=16x16"}));
}

TEST_F(Label, ImageFollowsTheFirstOfSeveralLines) {
    mirel_ptr<CImageList> const flat = SolidImages({16, 8});
    ILayout* const bottom = CLayoutManager::GetLayout(AlignBottom);
    struct SCase {
        int flags;
        int imageTop;
        R result;
    };
    // The image is 8 high on lines 16 high: 4 below the first line's top. Without a vertical alignment it is
    // centred on the label, (79 - 8) / 2 + 0.5.
    for (SCase const c : {SCase{9, 4, {0, 0, 44, 32}}, SCase{33, 23 + 4, {0, 23, 44, 55}},
                          SCase{17, 47 + 4, {0, 47, 44, 79}}, SCase{1, 36, {0, 0, 44, 32}}}) {
        SCOPED_TRACE(c.flags);
        painter.Clear();
        EXPECT_EQ(Draw({0, 0, 199, 79}, "One\nTwo", c.flags, flat.get(), 0, bottom), c.result);
        EXPECT_EQ(painter.Lines({"DrawRasterPicture"}),
                  (Lines{"DrawRasterPicture 0," + std::to_string(c.imageTop) + ",16," +
                         std::to_string(c.imageTop + 8) + " picture=16x8"}));
    }
}

// The same label on a vertical edge, where along runs down the screen.
struct SEdgeCase {
    std::string name;
    Alignment edge;
    bool convert;
    int flags;
    std::string text;
    std::string picture;
    R result;
};

void PrintTo(SEdgeCase const& c, std::ostream* os) {
    *os << c.name;
}

class LabelOnVerticalEdges : public Label, public testing::WithParamInterface<SEdgeCase> {};

TEST_P(LabelOnVerticalEdges, PlacesTextAndImageAlongTheEdge) {
    SEdgeCase const& c = GetParam();
    CEdge edge(c.edge, c.convert);
    EXPECT_EQ(Draw({0, 0, 29, 199}, "Hello", c.flags, images.get(), 0, &edge), c.result);
    EXPECT_EQ(Drawn(), (Lines{c.text, c.picture}));
}

// The text gets (0, 20, 29, 199). Turned, it is 16 wide and 40 high, and one line high across; unturned it
// is 40 wide, wider than the edge, which makes the image follow its first line across.
INSTANTIATE_TEST_SUITE_P(
    Edges, LabelOnVerticalEdges,
    testing::Values(
        SEdgeCase{
            "LeftTurnedCentred", AlignLeft, true, 36,
            R"(DrawStringEx "Hello" 0,20,29,199 flags=0x124 delimiters=" .\n" color=#000000 at=7,90,23,130)",
            "DrawRasterPicture 7,69,23,85 picture=16x16", R{7, 89, 22, 129}},
        // Right and top (10) read as bottom and right on the left edge (18), bottom and left on the right
        // one.
        SEdgeCase{
            "LeftTurned", AlignLeft, true, 10,
            R"(DrawStringEx "Hello" 0,20,29,199 flags=0x112 delimiters=" .\n" color=#000000 at=13,159,29,199)",
            "DrawRasterPicture 7,139,23,155 picture=16x16", R{7, 159, 29, 199}},
        SEdgeCase{
            "RightTurned", AlignRight, true, 10,
            R"(DrawStringEx "Hello" 0,20,29,199 flags=0x111 delimiters=" .\n" color=#000000 at=0,159,16,199)",
            "DrawRasterPicture 7,139,23,155 picture=16x16", R{7, 159, 16, 199}},
        SEdgeCase{
            "LeftUnturned", AlignLeft, false, 10,
            R"(DrawStringEx "Hello" 0,20,29,199 flags=0x10a delimiters=" .\n" color=#000000 at=-11,20,29,36 overflows)",
            "DrawRasterPicture 0,163,16,179 picture=16x16", R{0, 20, 29, 36}},
        SEdgeCase{
            "RightUnturned", AlignRight, false, 10,
            R"(DrawStringEx "Hello" 0,20,29,199 flags=0x10a delimiters=" .\n" color=#000000 at=-11,20,29,36 overflows)",
            "DrawRasterPicture 0,163,16,179 picture=16x16", R{0, 20, 29, 36}}),
    [](testing::TestParamInfo<SEdgeCase> const& info) { return info.param.name; });

TEST_F(Label, EmptyTextWithoutImageTakesNothing) {
    painter.SetFont({"Serif", 2, 10, 1, 0, 1.5});
    mirel7::font const before = painter.GetFont();
    painter.Clear();
    EXPECT_TRUE(Draw({0, 0, 199, 29}, "", 36, images.get(), -1).IsAllZero());
    EXPECT_EQ(painter.GetFont(), before);
    EXPECT_TRUE(Drawn().empty());
}

TEST_F(Label, InvertedRectangleLeavesOnePixelForTheImage) {
    mirel_ptr<CImageList> const dot = SolidImages({1, 1});
    EXPECT_EQ(Draw({50, 0, 40, 29}, "", 4, dot.get(), 0), (R{50, 14, 51, 15}));
    EXPECT_TRUE(Draw({50, 0, 40, 29}, "", 4, images.get(), 0).IsAllZero());
    EXPECT_EQ(Drawn(), (Lines{"DrawRasterPicture 50,14,51,15 picture=1x1"}));
}

TEST_F(Label, ImageWiderThanTheLabelIsLeftOutWholeAndTheTextStays) {
    mirel_ptr<CImageList> const wide = SolidImages({120, 16});
    // The text's room starts after the image and its space, at 124, and its box with it.
    EXPECT_EQ(Draw({0, 0, 99, 19}, "A long text", 33, wide.get(), 0, nullptr, nullptr), (R{99, 1, 187, 17}));
    EXPECT_EQ(painter.Lines({"DrawRasterPicture"}), Lines{});
    EXPECT_EQ(painter.Lines({"DrawStringEx"}).size(), 1u);
}

TEST_F(Label, MeasuringDrawsNothingOnAnyEdgeAndAnswersTheSame) {
    CEdge left(AlignLeft, true);
    EXPECT_EQ(Draw({0, 0, 29, 199}, "Hello", 36 | LabelMeasureOnly, images.get(), 0, &left),
              (R{7, 89, 22, 129}));
    // The left edge keeps only alignment bits: the measuring bit is put back after them.
    EXPECT_EQ(Drawn(),
              (Lines{R"(DrawStringEx "Hello" 0,20,29,199 flags=0x1124 delimiters=" .\n" at=7,90,23,130)"}));
}

TEST_F(Label, DisabledImagesAreGreyed) {
    Draw({0, 0, 199, 29}, "Hello", 36 | LabelDisabledImage, images.get(), 0);
    EXPECT_EQ(painter.Lines({"DrawRasterPicture"}),
              (Lines{"DrawRasterPicture 69,7,85,23 picture=16x16 disabled"}));
    EXPECT_FALSE(painter.IsDisabled());
}

TEST_F(Label, ThePaintersFontComesBackOnEveryWayOut) {
    painter.SetFont({"Serif", 2, 10, 1, 0, 1.5});
    std::string const original = painter.Lines().back();
    mirel7::font const before = painter.GetFont();
    CEdge left(AlignLeft, true);
    mirel_ptr<CImageList> const huge = SolidImages({64, 64});
    std::vector<std::pair<std::string, std::function<void()>>> const exits = {
        {"nothing",
         [&] {
             Draw({0, 0, 29, 199}, "", 36, nullptr, -1, &left);
         }},
        {"text only",
         [&] {
             Draw({0, 0, 29, 199}, "Hello", 36, images.get(), -1, &left);
         }},
        {"image too large",
         [&] {
             Draw({0, 0, 29, 199}, "Hello", 36, huge.get(), 0, &left);
         }},
        {"image drawn",
         [&] {
             Draw({0, 0, 29, 199}, "Hello", 36, images.get(), 0, &left);
         }},
        {"hit test",
         [&] {
             Hit({10, 100}, {0, 0, 29, 199}, "Hello", 36, images.get(), 0, &left);
         }},
        {"hit test on nothing",
         [&] {
             Hit({10, 100}, {0, 0, 29, 199}, "", 36, images.get(), 0, &left);
         }},
    };
    for (auto const& [name, call] : exits) {
        SCOPED_TRACE(name);
        painter.Clear();
        call();
        Lines const fonts = painter.Lines({"SetFont"});
        ASSERT_EQ(fonts.size(), 2u);
        EXPECT_NE(fonts.front().find("extra=2700"), std::string::npos) << "turned for the edge meanwhile";
        EXPECT_EQ(fonts.back(), original);
        EXPECT_EQ(painter.GetFont(), before);
    }
}

TEST_F(Label, HitTestFindsTheTextBoxAndTheImagesPixels) {
    R const rect{0, 0, 199, 29};
    EXPECT_EQ(Draw(rect, "Hello", 36, images.get(), 0), (R{69, 6, 129, 22}));
    painter.Clear();
    // Pixel centres: the image's pixels are 69..84 by 7..22, the text's box (89.5, 6.5)..(129.5, 22.5).
    for (int y = -1; y <= 31; ++y) {
        for (int x = -1; x <= 201; ++x) {
            bool const onImage = x >= 69 && x <= 84 && y >= 7 && y <= 22;
            bool const onText = x >= 89 && x <= 129 && y >= 6 && y <= 22;
            int const expected = onImage ? LabelHitImage : onText ? LabelHitText : LabelHitNothing;
            ASSERT_EQ(Hit({x + 0.5, y + 0.5}, rect, "Hello", 36, images.get(), 0), expected) << x << "," << y;
        }
    }
    // Measured, never drawn.
    Lines const drawn = Drawn();
    ASSERT_FALSE(drawn.empty());
    for (std::string const& line : drawn)
        EXPECT_NE(line.find("flags=0x1124"), std::string::npos) << line;
}

TEST_F(Label, TheImagesHitAreaIsASquareOfItsWidth) {
    mirel_ptr<CImageList> const tall = SolidImages({16, 32});
    R const rect{0, 0, 199, 49};
    // Left aligned, centred across: (49 - 32) / 2 + 0.5 gives 9; the text takes (20, 16.5)..(36, 32.5).
    Draw(rect, "Hi", 33, tall.get(), 0);
    EXPECT_EQ(painter.Lines({"DrawRasterPicture"}), (Lines{"DrawRasterPicture 0,9,16,41 picture=16x32"}));
    EXPECT_EQ(Hit({8, 24.5}, rect, "Hi", 33, tall.get(), 0), LabelHitImage);
    EXPECT_EQ(Hit({8, 25.5}, rect, "Hi", 33, tall.get(), 0), LabelHitNothing)
        << "drawn, but below the square";
    EXPECT_EQ(Hit({25, 30}, rect, "Hi", 33, tall.get(), 0), LabelHitText);
}

TEST_F(Label, WithoutAListAnImageIndexCountsForNothing) {
    R const rect{0, 0, 199, 29};
    EXPECT_EQ(Draw(rect, "Hello", 36, nullptr, 3), Draw(rect, "Hello", 36, nullptr, -1));
    EXPECT_EQ(painter.Lines({"DrawRasterPicture"}), Lines{});
    for (int x = 0; x < 200; x += 3)
        EXPECT_EQ(Hit({x + 0.5, 14.5}, rect, "Hello", 36, nullptr, 3),
                  Hit({x + 0.5, 14.5}, rect, "Hello", 36, nullptr, -1))
            << x;
}

// Labels at the ends of int, or with an image space as large as an int goes: where the parts would land
// past the range of int they stop at its end, and the answer stays a normalised rectangle.
TEST_F(Label, PartsPastTheEndsOfIntStopThere) {
    constexpr int Min = INT_MIN, Max = INT_MAX;
    struct SCase {
        R rect;
        int flags, space;
        char const* text;
    };
    SCase const cases[] = {
        {{Max - 40, Max - 40, Max, Max}, 34, Max, "ab"},
        {{Max - 40, 0, Max, 40}, 1 | 32, Max, "ab"},
        {{Min, Min, Max, Max}, 4 | 32, 4, "ab"},
        {{Min, Min, Max, Max}, 2 | 16, 4, "ab"},
        {{Max, Max, Min, Min}, 1 | 8, 4, ""},
        {{Max - 20, Max - 20, Max, Max}, 4 | 32, 4, ""},
        {{Min, 0, Min + 40, 40}, 2 | 32, Max, "ab"},
    };
    for (SCase const& c : cases) {
        SCOPED_TRACE(testing::Message() << c.rect.left << "," << c.rect.top << " flags " << c.flags);
        R const drawn = DrawLabel(&painter, c.rect, c.text, c.flags, c.space, images.get(), 0, nullptr,
                                  DefaultDelimiters, nullptr);
        EXPECT_LE(drawn.left, drawn.right);
        EXPECT_LE(drawn.top, drawn.bottom);
        for (point<double> at : {point<double>(Max, Max), point<double>(Min, Min)})
            LabelHitTest(at, &painter, c.rect, c.text, c.flags, c.space, images.get(), 0, nullptr,
                         DefaultDelimiters, nullptr);
    }
}

// On the screen, with real fonts: the hit test answers the image exactly on the pixels that the paint gave
// it, wherever the alignment and the edge put it.
struct SScreenCase {
    std::string name;
    Alignment edge;
    bool convert;
    int flags;
    std::string text;
};

void PrintTo(SScreenCase const& c, std::ostream* os) {
    *os << c.name;
}

class LabelHitOnScreen : public testing::TestWithParam<SScreenCase> {};

TEST_P(LabelHitOnScreen, ImageHitsAreTheImagesPixels) {
    SScreenCase const& c = GetParam();
    bool const vertical = c.edge == AlignLeft || c.edge == AlignRight;
    R const rect = vertical ? R{10, 10, 49, 209} : R{10, 10, 209, 49};
    CEdge edge(c.edge, c.convert);
    mirel_ptr<CImageList> const images = SolidImages({16, 16});
    auto const painter = mirel7::NewWindowPainter({220, 220}, 1.0);
    painter->SetBrush({_color(255, 255, 255)});
    painter->FillRect(0, 0, 219, 219);
    DrawLabel(painter.get(), rect, c.text, c.flags, 3, images.get(), 0, &edge, DefaultDelimiters, nullptr);
    mirel_test::CPixelImage const shot = mirel_test::CPixelImage::Of(*painter);
    std::uint32_t const green = mirel_test::Opaque(0, 255, 0);
    ASSERT_EQ(shot.CountOf(green), 256) << "the whole image is drawn";
    for (int y = 0; y < 220; ++y)
        for (int x = 0; x < 220; ++x) {
            int const hit = LabelHitTest({x + 0.5, y + 0.5}, painter.get(), rect, c.text, c.flags, 3,
                                         images.get(), 0, &edge, DefaultDelimiters, nullptr);
            ASSERT_EQ(hit == LabelHitImage, shot.At(x, y) == green) << x << "," << y;
        }
}

INSTANTIATE_TEST_SUITE_P(Labels, LabelHitOnScreen,
                         testing::Values(SScreenCase{"TopCentred", AlignTop, false, 36, "Hello"},
                                         SScreenCase{"BottomRight", AlignBottom, false, 34, "Hello"},
                                         SScreenCase{"BottomLeftTwoLines", AlignBottom, false, 9, "One\nTwo"},
                                         SScreenCase{"ImageAloneCentred", AlignBottom, false, 36, ""},
                                         SScreenCase{"LeftTurned", AlignLeft, true, 36, "Hello"},
                                         SScreenCase{"RightTurnedTop", AlignRight, true, 10, "Hello"},
                                         SScreenCase{"LeftUnturned", AlignLeft, false, 12, "Hi"}),
                         [](testing::TestParamInfo<SScreenCase> const& info) { return info.param.name; });

} // namespace
