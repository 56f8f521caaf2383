#include <mirel7/cairo/pango_text.h>
#include <mirel7/painter_base.h>

#include <cmath>
#include <mutex>
#include <utility>

namespace mirel7::cairo {

namespace {

// Enough for the captions of a large window; past it the cache starts over rather than growing.
constexpr std::size_t MaxCachedWidths = 4096;

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

} // namespace

CPangoText::SFace::~SFace() {
    pango_font_description_free(description);
    if (attributes) pango_attr_list_unref(attributes);
}

CPangoText::CPangoText() {
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

double CPangoText::LineWidth(std::string_view line) {
    auto& widths = Current().widths;
    if (auto const found = widths.find(line); found != widths.end()) return found->second;
    SetLine(line);
    PangoRectangle logical;
    pango_layout_get_extents(m_layout, nullptr, &logical);
    double const width = logical.width / double(PANGO_SCALE);
    if (widths.size() >= MaxCachedWidths) widths.clear();
    widths.emplace(line, width);
    return width;
}

void CPangoText::Show(cairo_t* cr, std::string_view line) {
    SetLine(line);
    pango_cairo_show_layout(cr, m_layout);
}

} // namespace mirel7::cairo
