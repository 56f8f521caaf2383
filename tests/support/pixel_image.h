#pragma once

#include <mirel7/types.h>
#include <mirel7/window_painter.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace mirel_test {

// A copy of a painter's pixels (premultiplied ARGB words, as the back buffer holds them) for pixel tests,
// and the expected images they are compared with.
class CPixelImage {
public:
    CPixelImage(int width, int height, std::uint32_t fill = 0);
    static CPixelImage Of(mirel7::IWindowPainter& painter);
    // The pixels of a PNG file, as the painter would show it over black; an empty image when unreadable.
    static CPixelImage Load(std::string const& path);

    int Width() const { return m_width; }
    int Height() const { return m_height; }
    std::uint32_t At(int x, int y) const {
        return m_pixels[std::size_t(y) * std::size_t(m_width) + std::size_t(x)];
    }
    void Set(int x, int y, std::uint32_t word) {
        m_pixels[std::size_t(y) * std::size_t(m_width) + std::size_t(x)] = word;
    }
    // Fills the pixels left..right, top..bottom, both inclusive.
    CPixelImage& Fill(mirel7::rectangle<int> const& pixels, std::uint32_t word);
    // The smallest rectangle (both ends inclusive) holding every pixel that differs from `background`;
    // all -1 when there is none.
    mirel7::rectangle<int> InkBounds(std::uint32_t background) const;
    int CountOf(std::uint32_t word) const;
    // Writes the image as a PNG file; false when it could not.
    bool Save(std::string const& path) const;

private:
    int m_width, m_height;
    std::vector<std::uint32_t> m_pixels;
};

// An opaque pixel word.
constexpr std::uint32_t Opaque(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    return 0xFF000000u | std::uint32_t(r) << 16 | std::uint32_t(g) << 8 | b;
}

// Compares two images channel by channel: they match when no channel differs by more than `tolerance`
// in more than `allowedPixels` pixels. On a mismatch the actual and expected images and a diff (differing
// pixels red over a faded copy of the expected one) are written as PNG files into the directory of the
// test logs, named after the running test and `name`; the failure message gives their paths.
testing::AssertionResult ImagesMatch(CPixelImage const& actual, CPixelImage const& expected,
                                     int tolerance = 0, int allowedPixels = 0,
                                     std::string const& name = "image");

// Where failing tests leave their files: $MIREL_TEST_OUTPUT, else pixel_failures/ beside ctest's log
// (Testing/Temporary of the build).
std::string TestOutputDirectory();

} // namespace mirel_test
