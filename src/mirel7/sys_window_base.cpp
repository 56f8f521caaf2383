#include <mirel7/custom_control_base.h>
#include <mirel7/popup_menu.h>
#include <mirel7/sys_scroll_bar.h>
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
      m_hoverTimer(system.CreateTimer(HoverDelayMs, false)),
      m_tipTimer(system.CreateTimer(HoverDelayMs, false)) {
    if (!m_painter) m_painter = NewWindowPainter(clientSize, system.GetDPIScale());
    m_hoverTimer->GetEventSender()->Subscribe<ITimerNotify>(&m_hover);
    m_tipTimer->GetEventSender()->Subscribe<ITimerNotify>(&m_tooltip);
    m_system.AddWindow(this);
}

CSysWindowBase::~CSysWindowBase() {
    m_queue.Close();
    for (CCustomControlBase* control : m_customControls)
        control->Detach();
    if (m_menu) std::exchange(m_menu, nullptr)->m_window = nullptr;
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
        DrawCustomControls();
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
    HideTooltip();
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
    HideTooltip();
    if (m_menu && down) {
        m_menu->Close();
        return;
    }
    m_modifiers = modifiers;
    if (down)
        m_buttons |= ButtonBit(button);
    else
        m_buttons &= ~ButtonBit(button);
    m_pointer = {x, y};
    if (RouteButton(down, {x, y}, button)) return;
    CMouseEvent event = PointerEvent(x, y, button, modifiers);
    m_sender->Fire(down ? &IMouseNotify::OnButtonDown : &IMouseNotify::OnButtonUp, &event);
}

void CSysWindowBase::SendDoubleClick(int x, int y, MouseButton button, int modifiers) {
    if (m_closing) return;
    HideTooltip();
    m_modifiers = modifiers;
    m_buttons |= ButtonBit(button);
    m_pointer = {x, y};
    // A native control takes the second press as a press.
    if (RouteButton(true, {x, y}, button)) return;
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
    // A move restarts the rest that makes a hover, and the one that makes a tooltip.
    m_hoverTimer->SetActive(false);
    if (m_trackHover && m_pointerInside) m_hoverTimer->SetActive(true);
    if (m_tipShown) TrackTooltip();
    m_tipTimer->SetActive(false);
    if (!m_tipShown && m_pointerInside && m_buttons == 0) m_tipTimer->SetActive(true);
    if (RouteMove({x, y})) return;
    MouseButton held = ButtonNone;
    for (MouseButton b : {ButtonLeft, ButtonRight, ButtonMiddle})
        if (held == ButtonNone && (m_buttons & ButtonBit(b))) held = b;
    CMouseEvent event = PointerEvent(x, y, held, modifiers);
    m_sender->Fire(&IMouseNotify::OnMouseMove, &event);
}

void CSysWindowBase::SendWheel(int x, int y, int delta, int modifiers) {
    if (m_closing) return;
    HideTooltip();
    m_modifiers = modifiers;
    if (CCustomControlBase* const control = CustomControlAt({x, y})) {
        mirel_ptr<ICustomControl> const keep(control);
        if (control->IsEnabled()) control->OnWheel({x, y}, delta);
        return;
    }
    CMouseWheelEvent event(PointerEvent(x, y, ButtonNone, modifiers).flags, x, y, delta);
    m_sender->Fire(&IMouseNotify::OnWheel, &event);
}

