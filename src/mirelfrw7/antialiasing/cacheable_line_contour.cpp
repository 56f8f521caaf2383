#include <mirelfrw7/antialiasing/cacheable_line_contour.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <tuple>

namespace antialiasing {

namespace {
constexpr long SharedMaskBytes = 0x80000;
unsigned char s_sharedMask[SharedMaskBytes];

std::uint32_t Tenths(double v) {
    double const t = v * 10;
    return t >= 0 && t < 4294967296.0 ? std::uint32_t(t) : 0u;
}

auto Fields(CColorInfo const& c) {
    return std::tie(c.r, c.g, c.b, c.a, c.part);
}
} // namespace

std::map<CCacheableLineContour::Tag, unsigned char*> CCacheableLineContour::sm_mapCache;

CCacheableLineContour::Tag::Tag(LINE_CONTOUR_PARAMS const& p, bool variant, long width, long height)
    : m_startColor(p.m_startColor), m_endColor(p.m_endColor) {
    std::uint32_t const x1 = Tenths(p.m_x1), y1 = Tenths(p.m_y1), x2 = Tenths(p.m_x2), y2 = Tenths(p.m_y2);
    m_words[0] = std::uint32_t(variant) | (std::uint32_t(p.m_endCap) & 7) << 1 |
                 (std::uint32_t(p.m_startCap) & 7) << 4 | (std::uint32_t(p.m_dash) & 7) << 7 |
                 (p.m_width & 7) << 13 | (y2 & 0x3FFF) << 16 | (x2 & 3) << 30;
    m_words[1] = (x2 >> 2 & 0xFF) | (y1 & 0x3FFF) << 8 | (x1 & 0x3FF) << 22;
    m_words[2] = std::uint32_t(width | height) & 0xFFFF;
}

bool operator<(CCacheableLineContour::Tag const& l, CCacheableLineContour::Tag const& r) {
    auto const key = [](CCacheableLineContour::Tag const& t) {
        return std::tuple_cat(std::tie(t.m_words[0], t.m_words[1], t.m_words[2]), Fields(t.m_startColor),
                              Fields(t.m_endColor));
    };
    return key(l) < key(r);
}

CCacheableLineContour::~CCacheableLineContour() {
    if (m_ownsMask) delete[] m_mask;
}

unsigned char* CCacheableLineContour::Generate(long width, long height, bool flip) {
    if (m_ownsMask) delete[] m_mask;
    m_mask = nullptr;
    m_ownsMask = false;
    long const rows = std::labs(height);
    if (width <= 0 || rows == 0) return nullptr;
    long const bytes = width * rows;
    if (bytes < SharedMaskBytes) {
        m_mask = s_sharedMask;
    } else {
        m_mask = new unsigned char[std::size_t(bytes)];
        m_ownsMask = true;
    }
    std::memset(m_mask, 255, std::size_t(bytes));
    CLineContour line(m_contourParams);
    static_cast<LINE_CONTOUR_PARAMS&>(line) = m_params;
    line.Generate(nullptr, nullptr);
    line.Normalize(254);
    line.FillAlphaMask(m_mask, width, height, flip);
    return m_mask;
}

} // namespace antialiasing
