#include <mirel7/cairo/glyph_run_cache.h>

namespace mirel7::cairo {

std::size_t SShapedLine::GlyphCount() const {
    std::size_t count = 0;
    for (SGlyphRun const& run : runs)
        count += run.glyphs.size();
    return count;
}

SShapedLine const* CGlyphRunCache::Find(void const* face, std::string_view text) {
    // A line is measured and then drawn: the second question is about the line just found.
    if (!m_order.empty() && m_order.front().face == face && m_order.front().text == text)
        return &m_order.front().line;
    auto const found = m_index.find({face, text});
    if (found == m_index.end()) return nullptr;
    m_order.splice(m_order.begin(), m_order, found->second);
    return &found->second->line;
}

SShapedLine const& CGlyphRunCache::Insert(void const* face, std::string_view text, SShapedLine line) {
    m_glyphs += line.GlyphCount();
    m_order.push_front({face, std::string(text), std::move(line)});
    m_index.emplace(SKey{face, m_order.front().text}, m_order.begin());
    Evict();
    return m_order.front().line;
}

void CGlyphRunCache::Evict() {
    // The newest line stays even when it alone is over the bound: its caller is about to draw it.
    while (m_order.size() > 1 && (m_order.size() > m_maxLines || m_glyphs > m_maxGlyphs)) {
        SNode const& last = m_order.back();
        m_glyphs -= last.line.GlyphCount();
        m_index.erase({last.face, last.text});
        m_order.pop_back();
    }
}

} // namespace mirel7::cairo
