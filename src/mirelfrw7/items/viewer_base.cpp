#include <mirelfrw7/core/clip_holder.h>
#include <mirelfrw7/core/control.h>
#include <mirelfrw7/items/event_handler.h>
#include <mirelfrw7/items/viewer_base.h>
#include <mirelfrw7/scroll/axis_mapping.h>

namespace mirelfrw7 {

CViewerBase::CViewerBase(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CCentralPart(parent, elementSize, alignment) {
    ListenEndDraw(m_control);
}

CViewerBase::~CViewerBase() {
    ListenEndDraw(nullptr);
}

void CViewerBase::ListenEndDraw(IControl* control) {
    if (m_endDrawControl) m_endDrawControl->sigAfterPaint.disconnect(this, &CViewerBase::OnEndDraw);
    m_endDrawControl = control;
    if (control) control->sigAfterPaint.connect(this, &CViewerBase::OnEndDraw);
}

void CViewerBase::ProcessSetControl(IControl* control) {
    CCentralPart::ProcessSetControl(control);
    ListenEndDraw(control);
}

void CViewerBase::OnEndDraw() {
    ProcessEndDraw();
}

void CViewerBase::SetDefEventHandler(CEventHandler* handler) {
    if (!handler) return;
    handler->SetNext(m_firstHandler);
    m_firstHandler = handler;
}

void CViewerBase::AddEventHandler(CEventHandler* handler) {
    if (!handler) return;
    if (!m_firstHandler) {
        SetDefEventHandler(handler);
        return;
    }
    CEventHandler* last = m_firstHandler;
    while (last->GetNext())
        last = last->GetNext();
    handler->SetNext(nullptr);
    last->SetNext(handler);
}

void CViewerBase::RemoveEventHandler(CEventHandler* handler) {
    if (!handler) return;
    if (m_firstHandler == handler) {
        m_firstHandler = handler->GetNext();
        handler->SetNext(nullptr);
        return;
    }
    for (CEventHandler* h = m_firstHandler; h; h = h->GetNext())
        if (h->GetNext() == handler) {
            h->SetNext(handler->GetNext());
            handler->SetNext(nullptr);
            return;
        }
}

template <class F>
bool CViewerBase::Offer(F const& process) {
    bool handled = false, stop = false;
    for (CEventHandler* h = m_firstHandler; h && !stop; h = h->GetNext())
        handled |= process(h, &stop);
    return handled;
}

bool CViewerBase::HandleMouseMove(int x, int y, int flags, MouseButton button) {
    return Offer(
        [&](CEventHandler* h, bool* stop) { return h->ProcessMouseMove(x, y, flags, button, stop); });
}

bool CViewerBase::HandleButtonDown(int x, int y, int flags, MouseButton button) {
    return Offer(
        [&](CEventHandler* h, bool* stop) { return h->ProcessButtonDown(x, y, flags, button, stop); });
}

bool CViewerBase::HandleButtonUp(int x, int y, int flags, MouseButton button) {
    return Offer([&](CEventHandler* h, bool* stop) { return h->ProcessButtonUp(x, y, flags, button, stop); });
}

bool CViewerBase::HandleClick(int x, int y, int flags, MouseButton button) {
    return Offer([&](CEventHandler* h, bool* stop) { return h->ProcessClick(x, y, flags, button, stop); });
}

bool CViewerBase::HandleDoubleClick(int x, int y, int flags, MouseButton button) {
    return Offer(
        [&](CEventHandler* h, bool* stop) { return h->ProcessDoubleClick(x, y, flags, button, stop); });
}

void CViewerBase::HandleMouseHover(CVisualElement*) {
    Offer([](CEventHandler* h, bool* stop) { return h->ProcessMouseHover(stop); });
}

void CViewerBase::HandleMouseLeave(CVisualElement*) {
    Offer([](CEventHandler* h, bool* stop) { return h->ProcessMouseLeave(stop); });
}

bool CViewerBase::HandleKeyDown(int flags, int key) {
    return Offer([&](CEventHandler* h, bool* stop) { return h->ProcessKeyDown(flags, key, stop); });
}

bool CViewerBase::HandleKeyUp(int flags, int key) {
    return Offer([&](CEventHandler* h, bool* stop) { return h->ProcessKeyUp(flags, key, stop); });
}

bool CViewerBase::HandleChar(char c) {
    return Offer([&](CEventHandler* h, bool* stop) { return h->ProcessChar(c, stop); });
}

bool CViewerBase::HandleOnTooltip(mirel7::CTooltipEvent* ev) {
    return Offer([&](CEventHandler* h, bool* stop) { return h->ProcessOnTooltip(ev, stop); });
}

bool CViewerBase::HandleOnTooltipTrack(mirel7::CTooltipEvent* ev) {
    return Offer([&](CEventHandler* h, bool* stop) { return h->ProcessOnTooltipTrack(ev, stop); });
}

bool CViewerBase::HandleContextMenu(int x, int y) {
    return Offer([&](CEventHandler* h, bool* stop) { return h->ProcessContextMenu(x, y, stop); });
}

void CViewerBase::HandleGetFocus(CVisualElement*, bool) {
    Offer([](CEventHandler* h, bool* stop) { return h->ProcessGetFocus(stop); });
}

void CViewerBase::HandleLostFocus(CVisualElement*) {
    Offer([](CEventHandler* h, bool* stop) { return h->ProcessLostFocus(stop); });
}

void CViewerBase::SetPos(rectangle<int> const& newRect, bool force) {
    rectangle<int> const old = GetBounds();
    CCentralPart::SetPos(newRect, force);
    rectangle<int> const now = GetBounds();
    for (CEventHandler* h = m_firstHandler; h; h = h->GetNext())
        h->ProcessResize(old, now, false);
}

void CViewerBase::SetCoordSystem(IPainter*) {}

// No background fill: the items and the empty area behind them cover every pixel.
void CViewerBase::DrawContent(IPainter* painter) {
    if (!m_firstHandler || !painter) return;
    rectangle<int> r = Truncated(GetDrawRect(nullptr));
    ControlToElement(&r);
    rectangle<double> const rect(r);
    CClipHolder clip(painter, rect);
    m_firstHandler->ProcessDraw(painter, rect);
}

// The handlers' view models have shifted the pixels already, through their scroll notices; a second shift
// here would move them twice.
bool CViewerBase::ScrollContent(int dx, int dy) {
    for (CEventHandler* h = m_firstHandler; h; h = h->GetNext())
        h->ProcessScroll(dx, dy);
    OnChange(this, UpdateLocal);
    return dx != 0 || dy != 0;
}

} // namespace mirelfrw7
