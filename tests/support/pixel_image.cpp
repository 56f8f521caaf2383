#include "support/pixel_image.h"

#include <mirel7/png_picture.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace mirel_test {

namespace {

int Channel(std::uint32_t word, int shift) {
    return int(word >> shift) & 255;
}

int WorstChannelDifference(std::uint32_t a, std::uint32_t b) {
    int worst = 0;
    for (int shift : {0, 8, 16, 24})
        worst = std::max(worst, std::abs(Channel(a, shift) - Channel(b, shift)));
    return worst;
}

std::string FileStem(std::string const& name) {
    testing::TestInfo const* const test = testing::UnitTest::GetInstance()->current_test_info();
    std::string stem = test ? std::string(test->test_suite_name()) + "." + test->name() + "." + name : name;
    std::replace(stem.begin(), stem.end(), '/', '_');
    return (std::filesystem::path(TestOutputDirectory()) / stem).string();
}

} // namespace

std::string TestOutputDirectory() {
    char const* const chosen = std::getenv("MIREL_TEST_OUTPUT");
    std::filesystem::path const dir = chosen && *chosen ? chosen : MIREL_TEST_LOG_DIR "/pixel_failures";
    std::filesystem::create_directories(dir);
    return std::filesystem::absolute(dir).string();
}

CPixelImage::CPixelImage(int width, int height, std::uint32_t fill)
    : m_width(width), m_height(height), m_pixels(std::size_t(width) * std::size_t(height), fill) {}

CPixelImage CPixelImage::Of(mirel7::IWindowPainter& painter) {
    mirel7::IWindowPainter::SPixels const pixels = painter.BeginPixelAccess();
    CPixelImage image(pixels.width, pixels.height);
    for (int y = 0; y < pixels.height; ++y)
        std::copy_n(pixels.data + std::ptrdiff_t(y) * pixels.stride, pixels.width,
                    image.m_pixels.begin() + std::ptrdiff_t(y) * pixels.width);
    painter.EndPixelAccess();
    return image;
}

CPixelImage CPixelImage::Load(std::string const& path) {
    mirel7::mirel_ptr<mirel7::IRasterPicture> const picture = mirel7::LoadPngPicture(path);
    if (!picture) return CPixelImage(0, 0);
    mirel7::size<int> const size = picture->GetSize();
    auto painter = mirel7::NewWindowPainter(size, 1.0);
    painter->DrawRasterPicture(picture.get(), 0, 0, size.cx, size.cy);
    return Of(*painter);
}

CPixelImage& CPixelImage::Fill(mirel7::rectangle<int> const& pixels, std::uint32_t word) {
    for (int y = std::max(pixels.top, 0); y <= std::min(pixels.bottom, m_height - 1); ++y)
        for (int x = std::max(pixels.left, 0); x <= std::min(pixels.right, m_width - 1); ++x)
            Set(x, y, word);
    return *this;
}

mirel7::rectangle<int> CPixelImage::InkBounds(std::uint32_t background) const {
    mirel7::rectangle<int> box{m_width, m_height, -1, -1};
    for (int y = 0; y < m_height; ++y)
        for (int x = 0; x < m_width; ++x)
            if (At(x, y) != background)
                box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x),
                       std::max(box.bottom, y)};
    return box.right < 0 ? mirel7::rectangle<int>{-1, -1, -1, -1} : box;
}

int CPixelImage::CountOf(std::uint32_t word) const {
    return static_cast<int>(std::count(m_pixels.begin(), m_pixels.end(), word));
}

bool CPixelImage::Save(std::string const& path) const {
    auto painter = mirel7::NewWindowPainter({m_width, m_height}, 1.0);
    mirel7::IWindowPainter::SPixels const pixels = painter->BeginPixelAccess();
    for (int y = 0; y < m_height; ++y)
        std::copy_n(m_pixels.begin() + std::ptrdiff_t(y) * m_width, m_width,
                    pixels.data + std::ptrdiff_t(y) * pixels.stride);
    painter->EndPixelAccess();
    return painter->SavePng(path);
}

testing::AssertionResult ImagesMatch(CPixelImage const& actual, CPixelImage const& expected, int tolerance,
                                     int allowedPixels, std::string const& name) {
    if (actual.Width() != expected.Width() || actual.Height() != expected.Height())
        return testing::AssertionFailure() << "size " << actual.Width() << "x" << actual.Height()
                                           << ", expected " << expected.Width() << "x" << expected.Height();
    CPixelImage diff(expected.Width(), expected.Height());
    int differing = 0, worst = 0;
    std::ostringstream first;
    for (int y = 0; y < expected.Height(); ++y)
        for (int x = 0; x < expected.Width(); ++x) {
            int const d = WorstChannelDifference(actual.At(x, y), expected.At(x, y));
            worst = std::max(worst, d);
            std::uint32_t const e = expected.At(x, y);
            // Faded to a quarter so that the red marks stand out.
            diff.Set(x, y, 0xFF000000u | (e >> 2 & 0x3F3F3F));
            if (d <= tolerance) continue;
            if (differing++ == 0)
                first << std::hex << " first at " << std::dec << x << "," << y << ": 0x" << std::hex
                      << actual.At(x, y) << " instead of 0x" << e;
            diff.Set(x, y, Opaque(255, 0, 0));
        }
    if (differing <= allowedPixels) return testing::AssertionSuccess();

    std::string const stem = FileStem(name);
    actual.Save(stem + ".actual.png");
    expected.Save(stem + ".expected.png");
    diff.Save(stem + ".diff.png");
    return testing::AssertionFailure()
           << differing << " pixels differ by more than " << tolerance << " (worst " << worst << ")"
           << first.str() << "; images in " << stem << ".{actual,expected,diff}.png";
}

} // namespace mirel_test
