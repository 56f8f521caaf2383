#pragma once

#include <mirel7/cairo/glyph_run_cache.h>
#include <mirel7/text_flow.h>
#include <mirel7/types.h>

#include <cairo.h>
#include <pango/pangocairo.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace mirel7::cairo {

// Fonts, line measurement and line drawing through Pango. Each font is described once; a line is laid out
// once and kept shaped, width and glyphs, since the framework measures and draws the same captions, cells
// and "W" over and over; one layout serves every line.
class CPangoText final : public ITextMeasure {
public:
    CPangoText();
    ~CPangoText();
    CPangoText(CPangoText const&) = delete;
    CPangoText& operator=(CPangoText const&) = delete;

    // Makes `f` at `dpiScale` the font of the calls that follow; the first Select comes before them, so that
    // a picture that never shows text never loads a font.
    void Select(font const& f, double dpiScale);

    double LineWidth(std::string_view line) override { return Shaped(line).width; }
    double LineHeight() override { return Current().lineHeight; }
    fontmetrics const& Metrics() { return Current().metrics; }
    // The line laid out in the current font, from the cache when it was seen lately.
    SShapedLine const& Shaped(std::string_view line);
    // Draws one line with the top left of its box at (x, y) of `cr`.
    void Show(cairo_t* cr, double x, double y, std::string_view line);
    // The same through the renderer of the layout, as a line that glyphs cannot draw exactly is drawn.
    void ShowLayout(cairo_t* cr, double x, double y, std::string_view line);

private:
    struct SFace {
        PangoFontDescription* description = nullptr;
        PangoAttrList* attributes = nullptr;
        fontmetrics metrics;
        double lineHeight = 0;
        ~SFace();
    };
    // Face list, family, style bits, pixel size.
    using SKey = std::tuple<std::string, int, int, double>;

    SFace& Current();
    std::unique_ptr<SFace> Describe(SKey const& key);
    void SetLine(std::string_view line);
    // The runs of the laid out line, or false when plain glyphs would not draw it as the renderer does.
    bool CollectRuns(std::vector<SGlyphRun>* runs);

    PangoContext* m_context = nullptr;
    PangoLayout* m_layout = nullptr;
    std::map<SKey, std::unique_ptr<SFace>> m_faces;
    font m_selected;
    double m_selectedScale = 0;
    SFace* m_current = nullptr;
    CGlyphRunCache m_shaped;
    std::vector<cairo_glyph_t> m_placed;
};

} // namespace mirel7::cairo
