#include <mirel7/image_list.h>

#include "mirel7/cairo/cairo_fixture.h"
#include "support/pixel_image.h"

#include <mirel7/recording_painter.h>

#include <climits>
#include <filesystem>

#include <unistd.h>

namespace {

using namespace mirel7;
using namespace mirel_test;

_color ColorOf(std::uint32_t word) {
    return {std::uint8_t(word >> 16), std::uint8_t(word >> 8), std::uint8_t(word)};
}

// A strip of 8 by 6 cells, each filled with its colour, with a 3 by 2 remainder at the right and bottom
// and the top left pixel of every cell left transparent.
mirel_ptr<IRasterPicture> Strip(std::vector<std::uint32_t> const& cells) {
    mirel_ptr<IRasterPicture> strip = NewRasterPicture(int(cells.size()) * 8 + 3, 8);
    IPainter* const p = strip->GetPainter();
    for (std::size_t i = 0; i < cells.size(); ++i) {
        int const left = int(i) * 8;
        p->SetBrush({ColorOf(cells[i])});
        p->FillRect(left + 1, 0, left + 7, 0);
        p->FillRect(left, 1, left + 7, 5);
    }
    return strip;
}

using ImageList = CCairoPainterTest;

TEST_F(ImageList, CutsPicturesIntoWholeCells) {
    CImageList list({8, 6});
    EXPECT_EQ(list.AddPicture(Strip({Red, Green, Blue}).get()), 3);
    EXPECT_EQ(list.AddPicture(NewRasterPicture(7, 6).get()), 0) << "narrower than one image";
    EXPECT_EQ(list.AddPicture(nullptr), 0);
    EXPECT_EQ(list.GetCount(), 3);
    EXPECT_EQ(list.GetImageSize(2), (size<int>{8, 6}));
    EXPECT_EQ(list.GetImageSize(3), (size<int>{}));
    EXPECT_EQ(list.GetImageSize(-1), (size<int>{}));

    for (int i = 0; i < 4; ++i)
        list.Draw(painter.get(), i, 2 + 9 * i, 3, 0, 0);
    CPixelImage expected = Blank();
    std::uint32_t const colours[] = {Red, Green, Blue};
    for (int i = 0; i < 3; ++i)
        expected.Fill({2 + 9 * i, 3, 9 + 9 * i, 8}, colours[i]).Set(2 + 9 * i, 3, White);
    EXPECT_TRUE(ImagesMatch(Shot(), expected));
}

TEST_F(ImageList, DrawsAtAGivenSize) {
    CImageList list({8, 6});
    list.AddPicture(Strip({Red}).get());
    list.Draw(painter.get(), 0, 0, 0, 16, 12);
    EXPECT_EQ(Shot().InkBounds(White), (rectangle<int>{0, 0, 15, 11}));
}

// Disabled drawing greys and leaves the flag as it was. The far corner of an image at the end of int lies
// past it: the painter is handed it in double and the recording painter logs the pixel where the range ends.
TEST(ImageListCalls, DisabledAndAtTheEndOfInt) {
    CImageList list({8, 6});
    list.AddPicture(Strip({Red}).get());
    CRecordingPainter painter({50, 50});
    list.DrawDisabled(&painter, 0, 4, 5, 0, 0);
    EXPECT_FALSE(painter.IsDisabled());
    painter.SetDisabled(true);
    list.DrawDisabled(&painter, 0, 4, 5, 0, 0);
    EXPECT_TRUE(painter.IsDisabled());
    list.Draw(&painter, 0, INT_MAX - 3, INT_MAX, 0, 0);
    EXPECT_EQ(painter.Lines({"DrawRasterPicture"}),
              (std::vector<std::string>{
                  "DrawRasterPicture 4,5,12,11 picture=8x6 disabled",
                  "DrawRasterPicture 4,5,12,11 picture=8x6 disabled",
                  "DrawRasterPicture 2147483644,2147483647,2147483647,2147483647 picture=8x6 disabled"}));
}

TEST_F(ImageList, ReadsPngFilesWithTheirAlpha) {
    std::filesystem::path const file =
        std::filesystem::temp_directory_path() / ("image_list_test_" + std::to_string(::getpid()) + ".png");
    auto strip = NewWindowPainter({19, 8}, 1.0);
    strip->SetBrush({_color(255, 0, 0)});
    strip->FillRect(0, 0, 7, 5);
    strip->SetBrush({_color(0, 0, 255)});
    strip->FillRect(9, 1, 15, 5);
    ASSERT_TRUE(strip->SavePng(file.string()));

    CImageList list({8, 6});
    EXPECT_EQ(list.AddPng(file.string()), 2);
    std::filesystem::remove(file);
    EXPECT_EQ(list.AddPng(file.string()), 0) << "no file";

    list.Draw(painter.get(), 0, 0, 0, 0, 0);
    list.Draw(painter.get(), 1, 10, 10, 0, 0);
    // The second cell's transparent column and row let the white through.
    EXPECT_TRUE(ImagesMatch(Shot(), Blank().Fill({0, 0, 7, 5}, Red).Fill({11, 11, 17, 15}, Blue)));
}

} // namespace
