#pragma once

#include <mirelfrw7/antialiasing/contour.h>
#include <mirelfrw7/core/drawing_context.h>

#include <map>
#include <utility>
#include <vector>

namespace mirel_test {

// A surface of colour words in a map: unknown pixels read as no colour (0xFFFFFFFF), and every write is
// journalled in order.
class CMapContext : public mirelfrw7::IDrawingContext {
public:
    struct SWrite {
        long x, y;
        unsigned long colour;
        friend bool operator==(SWrite const&, SWrite const&) = default;
    };

    unsigned long GetPixel(long x, long y) override {
        auto const it = pixels.find({x, y});
        return it == pixels.end() ? 0xFFFFFFFFul : it->second;
    }
    void SetPixel(long x, long y, unsigned long colour) override {
        pixels[{x, y}] = colour;
        writes.push_back({x, y, colour});
    }

    std::map<std::pair<long, long>, unsigned long> pixels;
    std::vector<SWrite> writes;
};

// The coverage a contour holds for a pixel, 0 where it holds none.
inline std::uint32_t CoverageAt(antialiasing::CContour const& contour, int x, int y) {
    auto const it = contour.m_contour.find({x, y});
    return it == contour.m_contour.end() ? 0 : it->second.a;
}

} // namespace mirel_test
