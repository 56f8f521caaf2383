#include <mirelfrw7/core/label.h>
#include <mirelfrw7/layout/layout_flavor.h>

#include "support/pixel_image.h"

#include <mirel7/image_list.h>
#include <mirel7/recording_painter.h>
#include <mirel7/window_painter.h>

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel7::CImageList;
using mirel7::CRecordingPainter;
using Lines = std::vector<std::string>;
using R = rectangle<int>;

// A list of two images of `s`, filled green.
mirel_ptr<CImageList> SolidImages(size<int> s) {
    mirel_ptr<CImageList> list(new CImageList(s));
    mirel_ptr<IRasterPicture> const picture = mirel7::NewRasterPicture(2 * s.cx, s.cy);
    picture->GetPainter()->SetBrush({_color(0, 255, 0)});
    picture->GetPainter()->FillRect(0, 0, 2 * s.cx - 1, s.cy - 1);
    list->AddPicture(picture.get());
    return list;
}

struct CEdge : CLayoutFlavor {
    CEdge(Alignment alignment, bool convert) {
        ChangeLayout(alignment);
        SetTextConversion(convert);
    }
};

// An edge of AlignNone stands for no layout at all.
std::unique_ptr<CEdge> EdgeOf(Alignment edge, bool convert) {
    return edge == AlignNone ? nullptr : std::make_unique<CEdge>(edge, convert);
}

// The recording painter's fixed metrics: a character is 8 pixels wide, a line 16 high. The caller's font
// differs from the default only in its face, which the metrics ignore.
struct Label : testing::Test {
    Label() {
        painter.SetFont(caller);
        original = painter.Lines().back();
    }
    // Every way out, drawing or hit testing, gives the caller's font back.
    void ExpectFontBack(bool turned) {
        Lines const fonts = painter.Lines({"SetFont"});
        EXPECT_EQ(painter.GetFont(), caller);
        if (fonts.empty()) return;
        ASSERT_EQ(fonts.size(), 2u);
        EXPECT_EQ(fonts.front() != original, turned);
        EXPECT_EQ(fonts.back(), original);
    }

    mirel7::font const caller{"Serif", 2};
    CRecordingPainter painter{{400, 400}};
    std::string original;
    mirel_ptr<CImageList> images = SolidImages({16, 16});
};

