#pragma once

#include <cairo.h>

#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace mirel7::cairo {

struct SScaledFontRelease {
    void operator()(cairo_scaled_font_t* font) const { cairo_scaled_font_destroy(font); }
};

// Glyphs of one font, placed as the text renderer places them: each glyph's x and y are its offsets from the
// run's origin, so that adding them to an origin rounds exactly as the renderer's own sums do.
struct SGlyphRun {
    std::unique_ptr<cairo_scaled_font_t, SScaledFontRelease> font;
    double x = 0, y = 0;
    std::vector<cairo_glyph_t> glyphs;
};

// A line shaped once: its width, and its runs when plain glyphs draw it exactly; decorated lines and lines
// with missing glyphs keep only the width and are drawn by the text renderer.
struct SShapedLine {
    double width = 0;
    bool direct = false;
    std::vector<SGlyphRun> runs;

    std::size_t GlyphCount() const;
};

// Shaped lines by font and text, the least recently used going first once either the lines or their glyphs
// exceed the bound. One cache serves one painter, so a painter on a worker thread shares nothing.
class CGlyphRunCache {
public:
    CGlyphRunCache(std::size_t maxLines, std::size_t maxGlyphs)
        : m_maxLines(maxLines), m_maxGlyphs(maxGlyphs) {}

    // The line of `face` and `text`, now the most recently used, or null.
    SShapedLine const* Find(void const* face, std::string_view text);
    SShapedLine const& Insert(void const* face, std::string_view text, SShapedLine line);
    std::size_t Size() const { return m_order.size(); }

private:
    struct SNode {
        void const* face;
        std::string text;
        SShapedLine line;
    };
    struct SKey {
        void const* face;
        std::string_view text;
        bool operator==(SKey const&) const = default;
    };
    struct SKeyHash {
        std::size_t operator()(SKey const& k) const {
            return std::hash<std::string_view>{}(k.text) ^ std::hash<void const*>{}(k.face);
        }
    };
    void Evict();

    std::size_t m_maxLines, m_maxGlyphs, m_glyphs = 0;
    // Most recently used first; the index's keys view the nodes' own text, which never moves.
    std::list<SNode> m_order;
    std::unordered_map<SKey, std::list<SNode>::iterator, SKeyHash> m_index;
};

} // namespace mirel7::cairo
