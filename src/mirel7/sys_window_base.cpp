#include <mirel7/sys_window_base.h>
#include <mirel7/system_base.h>

#include <algorithm>

namespace mirel7 {

ISysWindow::~ISysWindow() = default;

namespace {

constexpr int HoverDelayMs = 500;

int ButtonBit(MouseButton button) {
    return button == ButtonNone ? 0 : 1 << button;
}

bool IsEmpty(screen_rectangle<int> const& r) {
    return r.right <= r.left || r.bottom <= r.top;
}

screen_rectangle<int> Union(screen_rectangle<int> const& a, screen_rectangle<int> const& b) {
    if (IsEmpty(a)) return b;
    if (IsEmpty(b)) return a;
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

// The cursor ids SetCursor knows; every other id stands for the arrow.
int NormalizeCursor(int cursor) {
    switch (cursor) {
    case ISysWindow::CursorSizeNS:
    case ISysWindow::CursorSizeWE:
    case ISysWindow::CursorHand:
    case ISysWindow::CursorNoDrop:
        return cursor;
    default:
        return ISysWindow::CursorArrow;
    }
}

} // namespace

CSysWindowBase::CSysWindowBase(CSystemBase& system, size<int> clientSize,
                               std::unique_ptr<IWindowPainter> painter)
    : m_system(system), m_painter(std::move(painter)), m_queue([this] { Wake(); }), m_size(clientSize),
      m_hoverTimer(system.CreateTimer(HoverDelayMs, false)) {
    if (!m_painter) m_painter = NewWindowPainter(clientSize, system.GetDPIScale());
    m_hoverTimer->GetEventSender()->Subscribe<ITimerNotify>(&m_hover);
    m_system.AddWindow(this);
}

CSysWindowBase::~CSysWindowBase() {
    m_queue.Close();
    m_system.RemoveWindow(this);
}

void CSysWindowBase::GetClientRect(screen_rectangle<int>& rect) const {
    rect = {0, 0, m_size.cx, m_size.cy};
}

void CSysWindowBase::Invalidate(screen_rectangle<int> const& rect) {
    if (m_closing) return;
    AddDamage(rect);
    m_paintPending = true;
}

void CSysWindowBase::AddDamage(screen_rectangle<int> const& area) {
    screen_rectangle<int> const client{0, 0, m_size.cx, m_size.cy};
    screen_rectangle<int> const clipped = area.Normalized().Intersect(client);
    m_damage = Union(m_damage, clipped);
}

bool CSysWindowBase::PaintPending() {
    bool const painting = m_paintPending && !m_closing;
    m_paintPending = false;
    if (painting && m_painter) {
        ++m_paints;
        m_sender->Fire(&IDrawingNotify::OnDraw, static_cast<IPainter*>(m_painter.get()));
    }
    if (!IsEmpty(m_damage) && !m_closing) Present(m_damage);
    m_damage = {};
    return painting;
}

void CSysWindowBase::PaintNow() {
    PaintPending();
}

void CSysWindowBase::SetFocus() {
    if (!m_closing) RequestFocus();
}

void CSysWindowBase::SetCursor(int cursor) {
    int const normalized = NormalizeCursor(cursor);
    if (normalized == m_cursor) return;
    m_cursor = normalized;
    ApplyCursor(normalized);
}

void CSysWindowBase::CaptureMouse() {
    if (m_captured || m_closing) return;
    m_captured = true;
    ApplyCapture(true);
}

void CSysWindowBase::ReleaseMouse() {
    if (!m_captured) return;
    m_captured = false;
    ApplyCapture(false);
    // The pointer went out while held here; now that it is free, that is a leave.
    if (std::exchange(m_leftWhileCaptured, false)) SendLeave();
}

void CSysWindowBase::TrackMouse() {
    if (m_closing) return;
    m_trackLeave = true;
    m_trackHover = true;
    if (m_pointerInside) {
        m_hoverTimer->SetActive(false);
        m_hoverTimer->SetActive(true);
    }
}

void CSysWindowBase::ScreenToClient(point<int>& p) const {
    point<int> const origin = GetScreenOrigin();
    p = {p.x - origin.x, p.y - origin.y};
}

void CSysWindowBase::ClientToScreen(point<int>& p) const {
    point<int> const origin = GetScreenOrigin();
    p = {p.x + origin.x, p.y + origin.y};
}

bool CSysWindowBase::ScrollWindow(int dx, int dy, screen_rectangle<int> const& source) {
    if (!m_painter || m_closing) return false;
    screen_rectangle<int> const s = source.Normalized();
    m_painter->ScrollBuffer(dx, dy, rectangle<int>(s));
    // The moved copy is what changed on the screen; the source is inclusive, the damage exclusive.
    AddDamage({s.left + dx, s.top + dy, s.right + dx + 1, s.bottom + dy + 1});
    return true;
}

void CSysWindowBase::PostRunnable(IRunnable* runnable) {
    m_queue.Synchronize(runnable);
}

CMouseEvent CSysWindowBase::PointerEvent(int x, int y, MouseButton button, int modifiers) const {
    int const flags =
        (modifiers & (FlagShift | FlagControl | FlagAlt)) | (m_buttons & ButtonBit(ButtonLeft) ? 1 : 0);
    return CMouseEvent(flags, x, y, button);
}

void CSysWindowBase::SendButton(bool down, int x, int y, MouseButton button, int modifiers) {
    if (m_closing) return;
    m_modifiers = modifiers;
    if (down)
        m_buttons |= ButtonBit(button);
    else
        m_buttons &= ~ButtonBit(button);
    m_pointer = {x, y};
    CMouseEvent event = PointerEvent(x, y, button, modifiers);
    m_sender->Fire(down ? &IMouseNotify::OnButtonDown : &IMouseNotify::OnButtonUp, &event);
}

void CSysWindowBase::SendDoubleClick(int x, int y, MouseButton button, int modifiers) {
    if (m_closing) return;
    m_modifiers = modifiers;
    m_buttons |= ButtonBit(button);
    m_pointer = {x, y};
    CMouseEvent event = PointerEvent(x, y, button, modifiers);
    m_sender->Fire(&IMouseClickNotify::OnDoubleClick, &event);
}

void CSysWindowBase::SendMove(int x, int y, int modifiers) {
    if (m_closing) return;
    m_modifiers = modifiers;
    m_pointer = {x, y};
    m_pointerInside = x >= 0 && y >= 0 && x < m_size.cx && y < m_size.cy;
    // A captured pointer reports moves outside the window too; where it is at the release decides the leave.
    if (m_captured) m_leftWhileCaptured = !m_pointerInside;
    // A move restarts the rest that makes a hover.
    m_hoverTimer->SetActive(false);
    if (m_trackHover && m_pointerInside) m_hoverTimer->SetActive(true);
    MouseButton held = ButtonNone;
    for (MouseButton b : {ButtonLeft, ButtonRight, ButtonMiddle})
        if (held == ButtonNone && (m_buttons & ButtonBit(b))) held = b;
    CMouseEvent event = PointerEvent(x, y, held, modifiers);
    m_sender->Fire(&IMouseNotify::OnMouseMove, &event);
}

void CSysWindowBase::SendWheel(int x, int y, int delta, int modifiers) {
    if (m_closing) return;
    m_modifiers = modifiers;
    CMouseWheelEvent event(PointerEvent(x, y, ButtonNone, modifiers).flags, x, y, delta);
    m_sender->Fire(&IMouseNotify::OnWheel, &event);
}

void CSysWindowBase::SendLeave() {
    if (m_closing) return;
    m_pointerInside = false;
    m_hoverTimer->SetActive(false);
    if (m_captured) {
        m_leftWhileCaptured = true;
        return;
    }
    if (!std::exchange(m_trackLeave, false)) return;
    m_trackHover = false;
    CMouseEvent event = PointerEvent(m_pointer.x, m_pointer.y, ButtonNone, m_modifiers);
    m_sender->Fire(&IMouseHoverNotify::OnLeave, &event);
}

void CSysWindowBase::SendHover() {
    m_hoverTimer->SetActive(false);
    if (m_closing || !std::exchange(m_trackHover, false)) return;
    CMouseEvent event = PointerEvent(m_pointer.x, m_pointer.y, ButtonNone, m_modifiers);
    m_sender->Fire(&IMouseHoverNotify::OnHover, &event);
}

void CSysWindowBase::CHoverTimer::OnTimer(CTimerEvent*) {
    m_window.SendHover();
}

CKeyboardEvent CSysWindowBase::SendKey(bool down, int virtualKey, int modifiers) {
    CKeyboardEvent event(modifiers & (FlagShift | FlagControl | FlagAlt), virtualKey, 0);
    if (!m_closing) m_sender->Fire(down ? &IKeyboardNotify::OnKeyDown : &IKeyboardNotify::OnKeyUp, &event);
    return event;
}

CKeyboardEvent CSysWindowBase::SendChar(int characterCode, int modifiers) {
    CKeyboardEvent event(modifiers & (FlagShift | FlagControl | FlagAlt), 0, characterCode);
    if (!m_closing) m_sender->Fire(&IKeyboardNotify::OnChar, &event);
    return event;
}

void CSysWindowBase::SendFocus(bool focused) {
    if (m_closing || focused == m_focused) return;
    m_focused = focused;
    CFocusEvent event;
    m_sender->Fire(focused ? &IFocusNotify::OnGetFocus : &IFocusNotify::OnLostFocus, &event);
}

void CSysWindowBase::SendResize(size<int> clientSize) {
    if (m_closing || clientSize == m_size) return;
    m_size = clientSize;
    if (m_painter) m_painter->Resize(clientSize);
    CWindowEvent event;
    m_sender->Fire(&IWindowNotify::OnResize, &event);
    Invalidate({0, 0, clientSize.cx, clientSize.cy});
}

void CSysWindowBase::SendContextMenu(int x, int y) {
    if (m_closing) return;
    CContextMenuEvent event(x, y);
    m_sender->Fire(&IContextMenuNotify::OnContextMenu, &event);
}

CTooltipEvent CSysWindowBase::SendTooltip(int x, int y, bool track) {
    CTooltipEvent event(x, y);
    if (!m_closing)
        m_sender->Fire(track ? &ITooltipNotify::OnTooltipTrack : &ITooltipNotify::OnTooltip, &event);
    return event;
}

void CSysWindowBase::SendCustom(int data) {
    if (m_closing) return;
    CCustomEvent event(data);
    m_sender->Fire(&ICustomEventNotify::OnCustomEvent, &event);
}

void CSysWindowBase::SendSysColorChanged() {
    if (m_closing) return;
    CEvent event;
    m_sender->Fire(&ISystemNotify::OnSysColorChanged, &event);
}

void CSysWindowBase::SendDestroy() {
    if (std::exchange(m_destroySent, true)) return;
    m_closing = true;
    m_queue.Close();
    m_hoverTimer->SetActive(false);
    if (m_captured) {
        m_captured = false;
        ApplyCapture(false);
    }
    CWindowEvent event;
    // The destroy event goes out even though the window is closing: it is the one event that says so.
    m_sender->Fire(&IWindowNotify::OnDestroy, &event);
}

} // namespace mirel7
