#include <mirelfrw7/scroll/scroll_element.h>
#include <mirelfrw7/scroll/scroll_model.h>

#include <mirel7/event_sender.h>

#include <algorithm>
#include <cmath>

namespace mirelfrw7 {

namespace {
using mirel7::CScrollEvent;
using mirel7::SScrollBarInfo;

// The page in pixels; with inseparable steps only the steps that show whole count, besides the rest of the
// partly scrolled one.
double PagePixels(IScrollModel& model, CScrollConverter const& converter, int page) {
    if (!model.IsInseparableStep()) return page;
    double const start = model.GetStart();
    double const k = double(int(start));
    double const s = model.GetStepSize(k);
    double const first = s - start + k;
    double room = converter.P2L(page) - first;
    int n = 0;
    for (double step = k + 1; step < model.GetTo() && room >= 0; step += 1) {
        room -= model.GetStepSize(step);
        if (room >= 0) ++n;
    }
    return converter.L2P(s != 0.0 ? first / s + n : n);
}

// The bar's record for `model` over `page` pixels, the model rescaled first so that it fits into 31 bits.
SScrollBarInfo Measure(IScrollModel& model, CScrollConverter& converter, int page) {
    converter.NormalizeScale();
    SScrollBarInfo info;
    double const from = converter.L2P(model.GetFrom());
    info.maximum = std::abs(int(converter.L2P(model.GetTo()) - from));
    info.page = PagePixels(model, converter, std::max(page, 1));
    info.lineStep = model.GetMinScrollDistance();
    info.position = std::abs(int(converter.L2P(model.GetStart()) - from));
    info.reversed = model.GetTo() < model.GetFrom();
    return info;
}

bool Fits(SScrollBarInfo const& info) {
    return std::abs(int(info.maximum)) <= info.page;
}
} // namespace

bool CScrollElement::Overflows(IScrollModel* model, int page) {
    if (!model) return false;
    CScrollConverter converter(model);
    return !Fits(Measure(*model, converter, page));
}

void CScrollElement::Recalculate(IScrollModel* model, int page) {
    if (!m_bar) return;
    // A model taken away may die: the bar's gestures must not reach it any more.
    m_converter = CScrollConverter(model);
    if (!model || m_barMode == BarNever) {
        m_barVisible = m_barMode == BarAlways;
        m_bar->SetEnabled(false);
        return;
    }
    SScrollBarInfo info = Measure(*model, m_converter, page);
    if (info.maximum < info.position + info.page && info.page < info.maximum) {
        info.position = std::max(0.0, info.maximum - info.page);
        // A backward range counts the position down from GetFrom, which is the upper end of its pixels.
        int const pixel =
            info.reversed ? int(m_converter.L2P(model->GetFrom()) - info.position) : int(info.position);
        sigScroll(CScrollEvent::LineDown, m_converter.P2L(pixel));
    }
    if (!Fits(info)) {
        m_barVisible = true;
        m_bar->SetInfo(info);
        m_bar->SetEnabled(m_barEnabled);
        return;
    }
    m_barVisible = m_barMode == BarAlways;
    double const low = std::min(model->GetFrom(), model->GetTo());
    if (model->GetStart() != low) model->SetStart(low);
    m_bar->SetEnabled(false);
}

void CScrollElement::ScrollBarOnScroll(CScrollEvent* event) {
    if (!m_bar) return;
    SScrollBarInfo const info = m_bar->GetInfo();
    double v = event->position;
    if (v + info.page > info.maximum) v = info.maximum - info.page;
    if (info.reversed) v = info.maximum - info.page - v;
    sigScroll(event->action, m_converter.P2L(int(v)));
}

void CScrollElement::SetVal(double value) {
    if (!m_bar) return;
    double const shown = m_bar->SetPos(int(m_converter.L2P(value)));
    sigScroll(CScrollEvent::SetPosition, m_converter.P2L(int(shown)));
}

double CScrollElement::GetVal() const {
    return m_bar ? m_converter.P2L(int(m_bar->GetPos())) : 0.0;
}

void CScrollElement::SetBar(mirel7::IScrollBar* bar) {
    if (bar == m_bar) return;
    if (m_bar) m_bar->GetEventSender()->Unsubscribe<mirel7::IScrollBarNotify>(this);
    m_bar = bar;
    if (m_bar) m_bar->GetEventSender()->Subscribe<mirel7::IScrollBarNotify>(this);
}

} // namespace mirelfrw7
