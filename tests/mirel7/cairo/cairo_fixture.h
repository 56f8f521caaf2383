#pragma once

#include "support/pixel_image.h"

#include <mirel7/window_painter.h>

#include <gtest/gtest.h>

#include <memory>

namespace mirel_test {

constexpr std::uint32_t White = Opaque(255, 255, 255);
constexpr std::uint32_t Red = Opaque(255, 0, 0);
constexpr std::uint32_t Green = Opaque(0, 255, 0);
constexpr std::uint32_t Blue = Opaque(0, 0, 255);
constexpr std::uint32_t Black = Opaque(0, 0, 0);

// A window painter on a white buffer, and the white image to build expectations on.
class CCairoPainterTest : public testing::Test {
protected:
    static constexpr int Width = 40, Height = 30;

    CCairoPainterTest() : painter(mirel7::NewWindowPainter({Width, Height}, 1.0)) { Clear(*painter, White); }

    static void Clear(mirel7::IPainter& p, std::uint32_t word) {
        p.SetBrush({mirel7::_color(std::uint8_t(word >> 16), std::uint8_t(word >> 8), std::uint8_t(word))});
        p.FillRect(0, 0, 10000, 10000);
    }
    CPixelImage Blank() const { return CPixelImage(Width, Height, White); }
    CPixelImage Shot() { return CPixelImage::Of(*painter); }

    std::unique_ptr<mirel7::IWindowPainter> painter;
};

inline mirel7::IPainter::CoordInfo Mapping(double left, double top, double width, double height, int x, int y,
                                           int cx, int cy) {
    return mirel7::IPainter::CoordInfo::Mapping(left, top, width, height, x, y, cx, cy);
}

} // namespace mirel_test