TEST_F(Label, PlacesTextAndImage) {
    enum List { None, Square, Flat, Dot, Wide, Huge };
    mirel_ptr<CImageList> const lists[] = {nullptr,
                                           images,
                                           SolidImages({16, 8}),
                                           SolidImages({1, 1}),
                                           SolidImages({120, 16}),
                                           SolidImages({64, 64})};
    struct SPlace {
        R rect;
        char const* text;
        int flags;
        List list;
        int index;
        Alignment edge;
        bool convert, delimiters;
        R result;
    };
    struct SCase {
        SPlace in;
        Lines drawn;
    } const cases[] = {
        // The text gets (20, 0, 199, 29), 40 by 16 centred at (89.5, 6.5); the image 4 before it.
        {{{0, 0, 199, 29}, "Hello", 36, Square, 1, AlignNone, false, true, {69, 6, 129, 22}},
         {R"(DrawStringEx "Hello" 20,0,199,29 flags=0x124 delimiters=" .\n" color=#000000 at=90,7,130,23)",
          "DrawRasterPicture 69,7,85,23 picture=16x16"}},
        {{{0, 0, 199, 29},
          "Hello",
          36 | LabelDisabledImage,
          Square,
          0,
          AlignNone,
          false,
          true,
          {69, 6, 129, 22}},
         {R"(DrawStringEx "Hello" 20,0,199,29 flags=0x2124 delimiters=" .\n" color=#000000 at=90,7,130,23)",
          "DrawRasterPicture 69,7,85,23 picture=16x16 disabled"}},
        // Right aligned, the image stands the space before the text, but never before the label's start.
        {{{0, 0, 199, 29}, "Hello", 34, Square, 0, AlignNone, false, true, {139, 6, 199, 22}},
         {R"(DrawStringEx "Hello" 20,0,199,29 flags=0x122 delimiters=" .\n" color=#000000 at=159,7,199,23)",
          "DrawRasterPicture 139,7,155,23 picture=16x16"}},
        {{{0, 0, 59, 19}, "Hello World!", 34, Square, 0, AlignNone, false, false, {0, 1, 59, 17}},
         {R"(DrawStringEx "Hello World!" 20,0,59,19 flags=0x122 color=#000000 at=-37,2,59,18 overflows)",
          "DrawRasterPicture 0,2,16,18 picture=16x16"}},
        // An 8 high image on 16 high lines follows the first line, 4 below its top; without a vertical
        // alignment it is centred on the label.
        {{{0, 0, 199, 79}, "One\nTwo", 9, Flat, 0, AlignBottom, false, true, {0, 0, 44, 32}},
         {R"(DrawStringEx "One\nTwo" 20,0,199,79 flags=0x109 delimiters=" .\n" color=#000000 at=20,0,44,32 lines="One","Two")",
          "DrawRasterPicture 0,4,16,12 picture=16x8"}},
        {{{0, 0, 199, 79}, "One\nTwo", 33, Flat, 0, AlignBottom, false, true, {0, 23, 44, 55}},
         {R"(DrawStringEx "One\nTwo" 20,0,199,79 flags=0x121 delimiters=" .\n" color=#000000 at=20,24,44,56 lines="One","Two")",
          "DrawRasterPicture 0,27,16,35 picture=16x8"}},
        {{{0, 0, 199, 79}, "One\nTwo", 17, Flat, 0, AlignBottom, false, true, {0, 47, 44, 79}},
         {R"(DrawStringEx "One\nTwo" 20,0,199,79 flags=0x111 delimiters=" .\n" color=#000000 at=20,47,44,79 lines="One","Two")",
          "DrawRasterPicture 0,51,16,59 picture=16x8"}},
        {{{0, 0, 199, 79}, "One\nTwo", 1, Flat, 0, AlignBottom, false, true, {0, 0, 44, 32}},
         {R"(DrawStringEx "One\nTwo" 20,0,199,79 flags=0x101 delimiters=" .\n" color=#000000 at=20,0,44,32 lines="One","Two")",
          "DrawRasterPicture 0,36,16,44 picture=16x8"}},
        // On a vertical edge the text gets (0, 20, 29, 199). Turned, it is 16 wide and 40 high; unturned it
        // is wider than the edge, and the image follows its first line across. Right and top (10) read as
        // bottom and right on the left edge, bottom and left on the right one.
        {{{0, 0, 29, 199}, "Hello", 36, Square, 0, AlignLeft, true, true, {7, 89, 22, 129}},
         {R"(DrawStringEx "Hello" 0,20,29,199 flags=0x124 delimiters=" .\n" color=#000000 at=7,90,23,130)",
          "DrawRasterPicture 7,69,23,85 picture=16x16"}},
        {{{0, 0, 29, 199}, "Hello", 10, Square, 0, AlignLeft, true, true, {7, 159, 29, 199}},
         {R"(DrawStringEx "Hello" 0,20,29,199 flags=0x112 delimiters=" .\n" color=#000000 at=13,159,29,199)",
          "DrawRasterPicture 7,139,23,155 picture=16x16"}},
        {{{0, 0, 29, 199}, "Hello", 10, Square, 0, AlignRight, true, true, {7, 159, 16, 199}},
         {R"(DrawStringEx "Hello" 0,20,29,199 flags=0x111 delimiters=" .\n" color=#000000 at=0,159,16,199)",
          "DrawRasterPicture 7,139,23,155 picture=16x16"}},
        {{{0, 0, 29, 199}, "Hello", 10, Square, 0, AlignLeft, false, true, {0, 20, 29, 36}},
         {R"(DrawStringEx "Hello" 0,20,29,199 flags=0x10a delimiters=" .\n" color=#000000 at=-11,20,29,36 overflows)",
          "DrawRasterPicture 0,163,16,179 picture=16x16"}},
        {{{0, 0, 29, 199}, "Hello", 10, Square, 0, AlignRight, false, true, {0, 20, 29, 36}},
         {R"(DrawStringEx "Hello" 0,20,29,199 flags=0x10a delimiters=" .\n" color=#000000 at=-11,20,29,36 overflows)",
          "DrawRasterPicture 0,163,16,179 picture=16x16"}},
        // The left edge keeps only alignment bits: the measuring bit is put back after them.
        {{{0, 0, 29, 199},
          "Hello",
          36 | LabelMeasureOnly,
          Square,
          0,
          AlignLeft,
          true,
          true,
          {7, 89, 22, 129}},
         {R"(DrawStringEx "Hello" 0,20,29,199 flags=0x1124 delimiters=" .\n" at=7,90,23,130)"}},
        {{{0, 0, 29, 199}, "Hello", 36, Huge, 0, AlignLeft, true, true, {6, 113, 22, 153}},
         {R"(DrawStringEx "Hello" 0,68,29,199 flags=0x124 delimiters=" .\n" color=#000000 at=7,114,23,154)"}},
        {{{0, 0, 29, 199}, "", 36, None, -1, AlignLeft, true, true, {}}, {}},
        {{{0, 0, 199, 29}, "", 36, Square, -1, AlignNone, false, true, {}}, {}},
        // An inverted rectangle leaves one pixel for the image.
        {{{50, 0, 40, 29}, "", 4, Dot, 0, AlignNone, false, true, {50, 14, 51, 15}},
         {"DrawRasterPicture 50,14,51,15 picture=1x1"}},
        {{{50, 0, 40, 29}, "", 4, Square, 0, AlignNone, false, true, {}}, {}},
        // An image wider than the label is left out whole; the text's room still starts after it and its
        // space, at 124.
        {{{0, 0, 99, 19}, "A long text", 33, Wide, 0, AlignNone, false, false, {99, 1, 187, 17}},
         {R"(DrawStringEx "A long text" 99,0,124,19 flags=0x121 color=#000000 at=99,2,187,18 overflows)"}},
        // An index without a list counts for nothing.
        {{{0, 0, 199, 29}, "Hello", 36, None, 3, AlignNone, false, true, {79, 6, 119, 22}},
         {R"(DrawStringEx "Hello" 0,0,199,29 flags=0x124 delimiters=" .\n" color=#000000 at=80,7,120,23)"}},
    };
    for (SCase const& c : cases) {
        SCOPED_TRACE(testing::Message() << "row " << &c - cases);
        std::unique_ptr<CEdge> const edge = EdgeOf(c.in.edge, c.in.convert);
        mirel7::IImageList* const list = lists[c.in.list].get();
        char const* const delimiters = c.in.delimiters ? DefaultDelimiters : nullptr;
        painter.Clear();
        EXPECT_EQ(DrawLabel(&painter, c.in.rect, c.in.text, c.in.flags, 4, list, c.in.index, edge.get(),
                            delimiters, nullptr),
                  c.in.result);
        EXPECT_EQ(painter.Lines({"DrawStringEx", "DrawRasterPicture"}), c.drawn);
        EXPECT_FALSE(painter.IsDisabled());
        ExpectFontBack(c.in.convert);
        painter.Clear();
        // Just before the text, where an image would stand.
        int const hit = LabelHitTest({c.in.result.left - 10.5, (c.in.result.top + c.in.result.bottom) / 2.0},
                                     &painter, c.in.rect, c.in.text, c.in.flags, 4, list, c.in.index,
                                     edge.get(), delimiters, nullptr);
        if (!list) {
            EXPECT_NE(hit, LabelHitImage);
        }
        ExpectFontBack(c.in.convert);
    }
}

