#include "mirel7/cairo/cairo_fixture.h"

#include <climits>
#include <cmath>

namespace {

using namespace mirel7;
using namespace mirel_test;

class Text : public CCairoPainterTest {
protected:
    Text() {
        painter->Resize({200, 80});
        Clear(*painter, White);
        painter->SetTextColor(_color(0, 0, 0));
    }
    CPixelImage Blank() const { return CPixelImage(200, 80, White); }
};

TEST_F(Text, DefaultFontReadsLikeNineDesktopPoints) {
    size<double> const w = painter->GetTextSize("W");
    fontmetrics metrics;
    painter->GetFontMetrics(&metrics);
    // DejaVu Sans at 12 pixels: a line of 14 or 15 pixels.
    EXPECT_GE(w.cy, 13);
    EXPECT_LE(w.cy, 16);
    EXPECT_EQ(metrics.ascent + metrics.descent + metrics.externalLeading, w.cy) << "one line height for all";
    EXPECT_EQ(painter->GetTextSize("A\nB").cy, 2 * w.cy);

    font bigger;
    bigger.size = 16;
    double const small = painter->GetTextSize("Hello, world").cx;
    painter->SetFont(bigger);
    EXPECT_NEAR(painter->GetTextSize("Hello, world").cx / small, 2.0, 0.1);
    painter->SetDPIScale(2.0);
    painter->SetFont({});
    EXPECT_NEAR(painter->GetTextSize("Hello, world").cx / small, 2.0, 0.1)
        << "the display scale enlarges text";
}

// Past about two million pixels the backend's metrics turn negative: sizes stop at a sane maximum.
TEST_F(Text, HugeFontsStopAtASaneSizeWithPositiveMetrics) {
    font huge;
    huge.size = 4'000'000;
    painter->SetFont(huge);
    fontmetrics metrics;
    painter->GetFontMetrics(&metrics);
    EXPECT_GT(metrics.ascent, 0);
    EXPECT_GT(metrics.descent, 0);
    double const height = painter->GetTextSize("W").cy;
    EXPECT_GT(height, 10000);
    huge.size = INT_MAX;
    painter->SetFont(huge);
    EXPECT_EQ(painter->GetTextSize("W").cy, height) << "both stop at the same size";
}

// Invalid UTF-8 is drawn with a replacement character for each bad byte, and without a word on stderr.
TEST_F(Text, InvalidUtf8IsDrawnWithReplacementCharactersSilently) {
    testing::internal::CaptureStderr();
    double const width = painter->GetTextSize("a\xFF\x62").cx;
    painter->DrawString({0, 0, 200, 40}, "a\xFF\x62", 0, -1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(width, painter->GetTextSize("a\xEF\xBF\xBD\x62").cx);
}

TEST_F(Text, StylesAndFamiliesChangeTheFont) {
    double const regular = painter->GetTextSize("Hamburgefonts").cx;
    font f;
    f.style = font::StyleBold;
    painter->SetFont(f);
    EXPECT_GT(painter->GetTextSize("Hamburgefonts").cx, regular);
    f.style = 0;
    f.family = 3;
    painter->SetFont(f);
    EXPECT_EQ(painter->GetTextSize("iii").cx, painter->GetTextSize("WWW").cx) << "monospace";
    f.family = 1;
    painter->SetFont(f);
    EXPECT_NE(painter->GetTextSize("Hamburgefonts").cx, regular) << "serif";

    // Underlining inks below the glyphs' baseline.
    painter->SetFont({});
    painter->DrawString({0, 0, 200, 40}, "HHH", 0, -1);
    int const plainBottom = Shot().InkBounds(White).bottom;
    Clear(*painter, White);
    f = {};
    f.style = 16;
    painter->SetFont(f);
    painter->DrawString({0, 0, 200, 40}, "HHH", 0, -1);
    EXPECT_GT(Shot().InkBounds(White).bottom, plainBottom);
}

TEST_F(Text, AlignmentPlacesTheInkInsideTheRectangle) {
    rectangle<double> const r{20, 10, 180, 70};
    struct SCase {
        int flags;
        double inkX, inkY; // where the ink's centre should be, as a fraction of the rectangle
    };
    for (SCase const c :
         {SCase{IPainter::AlignLeft | IPainter::AlignTop, 0, 0}, SCase{IPainter::AlignHCenter, 0.5, 0},
          SCase{IPainter::AlignRight | IPainter::AlignVCenter, 1, 0.5},
          SCase{IPainter::AlignHCenter | IPainter::AlignBottom, 0.5, 1},
          SCase{IPainter::AlignTop | IPainter::AlignBottom | IPainter::AlignRight, 1, 1}}) {
        Clear(*painter, White);
        size<double> const s = painter->DrawString(r, "Hxg", c.flags, -1);
        rectangle<double> const box = painter->GetTextRect(r, s, c.flags);
        rectangle<int> const ink = Shot().InkBounds(White);
        SCOPED_TRACE(c.flags);
        // The ink lies within the text's box, and the box within the rectangle.
        EXPECT_GE(ink.left, box.left - 1);
        EXPECT_LE(ink.right, box.right);
        EXPECT_GE(ink.top, box.top);
        EXPECT_LE(ink.bottom, box.bottom);
        EXPECT_GE(box.left, r.left);
        EXPECT_LE(box.right, r.right);
        // And it sits at the side asked for, within a margin of the glyphs' bearings.
        double const x = r.left + c.inkX * r.Width(), y = r.top + c.inkY * r.Height();
        double const inkX = c.inkX == 0   ? ink.left
                            : c.inkX == 1 ? ink.right + 1
                                          : (ink.left + ink.right + 1) / 2.0;
        double const inkY = c.inkY == 0   ? ink.top
                            : c.inkY == 1 ? ink.bottom + 1
                                          : (ink.top + ink.bottom + 1) / 2.0;
        EXPECT_NEAR(inkX, x, 3);
        EXPECT_NEAR(inkY, y, c.inkY == 0 ? 5 : 4);
    }
}

TEST_F(Text, ClippedTextStaysInsideAndTellsItDidNotFit) {
    rectangle<double> const r{10, 10, 40, 30};
    painter->SetElementFlag(0);
    painter->DrawString(r, "A rather long caption", IPainter::ClipToRect, -1);
    EXPECT_EQ(painter->GetElementFlag(), 1);
    rectangle<int> const ink = Shot().InkBounds(White);
    EXPECT_GE(ink.left, 10);
    EXPECT_LE(ink.right, 39);

    Clear(*painter, White);
    painter->DrawString(r, "A rather long caption", 0, -1);
    EXPECT_GT(Shot().InkBounds(White).right, 60) << "unclipped text runs on";
    Clear(*painter, White);
    painter->DrawString(r, "A rather long caption", IPainter::MeasureOnly, -1);
    EXPECT_TRUE(ImagesMatch(Shot(), Blank())) << "measuring draws nothing";
}

TEST_F(Text, WrapsAtDelimitersToTheRectangle) {
    std::string const text = "alpha beta gamma";
    double const line = painter->GetTextSize("W").cy;
    size<double> const oneLine = painter->DrawStringEx({0, 0, 200, 80}, text.c_str(), 0, -1, " ", nullptr);
    EXPECT_EQ(oneLine.cy, line);
    Clear(*painter, White);
    double const narrow = painter->GetTextSize("alpha beta").cx + 1;
    size<double> const wrapped = painter->DrawStringEx({0, 0, narrow, 80}, text.c_str(), 0, -1, " ", nullptr);
    EXPECT_EQ(wrapped.cy, 2 * line);
    EXPECT_LE(wrapped.cx, narrow);
    rectangle<int> const ink = Shot().InkBounds(White);
    EXPECT_GT(ink.bottom, line) << "the second line is drawn below the first";
    EXPECT_LE(ink.right, narrow);
}

TEST_F(Text, AVerticalEdgeTurnsTextAndAnswersScreenAxes) {
    size<double> const flat = painter->GetTextSize("Vertical");
    font f;
    f.extra = 2700;
    painter->SetFont(f);
    size<double> const turned = painter->GetTextSize("Vertical");
    EXPECT_EQ(turned, (size<double>{flat.cy, flat.cx}));

    rectangle<double> const r{10, 5, 40, 75};
    size<double> const drawn =
        painter->DrawString(r, "Vertical", IPainter::AlignHCenter | IPainter::AlignTop, -1);
    EXPECT_EQ(drawn, turned);
    rectangle<int> const ink = Shot().InkBounds(White);
    EXPECT_GT(ink.bottom - ink.top, 2 * (ink.right - ink.left)) << "taller than wide";
    EXPECT_GE(ink.top, 5);
    EXPECT_LE(ink.top, 8) << "the text starts at the top and runs down";
    EXPECT_GE(ink.left, 10);
    EXPECT_LE(ink.right, 40);
}

TEST_F(Text, MeasuresOutsideAPaintAndIntoAPicture) {
    EXPECT_FALSE(painter->IsInPaint());
    size<double> const outside = painter->GetTextSize("Hello");
    painter->BeginPaint(IPainter::PaintMeasure);
    EXPECT_EQ(painter->GetTextSize("Hello"), outside);
    painter->EndPaint();

    mirel_ptr<IRasterPicture> const picture = NewRasterPicture(60, 20);
    IPainter* const p = picture->GetPainter();
    EXPECT_EQ(p->GetTextSize("Hello"), outside);
    p->SetTextColor(_color(0, 0, 0));
    p->DrawString({0, 0, 60, 20}, "Hello", 0, -1);
    painter->DrawRasterPicture(picture.get(), 0, 0, 60, 20);
    rectangle<int> const ink = Shot().InkBounds(White);
    EXPECT_GE(ink.left, 0);
    EXPECT_LT(ink.right, outside.cx);
}

} // namespace
