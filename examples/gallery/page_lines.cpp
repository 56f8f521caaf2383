// Lines: antialiased lines drawn from samples on the left, the same lines stroked by the painter on the
// right. Every cap at three widths, the dash patterns, gradients, a fan at one-degree steps and a small
// chart.
#include "gallery.h"

#include <mirelfrw7/antialiasing/draw_line.h>
#include <mirelfrw7/antialiasing/line_contour.h>
#include <mirelfrw7/core/drawing_context.h>

#include <cmath>
#include <string>

namespace gallery {

namespace {
using mirel7::_color;
using mirel7::IPainter;
using mirel7::point;
using namespace mirelfrw7;

constexpr int PanelWidth = 400;
constexpr _color Ink(30, 60, 140);

// One half of the page: every line drawn smooth (DrawLine, or a contour for gradients) or plain (LineTo).
class CPanel {
public:
    CPanel(IPainter* painter, int left, int top, bool smooth)
        : m_painter(painter), m_left(left), m_top(top), m_smooth(smooth) {}

    void Title(int y, std::string const& text, int x = 8) {
        m_painter->SetTextColor(_color(60, 60, 70));
        m_painter->DrawString(
            mirel7::rectangle<double>(m_left + x, m_top + y, m_left + PanelWidth, m_top + y + 16), text,
            IPainter::AlignLeft | IPainter::AlignVCenter);
    }
    void Line(point<double> a, point<double> b, CapStyle cap = CAP_NONE) { Line(a, b, cap, cap); }
    void Line(point<double> a, point<double> b, CapStyle capA, CapStyle capB) {
        a = {a.x + m_left, a.y + m_top};
        b = {b.x + m_left, b.y + m_top};
        if (m_smooth) {
            DrawLine(m_painter, a, b, capA, capB);
            return;
        }
        m_painter->MoveTo(a.x, a.y);
        m_painter->LineTo(b.x, b.y);
    }
    // A line from one colour to another; the plain side takes the first.
    void Gradient(point<double> a, point<double> b, unsigned width, _color from, _color to) {
        if (!m_smooth) {
            m_painter->SetPen({from, int(width)});
            Line(a, b);
            return;
        }
        antialiasing::CLineContour line(0);
        line.m_x1 = a.x + m_left, line.m_y1 = a.y + m_top, line.m_x2 = b.x + m_left, line.m_y2 = b.y + m_top;
        line.m_width = width;
        line.m_opacity = 216;
        line.m_startColor = {from.r, from.g, from.b, 255, 0};
        line.m_endColor = {to.r, to.g, to.b, 255, 0};
        line.Generate(nullptr, nullptr);
        line.Normalize(254);
        // The context works in the element's own coordinates, which the painter maps.
        CDrawingContext context(m_painter);
        line.Draw(&context);
    }

private:
    IPainter* m_painter;
    int m_left, m_top;
    bool m_smooth;
};

class CLinesSample : public CVisualElement {
public:
    explicit CLinesSample(CVisualElement* parent) : CVisualElement(parent, {0, 0}, AlignClient) {
        SetBkColor(_color(252, 252, 250));
    }

    void DrawContent(IPainter* painter) override {
        mirel7::rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        painter->SetPen({_color(210, 210, 215)});
        painter->MoveTo(b.left + PanelWidth - 1, b.top);
        painter->LineTo(b.left + PanelWidth - 1, b.bottom);
        CPanel smooth(painter, b.left, b.top, true), plain(painter, b.left + PanelWidth, b.top, false);
        smooth.Title(2, "DrawLine: samples spread over pixels");
        plain.Title(2, "LineTo: the painter's own stroke");
        for (CPanel* panel : {&smooth, &plain}) {
            Caps(painter, *panel);
            Dashes(painter, *panel);
            Gradients(*panel);
            Fan(painter, *panel);
            Chart(painter, *panel);
        }
    }

private:
    static void Caps(IPainter* painter, CPanel& panel) {
        panel.Title(22, "caps 0 to 6 at widths 1, 3 and 6");
        int const widths[] = {1, 3, 6};
        for (int cap = 0; cap <= 6; ++cap)
            for (int column = 0; column < 3; ++column) {
                painter->SetPen({Ink, widths[column]});
                double const x = 24 + column * 125, y = 50 + cap * 22;
                panel.Line({x, y}, {x + 95, y + 7}, CapStyle(cap));
            }
    }
    static void Dashes(IPainter* painter, CPanel& panel) {
        panel.Title(202, "solid, dash, dot, dash-dot, dash-dot-dot at widths 1 and 2");
        for (int style = 1; style <= 5; ++style)
            for (int column = 0; column < 2; ++column) {
                painter->SetPen({_color(140, 40, 40), column + 1, mirel7::pen::PenStyle(style)});
                double const x = 24 + column * 185, y = 226 + (style - 1) * 12;
                panel.Line({x, y}, {x + 165, y + 4});
            }
    }
    static void Gradients(CPanel& panel) {
        panel.Title(286, "gradients");
        panel.Gradient({24, 312}, {370, 318}, 2, _color(220, 40, 40), _color(40, 80, 230));
        panel.Gradient({24, 328}, {370, 334}, 5, _color(250, 200, 0), _color(20, 150, 60));
    }
    static void Fan(IPainter* painter, CPanel& panel) {
        panel.Title(348, "a fan at one-degree steps");
        painter->SetPen({Ink, 1});
        double const cx = 24, cy = 372, radius = 170;
        for (int degree = 0; degree <= 90; ++degree) {
            double const angle = degree * 3.14159265358979323846 / 180;
            panel.Line({cx, cy}, {cx + radius * std::cos(angle), cy + radius * std::sin(angle)});
        }
    }
    static void Chart(IPainter* painter, CPanel& panel) {
        panel.Title(372, "a small chart", 210);
        painter->SetPen({_color(210, 210, 215), 1});
        panel.Line({210, 520}, {380, 520});
        panel.Line({210, 400}, {210, 520});
        double const values[] = {30, 55, 42, 80, 74, 96, 60, 88, 104, 92, 110, 70};
        point<double> last{};
        for (int i = 0; i < 12; ++i) {
            point<double> const p{214 + i * 15.0, 516 - values[i]};
            painter->SetPen({_color(20, 120, 90), 2});
            if (i > 0) panel.Line(last, p, CAP_NONE, i == 11 ? CAP_ARROW_WIDE : CAP_NONE);
            last = p;
        }
    }
};
} // namespace

void BuildLinesPage(CVisualElement* host) {
    new CLinesSample(host);
}

GALLERY_PAGE(70, "lines", BuildLinesPage)

} // namespace gallery
