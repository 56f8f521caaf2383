#include <mirelfrw7/antialiasing/line_contour.h>

#include <mirelfrw7/items/saturating_int.h>

#include <mirel7/assert.h>

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace antialiasing {

namespace {
constexpr double NarrowArrow = 0.21255656168466908; // tan 12 degrees
constexpr double WideArrow = 0.3249196962561462;    // tan 18 degrees
// More steps than this along one line would not fit the step counter.
constexpr double MostSteps = 4294967295.0;

// A whole count of samples or steps from a value that is not negative by construction; anything below 0
// (or NaN) counts as none.
unsigned Count(double value) {
    return value >= 1 ? unsigned(std::min(value, MostSteps)) : 0u;
}

bool IsArrow(CapStyle style) {
    return style == CAP_ARROW_NARROW || style == CAP_ARROW_WIDE;
}
bool IsRound(CapStyle style) {
    return style >= CAP_ROUND_LINE && style <= CAP_ROUND_10;
}

// Twice the ceiling of a half-width in samples, as an unsigned count; a ratio without value leaves 0.
unsigned RunSpan(double halfSamples) {
    if (!std::isfinite(halfSamples)) return 0;
    double const c = std::ceil(halfSamples);
    return c <= 0 ? 0u : 2u * unsigned(std::min(c, MostSteps / 2));
}
} // namespace

void CLineContour::CapParams::Set(CapStyle style, unsigned int width, double length, double ownTrim,
                                  double otherTrim) {
    m_style = style;
    m_trim = ownTrim;
    m_radius = m_halfWidth = 0;
    if (!IsArrow(style) && !IsRound(style)) {
        m_length = 0;
        m_extra = int(width / 2 + 5);
        return;
    }
    double const limit = std::min(length, 0.4 * (ownTrim + otherTrim + length));
    if (IsArrow(style)) {
        m_length = std::min(limit, 3.0 * width + 4);
        m_halfWidth = m_length * (style == CAP_ARROW_NARROW ? NarrowArrow : WideArrow);
    } else {
        double const diameters[] = {double(width), 5, 7, 10};
        m_length = std::min(limit, diameters[style - CAP_ROUND_LINE]);
        m_radius = m_length * 0.5;
    }
    m_extra = mirelfrw7::SaturatingInt(std::ceil(std::max(m_radius, m_halfWidth))) + 5;
}

CLineContour::~CLineContour() = default;

int CLineContour::GetExtraArea(CapStyle style, unsigned int width) {
    CapParams cap;
    cap.Set(style, width, DBL_MAX, 0, 0);
    return cap.m_extra;
}

void CLineContour::AddPoint(double x, double y, CColorInfo& colour, unsigned int count) {
    if (count == 1) {
        CContour::AddPoint(x, y, colour, 0, m_sampleWeight);
        return;
    }
    double sx = x - m_crossHalfX, sy = y - m_crossHalfY;
    for (unsigned i = 0; i < count; ++i, sx += m_crossStepX, sy += m_crossStepY)
        CContour::AddPoint(sx, sy, colour, 0, m_sampleWeight);
}

void CLineContour::GenerateCaptionsOnly() {
    m_captionsOnly = true;
    Generate(nullptr, nullptr);
    m_captionsOnly = false;
}

void CLineContour::Generate(CContour* overlayFirst, CContour* overlaySecond) {
    double const coordinates[] = {m_x1, m_y1, m_x2, m_y2};
    bool const finite = std::all_of(std::begin(coordinates), std::end(coordinates),
                                    [](double v) { return std::isfinite(v); });
    MIREL_ASSERT(finite);
    if (!finite) return;
    double const dx = m_x2 - m_x1, dy = m_y2 - m_y1;
    double const length = std::sqrt(dx * dx + dy * dy);
    double const steps = std::ceil(m_density * length / 100);
    // Beyond the step counter the line would be walked with a wrong step.
    MIREL_ASSERT(steps <= MostSteps);
    if (length == 0 || !(steps <= MostSteps) || steps < 1) return;

    CapParams start, end;
    start.Set(m_startCap, m_width, length, m_startTrim, m_endTrim);
    end.Set(m_endCap, m_width, length, m_endTrim, m_startTrim);
    unsigned const n = unsigned(steps);
    double const stepX = dx / n, stepY = dy / n;
    // Samples on whole coordinates would count in full: a quarter step keeps them off, and lines of even
    // width are centred half a pixel further.
    double offX = 0.25 * stepX, offY = 0.25 * stepY;
    if (m_width % 2 == 0 || stepX == 0) offX += 0.25;
    if (m_width % 2 == 0 || stepY == 0) offY += 0.25;
    // A round cap is centred on the end of the line.
    double px = m_x1 + offX - stepX * start.m_radius;
    double py = m_y1 + offY - stepY * start.m_radius;

    CColorInfo colour = m_startColor;
    CColorInfo const& s = m_startColor;
    CColorInfo const& e = m_endColor;
    bool const gradient = s.r != e.r || s.g != e.g || s.b != e.b || s.a != e.a;
    CColorInfoR colourStep;
    if (gradient) {
        // Short of the full difference, so that the sum never overshoots the end colour.
        double const f = 0.999 / (double(n) + 1);
        colourStep.r = (double(e.r) - double(s.r)) * f;
        colourStep.g = (double(e.g) - double(s.g)) * f;
        colourStep.b = (double(e.b) - double(s.b)) * f;
        colourStep.a = (double(e.a) - double(s.a)) * f;
    }
    m_sampleWeight = m_opacity / 255.0;

    DrawCaption(start, true, px, py, stepX, stepY, colour, colourStep, gradient);
    double const startSpan = std::max(start.m_length - start.m_radius - m_startTrim, 0.0);
    double const endSpan = std::max(end.m_length - end.m_radius - m_endTrim, 0.0);
    unsigned const count = Count((length + 0.5 - endSpan - startSpan) * m_density / 100);
    if (m_captionsOnly) {
        px += stepX * count;
        py += stepY * count;
    } else {
        m_crossStepX = -stepY;
        m_crossStepY = stepX;
        double const w = double(m_width) - 1;
        m_crossHalfX = -stepY * 0.5 * w;
        m_crossHalfY = stepX * 0.5 * w;
        DrawBody(px, py, stepX, stepY, count, colour, colourStep, gradient);
    }
    DrawCaption(end, false, px, py, stepX, stepY, colour, colourStep, gradient);
    if (overlayFirst) Overlay(overlayFirst, overlaySecond);
}

void CLineContour::DrawBody(double& x, double& y, double stepX, double stepY, unsigned count,
                            CColorInfo& colour, CColorInfoR& colourStep, bool gradient) {
    unsigned const w = m_width;
    // The patterns are in units of the width; a width of 0 draws no samples and needs no pattern.
    auto const drawn = [this, w](unsigned long i) {
        if (w == 0) return false;
        unsigned long const unit = i / w;
        switch (m_dash) {
        case 2:
            return (unit & 3) != 0;
        case 3:
            return (unit & 1) != 0;
        case 4: {
            unsigned long const k = (i % (6ul * w)) / w;
            return k != 3 && k != 5;
        }
        case 5:
            return (unit & 1) != 0 || (unit & 7) == 2;
        default:
            return true;
        }
    };
    if (m_dash < 1 || m_dash > 5) return;
    unsigned long const first = m_dash == 1 || m_dash == 4 ? 0 : w;
    for (unsigned long i = first; i < first + count; ++i) {
        if (drawn(i)) AddPoint(x, y, colour, w);
        x += stepX;
        y += stepY;
        if (gradient) colour += colourStep;
    }
}

void CLineContour::DrawCaption(CapParams cap, bool atStart, double& x, double& y, double stepX, double stepY,
                               CColorInfo& colour, CColorInfoR& colourStep, bool gradient) {
    bool const arrow = IsArrow(cap.m_style);
    if ((!arrow && !IsRound(cap.m_style)) || cap.m_trim > cap.m_length) return;
    unsigned const n = Count((cap.m_length - cap.m_trim) * m_density / 100 + 0.5);
    // Arrowheads: the half-vector across the line grows from the tip to the base or shrinks back.
    double const baseX = -stepY * cap.m_halfWidth, baseY = stepX * cap.m_halfWidth;
    double const growX = baseX / (double(n) - 1), growY = baseY / (double(n) - 1);
    double halfX = atStart ? 0 : baseX, halfY = atStart ? 0 : baseY;
    // Round caps: the position along the disc.
    double u = -cap.m_radius;
    for (unsigned step = 0; step < n; ++step) {
        unsigned c;
        if (arrow) {
            m_crossHalfX = halfX;
            m_crossHalfY = halfY;
            c = RunSpan(stepY == 0 ? m_crossHalfY / stepX : m_crossHalfX / -stepY);
            if (step + 1 < n) {
                halfX += atStart ? growX : -growX;
                halfY += atStart ? growY : -growY;
            }
        } else {
            double const h = std::sqrt(std::max(cap.m_radius * cap.m_radius - u * u, 0.0));
            u += cap.m_length / n;
            m_crossHalfX = -stepY * h;
            m_crossHalfY = stepX * h;
            // On a horizontal line the ratio has no value and the run stays one sample: part of the look.
            c = stepY == 0 ? 0 : RunSpan(std::fabs(m_crossHalfX / -stepY));
        }
        if (c + 1 >= 2) {
            m_crossStepX = m_crossHalfX * 2 / c;
            m_crossStepY = m_crossHalfY * 2 / c;
        }
        AddPoint(x, y, colour, c + 1);
        x += stepX;
        y += stepY;
        if (gradient) colour += colourStep;
    }
}

} // namespace antialiasing
