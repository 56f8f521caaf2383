#include <mirelfrw7/chart/axis.h>
#include <mirelfrw7/chart/unit_converter.h>
#include <mirelfrw7/core/clip_holder.h>
#include <mirelfrw7/core/control.h>
#include <mirelfrw7/scroll/scroll_converter.h>
#include <mirelfrw7/scroll/scroll_model.h>

#include <mirel7/sys_window.h>
#include <mirel7/window_painter.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace mirelfrw7 {

namespace {

// A zero, however it came out negative, reads without a sign.
void DropSignOfZero(std::string& text) {
    if (text.size() > 1 && text[0] == '-' && text.find_first_not_of("0.", 1) == std::string::npos)
        text.erase(0, 1);
}

IPainter* WindowPainter(IControl* control) {
    mirel7::ISysWindow* const window = control ? control->GetWindow() : nullptr;
    return window ? window->GetPainter() : nullptr;
}

} // namespace

CAxis::CFontHolder::CFontHolder(IPainter* painter, CAxis const& axis)
    : m_painter(painter), m_saved(painter->GetFont()) {
    mirel7::font f = m_saved;
    if (axis.m_convertFont) axis.ConvFont(&f);
    painter->SetFont(f);
}

CAxis::CFontHolder::~CFontHolder() {
    m_painter->SetFont(m_saved);
}

