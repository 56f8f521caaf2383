#include <mirelfrw7/chart/caption_source.h>
#include <mirelfrw7/chart/categorical_axis.h>
#include <mirelfrw7/core/clip_holder.h>
#include <mirelfrw7/scroll/scroll_model.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace mirelfrw7 {

namespace {

// Captions may overflow their rectangle and are cut to it.
constexpr int ClippedText = 0x140;

} // namespace

void CCategoricalAxis::updateCategoryLabelRect(rectangle<double>&, double, double) {}

void CCategoricalAxis::drawOneCategoryLabel(IPainter* painter, rectangle<double> const& rect,
                                            std::string const& text) {
    painter->DrawString(rect, text.c_str(),
                        ConvTextAlign(IPainter::AlignHCenter | IPainter::AlignTop) | ClippedText, -1);
}

std::string CCategoricalAxis::getCaption(double value) const {
    if (m_captionSource) return m_captionSource->GetCaption(int(value));
    char buffer[255];
    std::snprintf(buffer, sizeof buffer, "%g", value);
    return buffer;
}

void CCategoricalAxis::DrawContent(IPainter* painter) {
    if (!painter) return;
    painter->SetElementFlag(0);
    rectangle<double> const drawRect = GetDrawRect(painter);
    if (!(drawRect.Width() > 0) || !(drawRect.Height() > 0)) return;
    CClipHolder const clip(painter, drawRect);
    DrawBackground(painter);
    SetCoordSystem(painter);
    IScrollModel* const model = GetScrollModel();
    if (!model) return;
    rectangle<double> const rect = GetAxisRect(painter);
    CFontHolder const font(painter, *this);
    double index = std::trunc(std::ceil(model->GetStart()) + 0.5);
    point<double> at = MakePoint(index, m_axisOffset);
    double const span = 1.0;
    double const last = std::max(model->GetFrom(), model->GetTo());
    while (IsInside(at, rect) && index < last) {
        point<double> tick = at;
        if (!m_captionSource || !m_captionSource->GetCaption(int(index)).empty())
            DrawLine(painter, &tick, true);
        DrawLabel(painter, tick, index, span);
        IncAlong(&at, model->GetStepSize(index));
        index += span;
    }
}

void CCategoricalAxis::DrawLabel(IPainter* painter, point<double> const& at, double value, double span) {
    PrepareAttr(at, value);
    m_lastLabelRect = getCategoryLabelRect(painter, at, value, span);
    drawOneCategoryLabel(painter, m_lastLabelRect, getCaption(value));
}

rectangle<double> CCategoricalAxis::getCategoryLabelRect(IPainter* painter, point<double> const& at,
                                                         double value, double span) {
    double const centre = GetAlong(at.x, at.y);
    size<double> const s = painter->GetTextSize(getCaption(value));
    double const half = std::abs(GetAlong(s.cx, s.cy)) * 0.5;
    // Room for a caption a little thicker than the strip; the painter cuts it.
    rectangle<double> rect = MakeRect(centre - half, 8.0, centre + half, Thickness() + 16);
    updateCategoryLabelRect(rect, value, span);
    return rect;
}

} // namespace mirelfrw7