void CSysWindowBase::SendLeave() {
    if (m_closing) return;
    m_pointerInside = false;
    m_hoverTimer->SetActive(false);
    HideTooltip();
    if (!m_pressedControl) SetHotControl(nullptr);
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
    HideTooltip();
    CKeyboardEvent event(modifiers & (FlagShift | FlagControl | FlagAlt), virtualKey, 0);
    if (m_menu && !m_closing) {
        if (down) m_menu->KeyPressed(virtualKey);
        return event;
    }
    if (down && m_focusedControl && !m_closing) {
        mirel_ptr<ICustomControl> const keep(m_focusedControl);
        if (m_focusedControl->IsEnabled() && m_focusedControl->OnKeyDown(virtualKey, event.flags))
            return event;
    }
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
    if (!focused && m_menu) m_menu->Close();
    if (!focused && m_focusedControl) {
        std::exchange(m_focusedControl, nullptr)->Invalidate();
    }
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
    HideTooltip();
    if (m_menu) m_menu->Close();
    if (m_captured) {
        m_captured = false;
        ApplyCapture(false);
    }
    CWindowEvent event;
    // The destroy event goes out even though the window is closing: it is the one event that says so.
    m_sender->Fire(&IWindowNotify::OnDestroy, &event);
}

void CSysWindowBase::HideTooltip() {
    m_tipTimer->SetActive(false);
    if (!std::exchange(m_tipShown, false)) return;
    m_tipValid = {};
    CloseTooltip();
}

void CSysWindowBase::AskTooltip() {
    m_tipTimer->SetActive(false);
    if (m_closing || m_tipShown || !m_pointerInside || m_buttons != 0) return;
    CTooltipEvent const event = SendTooltip(m_pointer.x, m_pointer.y, false);
    if (event.text.empty() || m_closing) return;
    m_tipShown = true;
    m_tipValid = event.rect.IsAllZero() ? rectangle<int>{m_pointer.x, m_pointer.y, m_pointer.x, m_pointer.y}
                                        : event.rect.Normalized();
    ShowTooltipText(event);
}

void CSysWindowBase::TrackTooltip() {
    auto const inside = [&] {
        return m_pointer.x >= m_tipValid.left && m_pointer.x <= m_tipValid.right &&
               m_pointer.y >= m_tipValid.top && m_pointer.y <= m_tipValid.bottom;
    };
    if (!inside()) return HideTooltip();
    CTooltipEvent const event = SendTooltip(m_pointer.x, m_pointer.y, true);
    // A receiver may have taken the tip down, or closed the window.
    if (!m_tipShown || m_closing) return;
    if (!event.rect.IsAllZero()) m_tipValid = event.rect.Normalized();
    if (!inside()) return HideTooltip();
    if (!event.text.empty() && event.text != m_tipText) {
        CloseTooltip();
        ShowTooltipText(event);
    }
}

void CSysWindowBase::ShowTooltipText(CTooltipEvent const& event) {
    m_tipText = event.text;
    point<int> at = m_pointer;
    ClientToScreen(at);
    // The pointer's own cell: the tip goes below the arrow, or above it at the screen's foot.
    int const cell = static_cast<int>(20 * std::max(1.0, m_system.GetDPIScale()));
    bool const ownFont = !event.tooltipFont.face.empty() || event.tooltipFont.size > 0;
    OpenTooltip(event.text, ownFont ? event.tooltipFont : m_system.GetDefaultFont(),
                {at.x, at.y, at.x + 1, at.y + cell});
}

void CSysWindowBase::CTooltipTimer::OnTimer(CTimerEvent*) {
    m_window.AskTooltip();
}

void CSysWindowBase::OpenPopupMenu(CPopupMenu* menu, point<int> const& at) {
    if (m_closing || !menu) return;
    if (m_menu) m_menu->Close();
    menu->Close();
    HideTooltip();
    m_menu = menu;
    menu->m_window = this;
    double const scale = m_system.GetDPIScale();
    std::unique_ptr<IWindowPainter> const measure = NewWindowPainter({1, 1}, scale);
    point<int> screen = at;
    ClientToScreen(screen);
    OpenMenuWindow(menu->Measure(measure.get(), scale), {screen.x, screen.y, screen.x, screen.y});
    RedrawPopupMenu();
}

void CSysWindowBase::ClosePopupMenu(CPopupMenu* menu) {
    if (menu != m_menu) return;
    m_menu = nullptr;
    CloseMenuWindow();
}

