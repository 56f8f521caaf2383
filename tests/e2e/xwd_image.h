#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace mirel_test {

// A screenshot of the X screen in the dump format of `xwd`, as 0xRRGGBB words. Only the true-colour images
// an X server of depth 24 writes are understood.
class CXwdImage {
public:
    // Runs `xwd -root` on the display of the environment; empty when that failed.
    static CXwdImage CaptureScreen();
    bool Parse(std::vector<std::uint8_t> const& bytes);

    bool IsEmpty() const { return m_pixels.empty(); }
    int Width() const { return m_width; }
    int Height() const { return m_height; }
    std::uint32_t Pixel(int x, int y) const { return m_pixels[static_cast<std::size_t>(y * m_width + x)]; }

private:
    int m_width = 0;
    int m_height = 0;
    std::vector<std::uint32_t> m_pixels;
};

} // namespace mirel_test
