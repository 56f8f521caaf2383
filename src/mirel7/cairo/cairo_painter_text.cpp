#include <mirel7/cairo/cairo_painter.h>

#include <cmath>

namespace mirel7::cairo {

ITextMeasure& CCairoPainter::Measure() {
    m_text.Select(CurrentFont(), GetDPIScale());
    return m_text;
}

void CCairoPainter::GetFontMetrics(fontmetrics* metrics) {
    m_text.Select(CurrentFont(), GetDPIScale());
    *metrics = m_text.Metrics();
}

void CCairoPainter::RenderText(STextCall const& call) {
    std::optional<_color> const c = Effective(TextColor());
    if (call.measureOnly() || !c || call.block.lines.empty()) return;
    STextBlock const& block = call.block;
    cairo_t* const cr = m_surface.Context();
    // Every other drawing sets its own source and path, so only a clip needs the state saved: a grid's cells
    // are drawn one after another, and each save and restore would also drop the font Cairo set up.
    bool const clip = call.flags & ClipToRect;
    if (clip) {
        cairo_save(cr);
        cairo_rectangle(cr, block.area.left, block.area.top, block.area.Width(), block.area.Height());
        cairo_clip(cr);
    }
    SetSource(cr, *c);
    // A quarter turn keeps lines on whole pixels; any other turn cannot.
    bool const quarterTurn = block.turn.cosine == std::round(block.turn.cosine);
    double const angle = std::atan2(block.turn.sine, block.turn.cosine);
    for (std::size_t i = 0; i < block.lines.size(); ++i) {
        point<double> o = block.LineOrigin(i);
        if (quarterTurn) o = {std::round(o.x), std::round(o.y)};
        if (block.turn.IsNone()) {
            // A whole pixel plus the layout's fractions of a pixel add up exactly, as a translation would.
            m_text.Show(cr, o.x, o.y, block.lines[i].text);
            continue;
        }
        cairo_save(cr);
        cairo_translate(cr, o.x, o.y);
        // Counter-clockwise on a screen whose y axis points down.
        cairo_rotate(cr, -angle);
        m_text.Show(cr, 0, 0, block.lines[i].text);
        cairo_restore(cr);
    }
    if (clip) cairo_restore(cr);
}

} // namespace mirel7::cairo