void CSysWindowBase::SendMenuPointer(bool released, point<int> const& at) {
    if (!m_menu) return;
    if (released)
        m_menu->PointerReleased(at, m_system.GetDPIScale());
    else
        m_menu->PointerMoved(at, m_system.GetDPIScale());
}

mirel_ptr<IScrollBar> CSysWindowBase::CreateScrollBar(ScrollType type) {
    if (m_closing) return nullptr;
    return new CSysScrollBar(*this, type);
}

void CSysWindowBase::AddCustomControl(CCustomControlBase* control) {
    m_customControls.push_back(control);
}

void CSysWindowBase::RemoveCustomControl(CCustomControlBase* control) {
    ForgetCustomControl(control);
    std::erase(m_customControls, control);
}

void CSysWindowBase::ForgetCustomControl(CCustomControlBase* control) {
    if (m_hotControl == control) m_hotControl = nullptr;
    if (m_focusedControl == control) m_focusedControl = nullptr;
    if (m_pressedControl == control) {
        m_pressedControl = nullptr;
        if (std::exchange(m_pressCaptured, false)) ReleaseMouse();
    }
}

CCustomControlBase* CSysWindowBase::CustomControlAt(point<int> const& at) const {
    for (auto it = m_customControls.rbegin(); it != m_customControls.rend(); ++it)
        if ((*it)->HitTest(at)) return *it;
    return nullptr;
}

bool CSysWindowBase::RouteButton(bool down, point<int> const& at, MouseButton button) {
    CCustomControlBase* const control = m_pressedControl ? m_pressedControl : CustomControlAt(at);
    if (!control) {
        // A press beside the native controls takes the keys back to the window's own control.
        if (down && m_focusedControl) std::exchange(m_focusedControl, nullptr)->Invalidate();
        return false;
    }
    mirel_ptr<ICustomControl> const keep(control);
    if (down && !m_pressedControl) {
        m_pressedControl = control;
        m_pressCaptured = !m_captured;
        if (m_pressCaptured) CaptureMouse();
    }
    if (control->IsEnabled()) {
        if (down)
            control->OnButtonDown(at, button);
        else
            control->OnButtonUp(at, button);
    }
    // The press ends with the last button up; the control may have been forgotten meanwhile.
    if (!down && m_buttons == 0 && m_pressedControl == control) {
        m_pressedControl = nullptr;
        if (std::exchange(m_pressCaptured, false)) ReleaseMouse();
    }
    return true;
}

bool CSysWindowBase::RouteMove(point<int> const& at) {
    CCustomControlBase* const under = CustomControlAt(at);
    SetHotControl(m_pressedControl ? (under == m_pressedControl ? under : nullptr) : under);
    CCustomControlBase* const control = m_pressedControl ? m_pressedControl : under;
    if (!control) return false;
    mirel_ptr<ICustomControl> const keep(control);
    if (control->IsEnabled()) control->OnMouseMove(at);
    return true;
}

void CSysWindowBase::SetHotControl(CCustomControlBase* control) {
    if (control == m_hotControl) return;
    if (CCustomControlBase* const old = std::exchange(m_hotControl, control)) old->OnHot(false);
    if (control) control->OnHot(true);
}

void CSysWindowBase::DrawCustomControls() {
    if (m_customControls.empty()) return;
    IPainter* const painter = m_painter.get();
    painter->BeginPaint(IPainter::PaintPlain);
    painter->SetCoordSystem(IPainter::MapDevice, nullptr);
    painter->ResetClip();
    for (CCustomControlBase* control : m_customControls) {
        screen_rectangle<int> const r = control->GetRect();
        if (!control->IsVisible() || r.right < r.left || r.bottom < r.top) continue;
        painter->SetDisabled(!control->IsEnabled());
        control->Draw(painter);
    }
    painter->SetDisabled(false);
    painter->EndPaint();
}

} // namespace mirel7