TEST_F(Label, HitTestFindsTheTextBoxAndTheImagesPixels) {
    R const rect{0, 0, 199, 29};
    auto const hit = [&](double x, double y) {
        return LabelHitTest({x, y}, &painter, rect, "Hello", 36, 4, images.get(), 0, nullptr,
                            DefaultDelimiters, nullptr);
    };
    // Pixel centres: the image's pixels are 69..84 by 7..22, the text's box (89.5, 6.5)..(129.5, 22.5).
    for (int y = -1; y <= 31; ++y) {
        for (int x = -1; x <= 201; ++x) {
            bool const onImage = x >= 69 && x <= 84 && y >= 7 && y <= 22;
            bool const onText = x >= 89 && x <= 129 && y >= 6 && y <= 22;
            int const expected = onImage ? LabelHitImage : onText ? LabelHitText : LabelHitNothing;
            ASSERT_EQ(hit(x + 0.5, y + 0.5), expected) << x << "," << y;
        }
    }
    // Measured, never drawn.
    for (std::string const& line : painter.Lines({"DrawStringEx", "DrawRasterPicture"}))
        EXPECT_NE(line.find("flags=0x1124"), std::string::npos) << line;
}

TEST_F(Label, TheImagesHitAreaIsASquareOfItsWidth) {
    mirel_ptr<CImageList> const tall = SolidImages({16, 32});
    R const rect{0, 0, 199, 49};
    auto const hit = [&](double x, double y) {
        return LabelHitTest({x, y}, &painter, rect, "Hi", 33, 4, tall.get(), 0, nullptr, DefaultDelimiters,
                            nullptr);
    };
    // Left aligned, centred across at (49 - 32) / 2 + 0.5 = 9; the text takes (20, 16.5)..(36, 32.5).
    DrawLabel(&painter, rect, "Hi", 33, 4, tall.get(), 0, nullptr, DefaultDelimiters, nullptr);
    EXPECT_EQ(painter.Lines({"DrawRasterPicture"}), (Lines{"DrawRasterPicture 0,9,16,41 picture=16x32"}));
    EXPECT_EQ(hit(8, 24.5), LabelHitImage);
    EXPECT_EQ(hit(8, 25.5), LabelHitNothing) << "drawn, but below the square";
    EXPECT_EQ(hit(25, 30), LabelHitText);
}

