#include "mirel7/cairo/cairo_fixture.h"
#include "mirel7/xpm_pictures.h"

#include <mirel7/system.h>
#include <mirel7/xpm.h>

namespace {

using namespace mirel7;
using namespace mirel_test;

XPMImage Help() {
    XPMImage image(XPMBuf{HelpNormal});
    image.Init();
    return image;
}

// The picture's opaque pixels laid over `image` with the top left at (x, y).
CPixelImage Over(CPixelImage image, XPMImage const& picture, int x, int y) {
    for (int py = 0; py < picture.GetHeight(); ++py)
        for (int px = 0; px < picture.GetWidth(); ++px)
            if (std::uint32_t const word = picture.GetPixels()->words[std::size_t(py * 16 + px)])
                image.Set(x + px, y + py, word);
    return image;
}

using XPMDrawing = CCairoPainterTest;

TEST_F(XPMDrawing, DrawsThePictureOverTheSurfaceAndPartsOfIt) {
    XPMImage const help = Help();
    painter->DrawXPM(help, 2, 3, 0, 0, -1, -1);
    EXPECT_TRUE(ImagesMatch(Shot(), Over(Blank(), help, 2, 3), 0, 0, "whole"));

    Clear(*painter, White);
    painter->DrawXPM(help, 20, 0, 5, 4, 6, 1);
    EXPECT_TRUE(
        ImagesMatch(Shot(), Blank().Fill({20, 0, 20, 0}, Black).Fill({25, 0, 25, 0}, Black), 0, 0, "part"));
}

TEST_F(XPMDrawing, DecodesOnceIntoASurfaceForEachLook) {
    XPMImage const help = Help();
    XPMImage const copy = help;
    painter->DrawXPM(help, 0, 0, 0, 0, -1, -1);
    std::shared_ptr<void> const normal = help.GetPixels()->rendered[0];
    ASSERT_NE(normal, nullptr);
    EXPECT_EQ(help.GetPixels()->rendered[1], nullptr);
    painter->DrawXPM(copy, 20, 0, 0, 0, -1, -1);
    EXPECT_EQ(copy.GetPixels()->rendered[0], normal) << "copies share the surface";
    painter->SetDisabled(true);
    painter->DrawXPM(help, 0, 0, 0, 0, -1, -1);
    EXPECT_NE(help.GetPixels()->rendered[1], nullptr);
    EXPECT_EQ(help.GetPixels()->rendered[0], normal);
}

TEST_F(XPMDrawing, TheDisabledFlagGreysEveryKindOfPictureAlike) {
    XPMImage const help = Help();
    mirel_ptr<IRasterPicture> const raster = NewRasterPicture(16, 16);
    raster->GetPainter()->DrawXPM(help, 0, 0, 0, 0, -1, -1);
    painter->SetDisabled(true);
    painter->DrawXPM(help, 0, 0, 0, 0, -1, -1);
    painter->DrawRasterPicture(raster.get(), 20, 0, 36, 16);
    painter->SetDisabled(false);
    CPixelImage const shot = Shot();
    int greys = 0;
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x) {
            std::uint32_t const word = shot.At(x, y);
            EXPECT_EQ(word, shot.At(20 + x, y)) << x << "," << y;
            _color const c = _color::FromWord(word & 0xFFFFFF);
            EXPECT_TRUE(c.r == c.g && c.g == c.b) << x << "," << y << " is grey";
            greys += word != White;
        }
    EXPECT_EQ(greys, 16 * 16 - 207) << "transparent pixels stay so";
    EXPECT_NE(shot.At(6, 3), Black);
}

TEST_F(XPMDrawing, FollowsTheDisplayScale) {
    int const autoScale = GetDPIAutoScale();
    SetDPIAutoScale(1);
    auto const scaled = NewWindowPainter({40, 40}, 2.0);
    Clear(*scaled, White);
    scaled->DrawXPM(Help(), 2, 2, 0, 0, -1, -1);
    SetDPIAutoScale(autoScale);
    // The question mark covers columns 4 to 11 and rows 3 to 12 of the picture.
    rectangle<int> const ink = CPixelImage::Of(*scaled).InkBounds(White);
    for (auto [actual, expected] : {std::pair{ink.left, 10}, {ink.top, 8}, {ink.right, 25}, {ink.bottom, 27}})
        EXPECT_NEAR(actual, expected, 1);
}

} // namespace
