#pragma once

#include <mirel7/text_flow.h>
#include <mirel7/types.h>

#include <cairo.h>
#include <pango/pangocairo.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>

namespace mirel7::cairo {

// Fonts and line measurement through Pango. Each font is described once and keeps the widths of the lines
// it measured, since the framework measures the same captions and the same "W" over and over; one layout
// serves every line.
class CPangoText final : public ITextMeasure {
public:
    CPangoText();
    ~CPangoText();
    CPangoText(CPangoText const&) = delete;
    CPangoText& operator=(CPangoText const&) = delete;

    // Makes `f` at `dpiScale` the font of the calls that follow; the first Select comes before them, so that
    // a picture that never shows text never loads a font.
    void Select(font const& f, double dpiScale);

    double LineWidth(std::string_view line) override;
    double LineHeight() override { return Current().lineHeight; }
    fontmetrics const& Metrics() { return Current().metrics; }
    // Draws one line with the top left of its box at the current point of `cr`.
    void Show(cairo_t* cr, std::string_view line);

private:
    struct SHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view s) const { return std::hash<std::string_view>{}(s); }
    };
    struct SFace {
        PangoFontDescription* description = nullptr;
        PangoAttrList* attributes = nullptr;
        fontmetrics metrics;
        double lineHeight = 0;
        std::unordered_map<std::string, double, SHash, std::equal_to<>> widths;
        ~SFace();
    };
    // Face list, family, style bits, pixel size.
    using SKey = std::tuple<std::string, int, int, double>;

    SFace& Current();
    std::unique_ptr<SFace> Describe(SKey const& key);
    void SetLine(std::string_view line);

    PangoContext* m_context = nullptr;
    PangoLayout* m_layout = nullptr;
    std::map<SKey, std::unique_ptr<SFace>> m_faces;
    font m_selected;
    double m_selectedScale = 0;
    SFace* m_current = nullptr;
};

} // namespace mirel7::cairo
