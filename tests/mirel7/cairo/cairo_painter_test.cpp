#include "mirel7/cairo/cairo_fixture.h"

#include <filesystem>

namespace {

using namespace mirel7;
using namespace mirel_test;

using Shapes = CCairoPainterTest;

TEST_F(Shapes, FillsCoverBothEndsInclusive) {
    painter->SetBrush({_color(255, 0, 0)});
    painter->FillRect(10, 10, 19, 19);
    painter->FillRect({30.0, 5.0, 30.0, 5.0});
    EXPECT_TRUE(ImagesMatch(Shot(), Blank().Fill({10, 10, 19, 19}, Red).Fill({30, 5, 30, 5}, Red)));
}

TEST_F(Shapes, RectangleOutlinesTheSamePixelsItFills) {
    painter->SetBrush({_color(0, 255, 0)});
    painter->SetPen({_color(0, 0, 255)});
    painter->Rectangle(5, 5, 15, 12);
    // A thick pen grows both ways from the same outermost pixels.
    painter->SetPen({_color(0, 0, 0), 3});
    painter->Rectangle(25, 5, 35, 25);
    CPixelImage expected = Blank();
    expected.Fill({5, 5, 15, 12}, Blue).Fill({6, 6, 14, 11}, Green);
    expected.Fill({24, 4, 36, 26}, Black).Fill({27, 7, 33, 23}, Green);
    EXPECT_TRUE(ImagesMatch(Shot(), expected));
}

TEST_F(Shapes, StraightLinesIncludeBothEndPoints) {
    painter->SetPen({_color(255, 0, 0)});
    painter->MoveTo(2, 3);
    painter->LineTo(12, 3);
    painter->LineTo(12, 9);
    painter->SetPen({_color(0, 0, 255), 2});
    painter->MoveTo(20, 20);
    painter->LineTo(30, 20);
    CPixelImage expected = Blank();
    expected.Fill({2, 3, 12, 3}, Red).Fill({12, 3, 12, 9}, Red);
    // An even width lies on pixel edges: the row above the coordinate and its own, from the pixel before the
    // start to the end point.
    expected.Fill({19, 19, 30, 20}, Blue);
    EXPECT_TRUE(ImagesMatch(Shot(), expected));
}

TEST_F(Shapes, DiagonalLinesAreAntialiasedWithinTheirEnds) {
    painter->SetPen({_color(0, 0, 0)});
    painter->MoveTo(2, 2);
    painter->LineTo(20, 11);
    CPixelImage const shot = Shot();
    rectangle<int> const ink = shot.InkBounds(White);
    EXPECT_GE(ink.left, 1);
    EXPECT_LE(ink.right, 21);
    EXPECT_GE(ink.top, 1);
    EXPECT_LE(ink.bottom, 12);
    int partial = 0;
    for (int y = 0; y < Height; ++y)
        for (int x = 0; x < Width; ++x)
            partial += shot.At(x, y) != White && shot.At(x, y) != Black;
    EXPECT_GT(partial, 10) << "edge pixels are blended, not aliased";
}

TEST_F(Shapes, PenStylesDashAndDotOnWholePixels) {
    painter->SetPen({_color(0, 0, 0), 1, pen::Dot});
    painter->MoveTo(2, 3);
    painter->LineTo(21, 3);
    painter->SetPen({_color(0, 0, 0), 1, pen::Dash});
    painter->MoveTo(2, 6);
    painter->LineTo(21, 6);
    painter->SetPen({_color(0, 0, 0), 1, pen::None});
    painter->MoveTo(2, 9);
    painter->LineTo(21, 9);
    CPixelImage expected = Blank();
    for (int x = 2; x <= 21; x += 2)
        expected.Set(x, 3, Black);
    // Four on, two off.
    for (int x = 2; x <= 21; ++x)
        if ((x - 2) % 6 < 4) expected.Set(x, 6, Black);
    EXPECT_TRUE(ImagesMatch(Shot(), expected));
}

TEST_F(Shapes, FocusRectIsDottedInTheTextColour) {
    painter->SetTextColor(_color(0, 0, 255));
    painter->FocusRect(4, 4, 14, 10);
    CPixelImage const shot = Shot();
    for (int x = 4; x <= 14; ++x)
        EXPECT_EQ(shot.At(x, 4), (x - 4) % 2 ? White : Blue) << x;
    // Every other pixel all round, and nothing inside.
    EXPECT_EQ(shot.CountOf(Blue), 16);
    EXPECT_EQ(shot.InkBounds(White), (rectangle<int>{4, 4, 14, 10}));
}

TEST_F(Shapes, EmptyColoursHollowBrushesAndNullPensDrawNothing) {
    painter->SetBrush({});
    painter->FillRect(0, 0, 39, 29);
    painter->SetPen({});
    painter->Rectangle(1, 1, 20, 20);
    brush hollow{_color(255, 0, 0)};
    hollow.style = brush::Hollow;
    painter->SetBrush(hollow);
    painter->SetPen({_color(0, 0, 0), 1, pen::None});
    painter->Rectangle(1, 1, 20, 20);
    painter->SetTextColor({});
    painter->FocusRect(1, 1, 20, 20);
    size<double> const text = painter->DrawString({0, 0, 40, 30}, "Hi", 0, -1);
    EXPECT_GT(text.cx, 0) << "a text in no colour still measures";
    EXPECT_TRUE(ImagesMatch(Shot(), Blank()));
}

TEST_F(Shapes, RoundRectAndPolygon) {
    painter->SetBrush({_color(0, 255, 0)});
    painter->SetPen({_color(0, 0, 0)});
    painter->RoundRect(2, 2, 21, 21, 6, 6);
    point<double> const triangle[] = {{25, 25}, {35, 25}, {30, 5}};
    painter->Polygon(triangle, 3);
    CPixelImage const shot = Shot();
    EXPECT_EQ(shot.At(2, 2), White) << "corners are cut";
    EXPECT_EQ(shot.At(11, 2), Black) << "the straight part of the outline lies on the edge";
    EXPECT_EQ(shot.At(2, 11), Black);
    EXPECT_EQ(shot.At(11, 11), Green);
    EXPECT_EQ(shot.At(30, 20), Green);
    EXPECT_EQ(shot.At(26, 8), White);
    EXPECT_EQ(shot.InkBounds(White).bottom, 25);
}

TEST_F(Shapes, ColourSubstitutionReplacesColoursOnlyWhileActive) {
    painter->SetBrush({_color(255, 0, 0)});
    painter->SetColorSubstitution(_color(0, 0, 255), false);
    painter->FillRect(0, 0, 4, 4);
    painter->SetColorSubstitution(_color(0, 0, 255), true);
    painter->FillRect(5, 0, 9, 4);
    painter->SetDisabled(true);
    painter->SetColorSubstitution({}, false);
    painter->FillRect(10, 0, 14, 4);
    EXPECT_TRUE(ImagesMatch(
        Shot(), Blank().Fill({0, 0, 4, 4}, Red).Fill({5, 0, 9, 4}, Blue).Fill({10, 0, 14, 4}, Red)))
        << "the disabled flag leaves plain colours alone";
}

using Clip = CCairoPainterTest;

TEST_F(Clip, IncludeExcludeAndDeviceRectangles) {
    painter->SetBrush({_color(255, 0, 0)});
    painter->SetClipRect(5, 5, 14, 14, false);
    painter->FillRect(0, 0, 39, 29);
    EXPECT_EQ(painter->GetClipRect(), (rectangle<double>{5, 5, 15, 15}));
    EXPECT_TRUE(ImagesMatch(Shot(), Blank().Fill({5, 5, 14, 14}, Red), 0, 0, "include"));

    Clear(*painter, White);
    painter->ResetClip();
    painter->SetBrush({_color(0, 0, 255)});
    painter->SimpleSetClipRect({20, 2, 38, 28}, false);
    painter->SetClipRect(25, 10, 29, 14, true);
    painter->FillRect(0, 0, 39, 29);
    // SetPixel honours an exclusion as Cairo does.
    painter->SetPixel(26, 11, _color(255, 0, 0));
    painter->SetPixel(21, 3, _color(255, 0, 0));
    painter->SetPixel(19, 3, _color(255, 0, 0));
    CPixelImage expected = Blank();
    expected.Fill({20, 2, 37, 27}, Blue).Fill({25, 10, 29, 14}, White).Fill({21, 3, 21, 3}, Red);
    EXPECT_TRUE(ImagesMatch(Shot(), expected, 0, 0, "exclude"));

    // An empty clip hides all; a reset frees the whole buffer.
    Clear(*painter, White);
    painter->SetBrush({_color(255, 0, 0)});
    painter->SimpleSetClipRect({10, 10, 10, 20}, false);
    painter->FillRect(0, 0, 39, 29);
    painter->SetPixel(10, 12, _color(255, 0, 0));
    EXPECT_TRUE(ImagesMatch(Shot(), Blank(), 0, 0, "empty"));
    painter->ResetClip();
    painter->FillRect(0, 0, 39, 29);
    EXPECT_EQ(Shot().CountOf(Red), Width * Height);
}

using Mapping3 = CCairoPainterTest;

TEST_F(Mapping3, FlippedAxesMirrorShapesButNeverText) {
    // An element at device (10, 5), 20 by 10, with x running right to left.
    IPainter::CoordInfo const flipped = Mapping(0, 0, 20, 10, 30, 5, -20, 10);
    painter->SetCoordSystem(IPainter::MapElement, &flipped);
    painter->SetBrush({_color(255, 0, 0)});
    painter->FillRect(1, 0, 5, 9);
    EXPECT_TRUE(ImagesMatch(Shot(), Blank().Fill({25, 5, 29, 14}, Red), 0, 0, "fill"));

    // The same text in the same device rectangle, once through the flip and once plainly.
    Clear(*painter, White);
    painter->SetTextColor(_color(0, 0, 0));
    painter->DrawString({0, 0, 20, 10}, "Lp", 0, -1);
    CPixelImage const throughFlip = Shot();
    painter->SetCoordSystem(IPainter::MapDevice, nullptr);
    Clear(*painter, White);
    painter->DrawString({10, 5, 30, 15}, "Lp", 0, -1);
    EXPECT_NE(throughFlip.InkBounds(White).left, -1);
    EXPECT_TRUE(ImagesMatch(throughFlip, Shot(), 0, 0, "text"));
}

TEST_F(Mapping3, ScaledElementsMapFillsAndPixels) {
    // Two logical units a pixel, y flipped inside a 10 pixel high element at row 20.
    IPainter::CoordInfo const info = Mapping(0, 0, 40, 20, 0, 29, 20, -10);
    painter->SetCoordSystem(IPainter::MapElement, &info);
    painter->SetBrush({_color(0, 0, 255)});
    painter->FillRect(0, 0, 9, 3);
    painter->SetPixel(38, 18, _color(255, 0, 0));
    EXPECT_EQ(painter->GetPixel(38, 18), _color(255, 0, 0));
    EXPECT_TRUE(ImagesMatch(Shot(), Blank().Fill({0, 27, 4, 29}, Blue).Fill({19, 20, 19, 20}, Red)));
}

using Pixels = CCairoPainterTest;

TEST_F(Pixels, WriteOpaqueReadBackAndAnswerNoColourOutside) {
    painter->SetPixel(3, 4, _color(10, 20, 30, 0));
    EXPECT_EQ(painter->GetPixel(3, 4), _color(10, 20, 30)) << "alpha is ignored: the pixel is opaque";
    EXPECT_EQ(painter->GetPixel(3.7, 4.2), _color(10, 20, 30)) << "a pixel is its top-left corner";
    EXPECT_EQ(painter->GetPixel(-1, 4).ToWord(), _color::NoColorWord);
    EXPECT_EQ(painter->GetPixel(3, Height).ToWord(), _color::NoColorWord);
    painter->SetPixel(Width, 0, _color(0, 0, 0));
    painter->SetPixel(-0.5, 0, _color(0, 0, 0));
    EXPECT_TRUE(ImagesMatch(Shot(), Blank().Fill({3, 4, 3, 4}, Opaque(10, 20, 30))));
}

TEST_F(Pixels, CairoAndDirectAccessSeeEachOthersWork) {
    painter->SetBrush({_color(255, 0, 0)});
    painter->FillRect(0, 0, 3, 3);
    EXPECT_EQ(painter->GetPixel(2, 2), _color(255, 0, 0)) << "pending Cairo drawing is flushed first";
    painter->SetPixel(2, 2, _color(0, 0, 255));
    // Half-transparent white over the written pixel: Cairo must blend with blue, not with a stale red.
    painter->SetBrush({_color(255, 255, 255, 128)});
    painter->FillRect(2, 2, 2, 2);
    _color const blended = painter->GetPixel(2, 2);
    EXPECT_NEAR(blended.r, 128, 1);
    EXPECT_NEAR(blended.b, 255, 1);
}

using BackBuffer = CCairoPainterTest;

TEST_F(BackBuffer, KeepsPixelsAcrossPassesAndResizes) {
    EXPECT_TRUE(painter->NeedsFullRepaint());
    painter->BeginPaint(IPainter::PaintWindow);
    painter->SetBrush({_color(255, 0, 0)});
    painter->FillRect(0, 0, 9, 9);
    painter->EndPaint();
    EXPECT_FALSE(painter->NeedsFullRepaint());
    painter->BeginPaint(IPainter::PaintWindow);
    painter->EndPaint();
    EXPECT_EQ(Shot().CountOf(Red), 100) << "BeginPaint never clears";

    painter->SetClipRect(0, 0, 4, 4, false);
    painter->Resize({20, 50});
    EXPECT_TRUE(painter->NeedsFullRepaint());
    EXPECT_EQ(painter->GetBufferSize(), (size<int>{20, 50}));
    CPixelImage const shot = Shot();
    ASSERT_EQ(shot.Width(), 20);
    EXPECT_EQ(shot.At(9, 9), Red) << "anchored at the top left";
    EXPECT_EQ(shot.At(19, 29), White);
    painter->FillRect(0, 0, 19, 49);
    EXPECT_EQ(Shot().CountOf(Red), 100) << "the clip in force survives the new surface";
}

TEST_F(BackBuffer, ScrollMovesAnInclusiveSourceWithinTheBuffer) {
    painter->SetBrush({_color(255, 0, 0)});
    painter->FillRect(0, 0, 9, 4);
    painter->SetBrush({_color(0, 0, 255)});
    painter->FillRect(0, 5, 9, 9);
    painter->ScrollBuffer(20, -5, {0, 0, 9, 9});
    painter->ScrollBuffer(35, 0, {0, 0, 9, 9}); // partly out: clipped to the buffer
    CPixelImage expected = Blank();
    // The source keeps what the moved copy did not cover.
    expected.Fill({0, 0, 9, 4}, Red).Fill({0, 5, 9, 9}, Blue);
    expected.Fill({20, 0, 29, 4}, Blue).Fill({35, 0, 39, 4}, Red).Fill({35, 5, 39, 9}, Blue);
    EXPECT_TRUE(ImagesMatch(Shot(), expected));
}

TEST_F(BackBuffer, SavesAPngAndRefusesAnImpossiblePath) {
    std::string const path = TestOutputDirectory() + "/back_buffer.png";
    EXPECT_TRUE(painter->SavePng(path));
    EXPECT_GT(std::filesystem::file_size(path), 0u);
    std::filesystem::remove(path);
    EXPECT_FALSE(painter->SavePng("/nonexistent-dir/x.png"));
}

} // namespace
