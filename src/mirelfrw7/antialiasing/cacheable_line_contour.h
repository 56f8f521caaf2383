#pragma once

#include <mirelfrw7/antialiasing/line_contour.h>

#include <compare>
#include <cstdint>
#include <map>
#include <vector>

namespace antialiasing {

// A line made into a byte mask (255 where nothing lies), to be laid at several places. Masks under 512 KiB
// share one static buffer and stay valid only until the next small mask is made anywhere; larger ones
// belong to their contour.
class MIRELFRW7_API CCacheableLineContour {
public:
    // What makes two masks the same, packed: caps, dash, width (its low three bits) and the ends in tenths,
    // the size of the mask, and both colours. Density, opacity and the trims are no part of it.
    struct MIRELFRW7_API Tag {
        Tag(LINE_CONTOUR_PARAMS const& params, bool variant, long width, long height);

        std::uint32_t m_words[3];
        CColorInfo m_startColor;
        CColorInfo m_endColor;

        friend bool operator<(Tag const& l, Tag const& r);
        friend bool operator==(Tag const&, Tag const&) = default;
    };

    // Masks kept by users of the class; it neither fills nor reads this map itself.
    static std::map<Tag, unsigned char*> sm_mapCache;

    CCacheableLineContour(LINE_CONTOUR_PARAMS const& params, unsigned long contourParams)
        : m_params(params), m_contourParams(contourParams) {}
    ~CCacheableLineContour();
    CCacheableLineContour(CCacheableLineContour const&) = delete;
    CCacheableLineContour& operator=(CCacheableLineContour const&) = delete;

    // Makes the mask of the line, `width` bytes a row and |height| rows, rows upside down if `flip`.
    unsigned char* Generate(long width, long height, bool flip);
    unsigned char* GetMask() const { return m_mask; }

    LINE_CONTOUR_PARAMS m_params;

private:
    unsigned long m_contourParams;
    unsigned char* m_mask = nullptr;
    bool m_ownsMask = false;
};

} // namespace antialiasing
