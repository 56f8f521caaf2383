#include "mirel7/cairo/cairo_fixture.h"

namespace {

using namespace mirel7;
using namespace mirel_test;

// A 4 by 2 picture: red on the left half, blue on the right, and one green pixel at (3, 1).
mirel_ptr<IRasterPicture> Sample() {
    mirel_ptr<IRasterPicture> picture = NewRasterPicture(4, 2);
    IPainter* const p = picture->GetPainter();
    p->BeginPaint(IPainter::PaintPlain);
    p->SetBrush({_color(255, 0, 0)});
    p->FillRect(0, 0, 1, 1);
    p->SetBrush({_color(0, 0, 255)});
    p->FillRect(2, 0, 3, 1);
    p->SetPixel(3, 1, _color(0, 255, 0));
    p->EndPaint();
    return picture;
}

CPixelImage SampleAt(CPixelImage image, int x, int y) {
    image.Fill({x, y, x + 1, y + 1}, Red)
        .Fill({x + 2, y, x + 3, y + 1}, Blue)
        .Fill({x + 3, y + 1, x + 3, y + 1}, Green);
    return image;
}

using Pictures = CCairoPainterTest;

TEST_F(Pictures, StartTransparentAndDrawExactlyWhereAsked) {
    mirel_ptr<IRasterPicture> const picture = NewRasterPicture(3, 3);
    EXPECT_TRUE(picture.counted()) << "made with new, so counted";
    EXPECT_EQ(picture->GetSize(), (size<int>{3, 3}));
    EXPECT_EQ(picture->GetPainter()->GetPixel(1, 1), _color(0, 0, 0, 0));
    painter->DrawRasterPicture(picture.get(), 0, 0, 3, 3);
    EXPECT_TRUE(ImagesMatch(Shot(), Blank(), 0, 0, "transparent")) << "laid over, not copied";

    painter->DrawRasterPicture(Sample().get(), 10, 5, 14, 7);
    EXPECT_TRUE(ImagesMatch(Shot(), SampleAt(Blank(), 10, 5), 0, 0, "exact"));
}

TEST_F(Pictures, ScaleToTheDestinationAndDrawParts) {
    mirel_ptr<IRasterPicture> const sample = Sample();
    painter->DrawRasterPicture(sample.get(), 0, 0, 8, 4);
    CPixelImage const shot = Shot();
    EXPECT_EQ(shot.At(0, 0), Red);
    EXPECT_EQ(shot.At(7, 0), Blue);
    EXPECT_EQ(shot.At(7, 3), Green) << "the corner pixel grows to the corner";
    EXPECT_EQ(shot.InkBounds(White), (rectangle<int>{0, 0, 7, 3}));

    Clear(*painter, White);
    painter->DrawRasterPictureEx(sample.get(), 20, 10, 22, 12, {2, 0, 4, 2});
    EXPECT_TRUE(ImagesMatch(Shot(), Blank().Fill({20, 10, 21, 11}, Blue).Fill({21, 11, 21, 11}, Green)));

    Clear(*painter, White);
    painter->DrawRasterPictureEx(sample.get(), 0, 0, 20, 20, {0, 0, 2, 2});
    EXPECT_TRUE(ImagesMatch(Shot(), Blank().Fill({0, 0, 19, 19}, Red), 2, 0, "scaled_part"))
        << "a part scaled up takes no colour from beside it";
}

TEST_F(Pictures, FlippedMappingPlacesButNeverMirrors) {
    IPainter::CoordInfo const flipped = Mapping(0, 0, 20, 10, 30, 15, -20, -10);
    painter->SetCoordSystem(IPainter::MapElement, &flipped);
    // Logical (6, 3)..(2, 1) is device (24, 12)..(28, 14).
    painter->DrawRasterPicture(Sample().get(), 6, 3, 2, 1);
    EXPECT_TRUE(ImagesMatch(Shot(), SampleAt(Blank(), 24, 12)));
}

TEST_F(Pictures, ExtractCopiesWhatTheSurfaceShows) {
    painter->DrawRasterPicture(Sample().get(), 10, 5, 14, 7);
    mirel_ptr<IRasterPicture> const taken = NewRasterPicture(1, 1);
    painter->ExtractRasterPicture(taken.get(), 9, 5, 14, 7);
    EXPECT_EQ(taken->GetSize(), (size<int>{5, 2})) << "takes the size of the rectangle";
    painter->DrawRasterPicture(taken.get(), 20, 20, 25, 22);
    EXPECT_TRUE(ImagesMatch(Shot(), SampleAt(SampleAt(Blank(), 10, 5), 21, 20), 0, 0, "whole"));

    // Into an existing picture at a place, keeping the rest of it.
    mirel_ptr<IRasterPicture> const target = Sample();
    painter->ExtractRasterPictureEx(target.get(), 0, 0, 2, 1, {2, 1});
    EXPECT_EQ(target->GetSize(), (size<int>{4, 2}));
    IPainter* const p = target->GetPainter();
    EXPECT_EQ(p->GetPixel(2, 1), _color(255, 255, 255));
    EXPECT_EQ(p->GetPixel(3, 1), _color(255, 255, 255)) << "clipped to the picture";
    EXPECT_EQ(p->GetPixel(2, 0), _color(0, 0, 255));
    EXPECT_EQ(p->GetPixel(0, 1), _color(255, 0, 0));
}

TEST_F(Pictures, CopyFromAndScale) {
    mirel_ptr<IRasterPicture> const sample = Sample();
    mirel_ptr<IRasterPicture> const copy = NewRasterPicture(9, 9);
    ASSERT_TRUE(copy->CopyFrom(sample.get()));
    EXPECT_EQ(copy->GetSize(), (size<int>{4, 2}));
    rectangle<int> const part{3, 0, 10, 2};
    ASSERT_TRUE(copy->CopyFrom(sample.get(), &part));
    EXPECT_EQ(copy->GetSize(), (size<int>{1, 2})) << "the part is clipped to the source";
    EXPECT_EQ(copy->GetPainter()->GetPixel(0, 1), _color(0, 255, 0));
    rectangle<int> const outside{5, 0, 9, 2};
    EXPECT_FALSE(copy->CopyFrom(sample.get(), &outside));
    EXPECT_FALSE(copy->CopyFrom(nullptr));
    EXPECT_TRUE(copy->CopyFrom(copy.get())) << "from itself";

    copy->Scale({4, 6});
    EXPECT_EQ(copy->GetSize(), (size<int>{4, 6}));
    EXPECT_EQ(copy->GetPainter()->GetPixel(0, 0), _color(0, 0, 255));
    EXPECT_EQ(copy->GetPainter()->GetPixel(3, 5), _color(0, 255, 0)) << "edges keep their colour";
    copy->Scale({0, 6});
    EXPECT_EQ(copy->GetSize(), (size<int>{0, 0}));
    painter->DrawRasterPicture(copy.get(), 0, 0, 10, 10);
    copy->Scale({2, 2});
    EXPECT_EQ(copy->GetPainter()->GetPixel(1, 1), _color(0, 0, 0, 0)) << "an empty picture scales to nothing";
    EXPECT_TRUE(ImagesMatch(Shot(), Blank()));
}

TEST_F(Pictures, AlphaBlendAtNoneHalfAndFull) {
    mirel_ptr<IRasterPicture> const black = NewRasterPicture(5, 5);
    Clear(*black->GetPainter(), Black);
    painter->AlphaBlend(0, 0, 5, 5, black.get(), 0);
    painter->AlphaBlend({10.0, 0.0, 15.0, 5.0}, black.get(), 127);
    painter->AlphaBlend(20, 0, 25, 5, black.get(), 255);
    painter->AlphaBlend(30, 0, 35, 5, black.get(), 1000);
    CPixelImage expected = Blank();
    expected.Fill({10, 0, 14, 4}, Opaque(128, 128, 128))
        .Fill({20, 0, 24, 4}, Black)
        .Fill({30, 0, 34, 4}, Black);
    EXPECT_TRUE(ImagesMatch(Shot(), expected, 1));
}

TEST_F(Pictures, DisabledGreysPicturesOnly) {
    painter->SetDisabled(true);
    painter->DrawRasterPicture(Sample().get(), 0, 0, 4, 2);
    painter->SetBrush({_color(255, 0, 0)});
    painter->FillRect(10, 0, 11, 1);
    CPixelImage const shot = Shot();
    for (int x = 0; x < 4; ++x) {
        _color const c = _color::FromWord(shot.At(x, 0) & 0xFFFFFF);
        EXPECT_TRUE(c.r == c.b && c.g == c.b) << x << " is grey";
        EXPECT_NE(shot.At(x, 0), White);
    }
    EXPECT_NE(shot.At(0, 0), shot.At(2, 0)) << "brightness survives";
    EXPECT_EQ(shot.At(10, 0), Red);
    painter->SetDisabled(false);
    Clear(*painter, White);
    painter->DrawRasterPicture(Sample().get(), 0, 0, 4, 2);
    EXPECT_TRUE(ImagesMatch(Shot(), SampleAt(Blank(), 0, 0)));
}

TEST_F(Pictures, APicturesPainterClipsAndMapsLikeAWindow) {
    mirel_ptr<IRasterPicture> const picture = NewRasterPicture(10, 10);
    IPainter* const p = picture->GetPainter();
    p->SetClipRect(2, 2, 5, 5, false);
    p->SetBrush({_color(0, 255, 0)});
    p->FillRect(0, 0, 9, 9);
    p->ResetClip();
    painter->DrawRasterPicture(picture.get(), 0, 0, 10, 10);
    EXPECT_TRUE(ImagesMatch(Shot(), Blank().Fill({2, 2, 5, 5}, Green)));
    // Drawing a picture onto its own painter goes through a copy.
    p->DrawRasterPicture(picture.get(), 5, 5, 9, 9);
    EXPECT_EQ(p->GetPixel(6, 6), _color(0, 255, 0)) << "source 2.5..5, scaled by 0.4 to 6..7";
}

} // namespace
