#include <mirel7/cairo/pango_text.h>
#include <mirel7/painter_base.h>

#include <cmath>
#include <mutex>
#include <utility>

namespace mirel7::cairo {

namespace {

// Enough for the captions and cells of a large window twice over; the glyphs bound what long lines take.
constexpr std::size_t MaxShapedLines = 4096;
constexpr std::size_t MaxShapedGlyphs = std::size_t(1) << 18;

std::string FamilyList(std::string const& face, int family) {
    char const* generic = family == 1   ? "DejaVu Serif,serif"
                          : family == 3 ? "DejaVu Sans Mono,monospace"
                                        : "DejaVu Sans,sans-serif";
    return face.empty() ? generic : face + "," + generic;
}

// One font map serves every painter, so that fonts load once; it goes with the last painter, taking
// Pango's caches along instead of leaving them to the end of the process.
std::mutex fontMapMutex;
PangoFontMap* sharedFontMap = nullptr;
int fontMapUsers = 0;

PangoFontMap* AcquireFontMap() {
    std::lock_guard lock(fontMapMutex);
    if (fontMapUsers++ == 0) sharedFontMap = pango_cairo_font_map_new();
    return sharedFontMap;
}

void ReleaseFontMap() {
    std::lock_guard lock(fontMapMutex);
    if (--fontMapUsers == 0) g_object_unref(std::exchange(sharedFontMap, nullptr));
}

// The layout marks its single paragraph to show line breaks, which only shaping reads; any attribute that
// the renderer reads (decorations, colours, shifts) leaves a line to the renderer.
bool OnlyShapingAttributes(GSList const* attributes) {
    for (; attributes; attributes = attributes->next)
        if (static_cast<PangoAttribute const*>(attributes->data)->klass->type != PANGO_ATTR_SHOW)
            return false;
    return true;
}

} // namespace

CPangoText::SFace::~SFace() {
    pango_font_description_free(description);
    if (attributes) pango_attr_list_unref(attributes);
}

CPangoText::CPangoText() : m_shaped(MaxShapedLines, MaxShapedGlyphs) {
    m_context = pango_font_map_create_context(AcquireFontMap());
    cairo_font_options_t* const options = cairo_font_options_create();
    // Grey antialiasing suits any background and any turn; unhinted metrics make widths scale evenly.
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_SLIGHT);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(m_context, options);
    cairo_font_options_destroy(options);
    m_layout = pango_layout_new(m_context);
    // Line feeds are the text flow's business; a measured line is always one line.
    pango_layout_set_single_paragraph_mode(m_layout, TRUE);
}

CPangoText::~CPangoText() {
    g_object_unref(m_layout);
    m_faces.clear();
    g_object_unref(m_context);
    ReleaseFontMap();
}

void CPangoText::Select(font const& f, double dpiScale) {
    if (m_current && f == m_selected && dpiScale == m_selectedScale) return;
    m_selected = f;
    m_selectedScale = dpiScale;
    SKey key{f.face, f.family, f.style, CPainterBase::FontPixelSize(f, dpiScale)};
    auto found = m_faces.find(key);
    if (found == m_faces.end()) found = m_faces.emplace(key, Describe(key)).first;
    m_current = found->second.get();
    pango_layout_set_font_description(m_layout, m_current->description);
    pango_layout_set_attributes(m_layout, m_current->attributes);
}

CPangoText::SFace& CPangoText::Current() {
    return *m_current;
}