// Labels at the ends of int, or with an image space as large as an int goes: where the parts would land
// past the range of int they stop at its end, and the answer stays a normalised rectangle.
TEST_F(Label, PartsPastTheEndsOfIntStopThere) {
    constexpr int Min = INT_MIN, Max = INT_MAX;
    struct SCase {
        R rect;
        int flags, space;
        char const* text;
    } const cases[] = {
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
TEST(LabelHitOnScreen, ImageHitsAreTheImagesPixels) {
    struct SCase {
        Alignment edge;
        bool convert;
        int flags;
        char const* text;
    } const cases[] = {{AlignTop, false, 36, "Hello"},      {AlignBottom, false, 34, "Hello"},
                       {AlignBottom, false, 9, "One\nTwo"}, {AlignBottom, false, 36, ""},
                       {AlignLeft, true, 36, "Hello"},      {AlignRight, true, 10, "Hello"},
                       {AlignLeft, false, 12, "Hi"}};
    mirel_ptr<CImageList> const images = SolidImages({16, 16});
    std::uint32_t const green = mirel_test::Opaque(0, 255, 0);
    for (SCase const& c : cases) {
        SCOPED_TRACE(testing::Message() << c.edge << " " << c.flags << " " << c.text);
        R const rect = c.edge == AlignLeft || c.edge == AlignRight ? R{10, 10, 49, 209} : R{10, 10, 209, 49};
        CEdge edge(c.edge, c.convert);
        auto const painter = mirel7::NewWindowPainter({220, 220}, 1.0);
        painter->SetBrush({_color(255, 255, 255)});
        painter->FillRect(0, 0, 219, 219);
        DrawLabel(painter.get(), rect, c.text, c.flags, 3, images.get(), 0, &edge, DefaultDelimiters,
                  nullptr);
        mirel_test::CPixelImage const shot = mirel_test::CPixelImage::Of(*painter);
        ASSERT_EQ(shot.CountOf(green), 256) << "the whole image is drawn";
        for (int y = 0; y < 220; ++y)
            for (int x = 0; x < 220; ++x) {
                int const hit = LabelHitTest({x + 0.5, y + 0.5}, painter.get(), rect, c.text, c.flags, 3,
                                             images.get(), 0, &edge, DefaultDelimiters, nullptr);
                ASSERT_EQ(hit == LabelHitImage, shot.At(x, y) == green) << x << "," << y;
            }
    }
}

} // namespace
