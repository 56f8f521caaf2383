#include "mirel7/system/pixel_painter.h"

#include <algorithm>

namespace mirel_test {

CPixelPainter::CPixelPainter(mirel7::size<int> size)
    : m_size(size), m_pixels(static_cast<std::size_t>(size.cx * size.cy), 0xFF000000u) {}

void CPixelPainter::BeginPaint(int) {
    ++paints;
    m_inPaint = true;
}

void CPixelPainter::Fill(int left, int top, int right, int bottom, std::uint32_t argb) {
    for (int y = std::max(top, 0); y <= std::min(bottom, m_size.cy - 1); ++y)
        for (int x = std::max(left, 0); x <= std::min(right, m_size.cx - 1); ++x)
            m_pixels[static_cast<std::size_t>(y * m_size.cx + x)] = argb;
}

void CPixelPainter::FillRect(double left, double top, double right, double bottom) {
    mirel7::_color const c = m_brush.color;
    Fill(static_cast<int>(left), static_cast<int>(top), static_cast<int>(right), static_cast<int>(bottom),
         0xFF000000u | std::uint32_t(c.r) << 16 | std::uint32_t(c.g) << 8 | c.b);
}

void CPixelPainter::Resize(mirel7::size<int> const& newSize) {
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(newSize.cx * newSize.cy), 0xFF000000u);
    for (int y = 0; y < std::min(m_size.cy, newSize.cy); ++y)
        for (int x = 0; x < std::min(m_size.cx, newSize.cx); ++x)
            pixels[static_cast<std::size_t>(y * newSize.cx + x)] = Pixel(x, y);
    m_size = newSize;
    m_pixels.swap(pixels);
}

void CPixelPainter::ScrollBuffer(int dx, int dy, mirel7::rectangle<int> const& source) {
    std::vector<std::uint32_t> const old = m_pixels;
    for (int y = source.top; y <= source.bottom; ++y)
        for (int x = source.left; x <= source.right; ++x) {
            int const tx = x + dx, ty = y + dy;
            if (x < 0 || y < 0 || x >= m_size.cx || y >= m_size.cy) continue;
            if (tx < 0 || ty < 0 || tx >= m_size.cx || ty >= m_size.cy) continue;
            m_pixels[static_cast<std::size_t>(ty * m_size.cx + tx)] =
                old[static_cast<std::size_t>(y * m_size.cx + x)];
        }
}

} // namespace mirel_test