std::unique_ptr<CPangoText::SFace> CPangoText::Describe(SKey const& key) {
    auto const& [face, family, style, pixelSize] = key;
    auto result = std::make_unique<SFace>();
    result->description = pango_font_description_new();
    pango_font_description_set_family(result->description, FamilyList(face, family).c_str());
    pango_font_description_set_weight(result->description,
                                      style & font::StyleBold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_style(result->description,
                                     style & font::StyleItalic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    pango_font_description_set_absolute_size(result->description, pixelSize * PANGO_SCALE);
    if (style & font::StyleUnderline) {
        result->attributes = pango_attr_list_new();
        pango_attr_list_insert(result->attributes, pango_attr_underline_new(PANGO_UNDERLINE_SINGLE));
    }

    PangoFontMetrics* const metrics = pango_context_get_metrics(m_context, result->description, nullptr);
    int const ascent =
        static_cast<int>(std::ceil(pango_font_metrics_get_ascent(metrics) / double(PANGO_SCALE)));
    int const descent =
        static_cast<int>(std::ceil(pango_font_metrics_get_descent(metrics) / double(PANGO_SCALE)));
    int const average = pango_font_metrics_get_approximate_char_width(metrics) / PANGO_SCALE;
    pango_font_metrics_unref(metrics);
    // Lines stand a whole number of pixels apart, so every line's glyphs sit on the pixel grid alike.
    result->lineHeight = ascent + descent;
    result->metrics = {ascent, 0, descent, average, average * 2, 0};
    return result;
}

void CPangoText::SetLine(std::string_view line) {
    // The backend warns on standard error for every invalid text it is given: such a line is drawn with
    // replacement characters instead, made here once per line.
    if (!g_utf8_validate(line.data(), static_cast<gssize>(line.size()), nullptr)) {
        gchar* const valid = g_utf8_make_valid(line.data(), static_cast<gssize>(line.size()));
        pango_layout_set_text(m_layout, valid, -1);
        g_free(valid);
        return;
    }
    pango_layout_set_text(m_layout, line.data(), static_cast<int>(line.size()));
}

SShapedLine const& CPangoText::Shaped(std::string_view line) {
    if (SShapedLine const* found = m_shaped.Find(m_current, line)) return *found;
    SetLine(line);
    SShapedLine shaped;
    PangoRectangle logical;
    pango_layout_get_extents(m_layout, nullptr, &logical);
    shaped.width = logical.width / double(PANGO_SCALE);
    shaped.direct = !m_current->attributes && CollectRuns(&shaped.runs);
    if (!shaped.direct) shaped.runs.clear();
    return m_shaped.Insert(m_current, line, std::move(shaped));
}

// The positions follow the renderer's arithmetic step by step (line origin plus run advance in layout units,
// then glyph offset), so that the doubles come out bit for bit as when it draws.
bool CPangoText::CollectRuns(std::vector<SGlyphRun>* runs) {
    if (pango_layout_get_line_count(m_layout) != 1) return false;
    PangoLayoutIter* const iter = pango_layout_get_iter(m_layout);
    PangoRectangle logical;
    pango_layout_iter_get_line_extents(iter, nullptr, &logical);
    int const baseline = pango_layout_iter_get_baseline(iter);
    PangoLayoutLine* const line = pango_layout_iter_get_line_readonly(iter);
    pango_layout_iter_free(iter);
    int x = logical.x;
    for (GSList* l = line->runs; l; l = l->next) {
        auto const* const item = static_cast<PangoGlyphItem const*>(l->data);
        if (!OnlyShapingAttributes(item->item->analysis.extra_attrs) || item->y_offset ||
            item->start_x_offset)
            return false;
        cairo_scaled_font_t* const font =
            pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(item->item->analysis.font));
        if (!font) return false;
        SGlyphRun& run = runs->emplace_back();
        run.font.reset(cairo_scaled_font_reference(font));
        run.x = x / double(PANGO_SCALE);
        run.y = baseline / double(PANGO_SCALE);
        int advance = 0;
        for (int i = 0; i < item->glyphs->num_glyphs; ++i) {
            PangoGlyphInfo const& g = item->glyphs->glyphs[i];
            // Missing glyphs are drawn as boxes by the renderer alone.
            if (g.glyph & PANGO_GLYPH_UNKNOWN_FLAG) return false;
            if (g.glyph != PANGO_GLYPH_EMPTY)
                run.glyphs.push_back({g.glyph, (advance + g.geometry.x_offset) / double(PANGO_SCALE),
                                      g.geometry.y_offset / double(PANGO_SCALE)});
            advance += g.geometry.width;
        }
        x += pango_glyph_string_get_width(item->glyphs);
    }
    return true;
}

void CPangoText::Show(cairo_t* cr, double x, double y, std::string_view line) {
    SShapedLine const& shaped = Shaped(line);
    if (!shaped.direct) return ShowLayout(cr, x, y, line);
    for (SGlyphRun const& run : shaped.runs) {
        double const left = x + run.x, baseline = y + run.y;
        m_placed.resize(run.glyphs.size());
        for (std::size_t i = 0; i < run.glyphs.size(); ++i)
            m_placed[i] = {run.glyphs[i].index, left + run.glyphs[i].x, baseline + run.glyphs[i].y};
        cairo_set_scaled_font(cr, run.font.get());
        cairo_show_glyphs(cr, m_placed.data(), static_cast<int>(m_placed.size()));
    }
}

void CPangoText::ShowLayout(cairo_t* cr, double x, double y, std::string_view line) {
    SetLine(line);
    cairo_move_to(cr, x, y);
    pango_cairo_show_layout(cr, m_layout);
    cairo_new_path(cr);
}

} // namespace mirel7::cairo
