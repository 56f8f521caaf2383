#include <mirel7/painter.h>
#include <mirel7/sys_scroll_bar.h>
#include <mirel7/system.h>

#include <algorithm>
#include <cmath>

namespace mirel7 {

namespace {

double Finite(double value, double fallback) {
    return std::isfinite(value) ? value : fallback;
}

IPainter::ControlElement PieceOf(CSysScrollBar::Part part, bool vertical) {
    switch (part) {
    case CSysScrollBar::PartArrowDec:
        return vertical ? IPainter::ControlScrollArrowUp : IPainter::ControlScrollArrowLeft;
    case CSysScrollBar::PartArrowInc:
        return vertical ? IPainter::ControlScrollArrowDown : IPainter::ControlScrollArrowRight;
    case CSysScrollBar::PartThumb:
        return vertical ? IPainter::ControlScrollThumbVert : IPainter::ControlScrollThumbHorz;
    default:
        return vertical ? IPainter::ControlScrollTrackVert : IPainter::ControlScrollTrackHorz;
    }
}

} // namespace

CSysScrollBar::CSysScrollBar(CSysWindowBase& window, ISysWindow::ScrollType type)
    : CCustomControlBase(window), m_vertical(type == ISysWindow::ScrollVertical) {
    Sender().SetSupportedEvent(typeid(IScrollBarNotify));
}

CSysScrollBar::~CSysScrollBar() = default;

void CSysScrollBar::SetInfo(SScrollBarInfo const& info) {
    SScrollBarInfo next = info;
    next.minimum = Finite(info.minimum, 0);
    next.maximum = std::max(next.minimum, Finite(info.maximum, next.minimum));
    double const lineStep = Finite(info.lineStep, 1);
    next.lineStep = lineStep > 0 ? lineStep : 1;
    next.page = std::clamp(Finite(info.page, 0), 0.0, next.maximum - next.minimum + 1);
    m_info = next;
    m_info.position = Clamp(Finite(info.position, next.minimum));
    if (GetMaxPos() <= m_info.minimum) OnCancel();
    Invalidate();
}

double CSysScrollBar::SetPos(double position) {
    double const next = Clamp(Finite(position, m_info.position));
    if (next != m_info.position) {
        m_info.position = next;
        Invalidate();
    }
    return m_info.position;
}

double CSysScrollBar::GetMaxPos() const {
    double const last = m_info.page > 0 ? m_info.maximum - m_info.page + 1 : m_info.maximum;
    return std::max(m_info.minimum, last);
}

double CSysScrollBar::Clamp(double position) const {
    return std::clamp(position, m_info.minimum, GetMaxPos());
}

CSysScrollBar::SLayout CSysScrollBar::Layout() const {
    screen_rectangle<int> const r = GetRect();
    SLayout l;
    l.first = m_vertical ? r.top : r.left;
    l.last = m_vertical ? r.bottom : r.right;
    int const length = l.last - l.first + 1;
    int const thickness = m_vertical ? r.right - r.left + 1 : r.bottom - r.top + 1;
    l.arrow = std::max(0, std::min(thickness, length / 2));
    int const track = length - 2 * l.arrow;
    double const span = GetMaxPos() - m_info.minimum;
    if (span <= 0 || track <= 0) return l;
    double const range = m_info.maximum - m_info.minimum + 1;
    int const wanted = static_cast<int>(track * m_info.page / range);
    int const thumb = std::min(track, std::max(std::min(MinThumb, track), wanted));
    int const offset =
        static_cast<int>(std::lround((track - thumb) * (m_info.position - m_info.minimum) / span));
    l.thumbFirst = l.first + l.arrow + offset;
    l.thumbLast = l.thumbFirst + thumb - 1;
    return l;
}

screen_rectangle<int> CSysScrollBar::GetPartRect(Part part) const {
    SLayout const l = Layout();
    bool const thumb = l.thumbLast >= l.thumbFirst;
    int first = 0, last = -1;
    switch (part) {
    case PartArrowDec:
        first = l.first, last = l.first + l.arrow - 1;
        break;
    case PartArrowInc:
        first = l.last - l.arrow + 1, last = l.last;
        break;
    case PartTrackDec:
        first = l.first + l.arrow, last = thumb ? l.thumbFirst - 1 : l.last - l.arrow;
        break;
    case PartTrackInc:
        if (thumb) first = l.thumbLast + 1, last = l.last - l.arrow;
        break;
    case PartThumb:
        first = l.thumbFirst, last = l.thumbLast;
        break;
    case PartNone:
        break;
    }
    screen_rectangle<int> const r = GetRect();
    if (last < first) return {0, 0, -1, -1};
    return m_vertical ? screen_rectangle<int>{r.left, first, r.right, last}
                      : screen_rectangle<int>{first, r.top, last, r.bottom};
}

CSysScrollBar::Part CSysScrollBar::HitPart(point<int> const& at) const {
    if (!HitTest(at)) return PartNone;
    for (Part part : {PartArrowDec, PartArrowInc, PartThumb, PartTrackDec, PartTrackInc}) {
        screen_rectangle<int> const r = GetPartRect(part);
        if (at.x >= r.left && at.x <= r.right && at.y >= r.top && at.y <= r.bottom) return part;
    }
    return PartNone;
}

size<int> CSysScrollBar::NaturalSize() const {
    ISystem* const system = GetCurrentSystem();
    int const thickness = static_cast<int>(Thickness * std::max(1.0, system ? system->GetDPIScale() : 1.0));
    screen_rectangle<int> const r = GetRect();
    return m_vertical ? size<int>{thickness, r.bottom - r.top + 1}
                      : size<int>{r.right - r.left + 1, thickness};
}

void CSysScrollBar::Draw(IPainter* painter) {
    bool const scrollable = GetMaxPos() > m_info.minimum;
    for (Part part : {PartArrowDec, PartTrackDec, PartTrackInc, PartArrowInc, PartThumb}) {
        screen_rectangle<int> const r = GetPartRect(part);
        if (r.right < r.left || r.bottom < r.top) continue;
        int state = 0;
        if (!IsEnabled() || !scrollable) state |= IPainter::StateDisabled;
        if (part == m_hot) state |= IPainter::StateHot;
        if (part == m_pressed && (part == PartThumb || HitPart(m_pointer) == part))
            state |= IPainter::StatePressed;
        if (part == PartThumb && HasFocus()) state |= IPainter::StateFocused;
        painter->DrawControlElement(PieceOf(part, m_vertical), r.left, r.top, r.right, r.bottom, state);
    }
}

bool CSysScrollBar::Step(Part part) {
    double const page = m_info.page > 0 ? m_info.page : m_info.lineStep;
    double const before = m_info.position;
    switch (part) {
    case PartArrowDec:
        Scroll(CScrollEvent::LineUp, before - m_info.lineStep);
        break;
    case PartArrowInc:
        Scroll(CScrollEvent::LineDown, before + m_info.lineStep);
        break;
    case PartTrackDec:
        Scroll(CScrollEvent::PageUp, before - page);
        break;
    case PartTrackInc:
        Scroll(CScrollEvent::PageDown, before + page);
        break;
    default:
        break;
    }
    return m_info.position != before;
}

void CSysScrollBar::Scroll(CScrollEvent::ScrollAction action, double position) {
    double const next = Clamp(position);
    if (next == m_info.position) return;
    m_info.position = next;
    Invalidate();
    Notify(action);
}

void CSysScrollBar::Notify(CScrollEvent::ScrollAction action) {
    CScrollEvent event(action, m_info.position);
    Sender().Fire(&IScrollBarNotify::ScrollBarOnScroll, &event);
}

void CSysScrollBar::OnButtonDown(point<int> const& at, MouseButton button) {
    if (button != ButtonLeft || m_pressed != PartNone) return;
    m_pointer = at;
    Part const part = HitPart(at);
    if (part == PartNone || GetMaxPos() <= m_info.minimum) return;
    m_pressed = part;
    Invalidate();
    if (part == PartThumb) {
        m_grab = Along(at) - Layout().thumbFirst;
        return;
    }
    mirel_ptr<ICustomControl> const keep(this);
    Step(part);
    if (m_pressed != part) return; // a subscriber ended the gesture
    if (!m_timer)
        if (ISystem* const system = GetCurrentSystem()) {
            m_timer = system->CreateTimer(RepeatDelayMs, false);
            m_timer->GetEventSender()->Subscribe<ITimerNotify>(&m_repeat);
        }
    if (m_timer) {
        m_timer->SetInterval(RepeatDelayMs);
        m_timer->SetActive(true);
    }
}

void CSysScrollBar::OnButtonUp(point<int> const& at, MouseButton button) {
    if (button != ButtonLeft || m_pressed == PartNone) return;
    m_pointer = at;
    bool const thumb = m_pressed == PartThumb;
    OnCancel();
    if (thumb) Notify(CScrollEvent::SetPosition);
}

void CSysScrollBar::OnMouseMove(point<int> const& at) {
    bool const wasOver = HitPart(m_pointer) == m_pressed;
    m_pointer = at;
    UpdateHot();
    if (m_pressed == PartThumb) {
        SLayout const l = Layout();
        int const thumb = l.thumbLast - l.thumbFirst + 1;
        int const room = (l.last - l.arrow) - (l.first + l.arrow) + 1 - thumb;
        if (room <= 0) return;
        int const offset = std::clamp(Along(at) - m_grab - (l.first + l.arrow), 0, room);
        double const span = GetMaxPos() - m_info.minimum;
        Scroll(CScrollEvent::TrackPosition, m_info.minimum + std::round(span * offset / room));
    } else if (m_pressed != PartNone && wasOver != (HitPart(at) == m_pressed)) {
        Invalidate();
    }
}

void CSysScrollBar::OnWheel(point<int> const&, int delta) {
    if (delta == 0 || m_pressed != PartNone) return;
    Scroll(delta > 0 ? CScrollEvent::LineUp : CScrollEvent::LineDown,
           m_info.position - WheelLines * m_info.lineStep * delta);
}

bool CSysScrollBar::OnKeyDown(int virtualKey, int) {
    switch (virtualKey) {
    case KeyUp:
    case KeyLeft:
        Step(PartArrowDec);
        break;
    case KeyDown:
    case KeyRight:
        Step(PartArrowInc);
        break;
    case KeyPageUp:
        Step(PartTrackDec);
        break;
    case KeyPageDown:
        Step(PartTrackInc);
        break;
    case KeyHome:
        Scroll(CScrollEvent::ToStart, m_info.minimum);
        break;
    case KeyEnd:
        Scroll(CScrollEvent::ToEnd, GetMaxPos());
        break;
    default:
        return false;
    }
    return true;
}

void CSysScrollBar::OnHot(bool hot) {
    m_isHot = hot;
    UpdateHot();
}

void CSysScrollBar::UpdateHot() {
    Part const part = m_isHot ? HitPart(m_pointer) : PartNone;
    if (part == m_hot) return;
    m_hot = part;
    Invalidate();
}

void CSysScrollBar::OnCancel() {
    StopRepeat();
    if (std::exchange(m_pressed, PartNone) != PartNone) Invalidate();
}

void CSysScrollBar::StopRepeat() {
    if (m_timer) m_timer->SetActive(false);
}

void CSysScrollBar::Repeat() {
    if (m_timer && m_timer->GetInterval() != RepeatIntervalMs) m_timer->SetInterval(RepeatIntervalMs);
    // Held off the part, the repeat waits for the pointer to come back.
    if (HitPart(m_pointer) == m_pressed) Step(m_pressed);
}

void CSysScrollBar::CRepeat::OnTimer(CTimerEvent*) {
    mirel_ptr<ICustomControl> const keep(&m_bar);
    m_bar.Repeat();
}

} // namespace mirel7
