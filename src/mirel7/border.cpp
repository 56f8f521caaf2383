#include <mirel7/border.h>
#include <mirel7/painter.h>

#include <algorithm>

namespace mirel7 {

namespace {

enum Edge { EdgeLeft = 1, EdgeTop = 2, EdgeRight = 4, EdgeBottom = 8, EdgeAll = 15 };

int EdgesOf(BorderShape shape) {
    static constexpr int edges[] = {
        EdgeAll, EdgeAll, EdgeBottom, EdgeTop, EdgeLeft, EdgeRight, EdgeBottom | EdgeRight};
    return edges[shape];
}

// The colours of one line of edges: one for the top and left edges, one for the bottom and right ones.
// ColorNone leaves the edges out.
struct SLine {
    ISysPalette::SysColor topLeft, bottomRight;
};

struct SShading {
    SLine outer, inner;
};

SShading ShadingOf(BorderStyle style) {
    using P = ISysPalette;
    switch (style) {
    case BorderRaised:
        return {{P::ColorLight, P::ColorDarkShadow}, {P::ColorNone, P::ColorShadow}};
    case BorderSunken:
        return {{P::ColorShadow, P::ColorLight}, {P::ColorDarkShadow, P::ColorNone}};
    default:
        return {{P::ColorShadow, P::ColorShadow}, {P::ColorNone, P::ColorNone}};
    }
}

class CBorderPainter {
public:
    // Nothing is filled outside `within`: the inner line of a frame thinner than two lines would fall
    // beyond it.
    CBorderPainter(IPainter* painter, rectangle<double> const& within)
        : m_painter(painter), m_palette(painter->GetCustomPalette()), m_within(within) {}

    _color Color(ISysPalette::SysColor index) const {
        if (m_palette) return m_palette->GetColor(index);
        ISysPalette* const system = GetSysPalette();
        return (system ? system : GetDefaultPalette())->GetColor(index);
    }

    void Fill(ISysPalette::SysColor index, double left, double top, double right, double bottom) {
        left = std::max(left, m_within.left);
        top = std::max(top, m_within.top);
        right = std::min(right, m_within.right);
        bottom = std::min(bottom, m_within.bottom);
        if (index == ISysPalette::ColorNone || left > right || top > bottom) return;
        m_painter->SetBrush(brush{Color(index)});
        m_painter->FillRect(left, top, right, bottom);
    }

    // One line of edges, `t` thick, along the inside of `r`; `corners` false leaves the corner squares out.
    void Line(rectangle<double> const& r, int edges, SLine const& line, double t, bool corners) {
        double const cut = corners ? 0 : t;
        if (edges & EdgeTop) Fill(line.topLeft, r.left + cut, r.top, r.right - cut, r.top + t - 1);
        if (edges & EdgeLeft) Fill(line.topLeft, r.left, r.top + cut, r.left + t - 1, r.bottom - cut);
        if (edges & EdgeBottom)
            Fill(line.bottomRight, r.left + cut, r.bottom - t + 1, r.right - cut, r.bottom);
        if (edges & EdgeRight) Fill(line.bottomRight, r.right - t + 1, r.top + cut, r.right, r.bottom - cut);
    }

private:
    IPainter* m_painter;
    ICustomPalette* m_palette;
    rectangle<double> m_within;
};

rectangle<double> Inset(rectangle<double> const& r, int edges, double t) {
    return {r.left + (edges & EdgeLeft ? t : 0), r.top + (edges & EdgeTop ? t : 0),
            r.right - (edges & EdgeRight ? t : 0), r.bottom - (edges & EdgeBottom ? t : 0)};
}

} // namespace

void DrawBorder(IPainter* painter, rectangle<double> const& rect, BorderShape shape, BorderStyle style,
                bool fill) {
    if (!painter || shape < BorderBox || shape >= BorderNone) return;
    brush const saved = painter->GetBrush();
    rectangle<double> const r = rect.Normalized();
    int const edges = EdgesOf(shape);
    bool const soft = shape == BorderSoftBox;
    double const t = std::max(1, static_cast<int>(painter->GetDPIScale()));
    SShading const shading = ShadingOf(style);
    CBorderPainter border(painter, r);
    if (fill) {
        // A soft box keeps its corners clear: its inside starts within the outer line.
        rectangle<double> const inside = soft ? Inset(r, edges, t) : r;
        border.Fill(ISysPalette::ColorElementBackground, inside.left, inside.top, inside.right,
                    inside.bottom);
    }
    border.Line(r, edges, shading.outer, t, !soft);
    border.Line(Inset(r, edges, t), edges, shading.inner, t, true);
    painter->SetBrush(saved);
}

} // namespace mirel7