CAxis::CAxis(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CScrollableElementEx(parent, elementSize, alignment) {
    SetAlignment(alignment);
    SetTextConversion(true);
}

bool CAxis::IsInside(point<double> const& p, rectangle<double> const& r) {
    return std::min(r.left, r.right) <= p.x && p.x <= std::max(r.left, r.right) &&
           std::min(r.top, r.bottom) <= p.y && p.y <= std::max(r.top, r.bottom);
}

int CAxis::Thickness() const {
    rectangle<int> const b = GetBounds();
    return int(GetAcross(b.Width(), b.Height()));
}

int CAxis::CalcMinHeight(std::string const& sample) const {
    IPainter* const painter = WindowPainter(m_control);
    if (!painter) return 0;
    mirel7::font const saved = painter->GetFont();
    painter->SetFont(GetFont());
    size<double> const s = painter->GetTextSize(sample.empty() ? "9999" : sample);
    painter->SetFont(saved);
    return m_axisOffset + m_majorTick + m_labelOffset + int(GetAcross(s.cx, s.cy)) + 2;
}

void CAxis::SetUnitConverter(IUnitConverter* converter) {
    m_unitConverter = converter;
}

void CAxis::DrawBackground(IPainter* painter) {
    brush solid;
    solid.style = brush::Solid;
    solid.color = GetBkColor();
    painter->SetBrush(solid);
    painter->FillRect(rectangle<double>(GetBounds()));
}

void CAxis::DrawLine(IPainter* painter, point<double>* at, bool major) {
    painter->MoveTo(at->x, at->y);
    IncAcross(at, major ? m_majorTick : m_minorTick);
    painter->LineTo(at->x, at->y);
}

void CAxis::PrepareAttr(point<double> const&, double) {}

std::string CAxis::GetLabelText(double value, double step) const {
    if (m_unitConverter) {
        value = m_unitConverter->Convert(value);
        step = m_unitConverter->Convert(step) - m_unitConverter->Convert(0);
    }
    char buffer[1280];
    if (std::abs(value) >= 10000) {
        std::snprintf(buffer, sizeof buffer, "%.10g", value);
    } else {
        int decimals = 10;
        if (step >= 10)
            decimals = 0;
        else if (step >= 1)
            decimals = 1;
        else if (step > 0)
            decimals = int(std::abs(std::ceil(std::abs(std::log10(step)))));
        char format[1280];
        std::snprintf(format, sizeof format, "%%.%df", decimals);
        std::snprintf(buffer, sizeof buffer, format, value);
    }
    std::string text = buffer;
    DropSignOfZero(text);
    return text;
}

double CAxis::GetLabelTextSize(CScrollConverter const& converter, IPainter* painter, double value,
                               double step) const {
    // Nines, the widest digits, so that the step does not flicker as the digits change.
    std::string const nines(GetLabelText(value, step).size() + 1, '9');
    size<double> const s = painter->GetTextSize(nines);
    m_labelGapLogic = converter.P2L(m_labelGap) - converter.P2L(0);
    return std::abs(GetAlong(s.cx, s.cy)) + m_labelGapLogic;
}

void CAxis::CalcLogicStep(IPainter* painter) {
    IScrollModel* const model = GetScrollModel();
    if (!model || !painter) return;
    CScrollConverter const converter(model);
    double const p0 = converter.P2L(0), p1 = converter.P2L(1);
    double const unit =
        m_unitConverter ? std::abs(m_unitConverter->Convert(p1) - m_unitConverter->Convert(p0)) : p1 - p0;
    double base = std::pow(10.0, std::ceil(std::log10(unit) - 0.5));
    if (m_unitConverter)
        base = std::abs(m_unitConverter->ConvertBack(base + m_unitConverter->Convert(p0)) - p0);
    double step = base > 0 && std::isfinite(base) ? base : 1.0;
    double need = 0;
    do {
        step *= 10;
        // Both ends give the longest labels; ticks count from the range's start, so a start that is no
        // round number gives labels as long as itself.
        need = 0;
        for (double const end : {model->GetFrom(), model->GetTo()})
            for (double const value : {std::ceil(end / step) * step, end})
                need = std::max(need, GetLabelTextSize(converter, painter, value, step));
    } while (step < need && std::isfinite(step));
    m_subdivisions = 10;
    if (step > need * 2.5) {
        step *= 0.5;
        m_subdivisions = 5;
    }
    while (converter.L2P(p0 + step / m_subdivisions) < 5.0 && m_subdivisions >= 2)
        m_subdivisions /= 2;
    m_step = step;
}

void CAxis::DrawContent(IPainter* painter) {
    if (!painter) return;
    painter->SetElementFlag(0);
    DrawBackground(painter);
    SetCoordSystem(painter);
    CClipHolder const clip(painter, GetDrawRect(painter));
    IScrollModel* const model = GetScrollModel();
    if (!model) return;
    rectangle<double> const rect = GetAxisRect(painter);
    // A backward model maps its range the other way round: only the length counts.
    if (!(std::abs(GetAlong(rect.right - rect.left, rect.bottom - rect.top)) > 0)) return;
    // Labels are measured with the font they are drawn with, turned on a vertical axis.
    CFontHolder const font(painter, *this);
    CalcLogicStep(painter);

    double const from = model->GetFrom(), start = model->GetStart();
    double const d = start - from;
    double const s = d > 0 ? 1.0 : d < 0 ? -1.0 : 0.0;
    double const origin = from + std::ceil(std::abs(d) / m_step) * s * m_step;
    double const minor = m_step / m_subdivisions;
    double const k = std::trunc((origin - start) / minor);
    double value = origin - k * minor;
    int index = m_subdivisions - int(std::fmod(k, m_subdivisions));
    // Counted from the other side, the first multiple may fall just before the start.
    if (value < start) {
        value += minor;
        ++index;
    }
    point<double> at = MakePoint(value, m_axisOffset);
    if (!IsInside(at, rect)) {
        value = start;
        at = MakePoint(value, m_axisOffset);
    }

    m_majorValues.clear();
    m_minorValues.clear();
    double const axisEnd = std::max(GetAlong(rect.left, rect.top), GetAlong(rect.right, rect.bottom));
    double previousEnd = 2.2250738585072014e-308;
    while (IsInside(at, rect)) {
        point<double> tick = at;
        if (index++ % m_subdivisions == 0) {
            DrawLine(painter, &tick, true);
            previousEnd = DrawLabel(painter, tick, value, previousEnd, axisEnd);
            m_majorValues.push_back(value);
        } else {
            DrawLine(painter, &tick, false);
            m_minorValues.push_back(value);
        }
        double const next = value + minor;
        // A step that a huge value absorbs would stand still for ever.
        if (next == value) break;
        IncAlong(&at, next - value);
        value = next;
    }
}

double CAxis::DrawLabel(IPainter* painter, point<double> const& at, double value, double previousEnd,
                        double axisEnd) {
    PrepareAttr(at, value);
    double centre = GetAlong(at.x, at.y);
    std::string const text = GetLabelText(value, m_step);
    size<double> const s = painter->GetTextSize(text);
    double const w = std::abs(GetAlong(s.cx, s.cy));
    double const half = w * 0.5;
    int align = IPainter::AlignHCenter;
    if (centre + half > axisEnd) {
        if (m_labelGapLogic + previousEnd + w > axisEnd) return centre;
        centre = axisEnd - half;
        align = IPainter::AlignRight;
    }
    rectangle<double> const r =
        MakeRect(centre - half, m_labelOffset + m_majorTick, centre + half, Thickness());
    painter->DrawString(r, text, ConvTextAlign(align | IPainter::AlignTop));
    return centre + half;
}

bool CAxis::ScrollContent(int dx, int dy) {
    return CScrollableElementEx::ScrollContent(dx, dy);
}

void CAxis::ProcessSetControl(IControl* control) {
    CScrollableElementEx::ProcessSetControl(control);
    // The layout of an edge depends on the control.
    SetAlignment(GetAlignment());
}

void CAxis::SetAxisOffset(int offset) {
    if (offset == m_axisOffset) return;
    m_axisOffset = offset;
    OnChange(this, UpdateLocal);
}

void CAxis::SetLabelOffset(int offset) {
    if (offset == m_labelOffset) return;
    m_labelOffset = offset;
    OnChange(this, UpdateLocal);
}

void CAxis::SetTickMarksSize(int major, int minor) {
    if (major == m_majorTick && minor == m_minorTick) return;
    m_majorTick = major;
    m_minorTick = minor;
    OnChange(this, UpdateLocal);
}

} // namespace mirelfrw7
