#include <mirel7/mirel_control.h>
#include <mirel7/sys_window.h>

namespace mirel7 {

CMirelControl::CMirelControl(ISysWindow* window, bool ownsWindow) : m_ownsWindow(ownsWindow) {
    for (std::type_info const* type :
         {&typeid(IDrawingNotify), &typeid(IWindowNotify), &typeid(IFocusNotify), &typeid(ITooltipNotify),
          &typeid(IScrollNotify), &typeid(IMouseNotify), &typeid(IMouseClickNotify),
          &typeid(IMouseHoverNotify), &typeid(IKeyboardNotify), &typeid(ISystemNotify),
          &typeid(IContextMenuNotify), &typeid(ICustomEventNotify), &typeid(ITimerNotify)})
        SetSupportedEvent(*type);
    SubscribeTo(window);
}

CMirelControl::~CMirelControl() {
    ISysWindow* const window = m_window;
    SetSysWindow(nullptr);
    if (m_ownsWindow) delete window;
}

void CMirelControl::SubscribeTo(ISysWindow* window) {
    m_window = window;
    if (!window) return;
    IEventSender* const sender = window->GetEventSender();
    sender->Subscribe<IDrawingNotify>(this);
    sender->Subscribe<IWindowNotify>(this);
    sender->Subscribe<IFocusNotify>(this);
    sender->Subscribe<ITooltipNotify>(this);
    sender->Subscribe<IScrollNotify>(this);
    sender->Subscribe<IMouseNotify>(this);
    sender->Subscribe<IMouseClickNotify>(this);
    sender->Subscribe<IMouseHoverNotify>(this);
    sender->Subscribe<IKeyboardNotify>(this);
    sender->Subscribe<ISystemNotify>(this);
    sender->Subscribe<IContextMenuNotify>(this);
    sender->Subscribe<ICustomEventNotify>(this);
}

void CMirelControl::SetSysWindow(ISysWindow* window) {
    if (window == m_window) return;
    if (m_window) m_window->GetEventSender()->Unsubscribe(static_cast<INotify*>(this));
    SubscribeTo(window);
}

void CMirelControl::NoticeStopped(IEventSender* sender) {
    CSenderTracker::NoticeStopped(sender);
    // The window is going away: its sender dies with it.
    if (m_window && m_window->GetEventSender() == sender) m_window = nullptr;
}

bool CMirelControl::CanBeFocused() const {
    return true;
}

void CMirelControl::Invalidate() {
    if (!m_window) return;
    screen_rectangle<int> client;
    m_window->GetClientRect(client);
    m_window->Invalidate(client);
}

void CMirelControl::OnDraw(IPainter* painter) {
    Fire(&IDrawingNotify::OnDraw, painter);
}
void CMirelControl::OnResize(CWindowEvent* event) {
    Fire(&IWindowNotify::OnResize, event);
}
void CMirelControl::OnMove(CWindowEvent* event) {
    Fire(&IWindowNotify::OnMove, event);
}
void CMirelControl::OnDestroy(CWindowEvent* event) {
    Fire(&IWindowNotify::OnDestroy, event);
}
void CMirelControl::OnShow(CWindowEvent* event) {
    Fire(&IWindowNotify::OnShow, event);
}
void CMirelControl::OnHide(CWindowEvent* event) {
    Fire(&IWindowNotify::OnHide, event);
}
void CMirelControl::OnGetFocus(CFocusEvent* event) {
    Fire(&IFocusNotify::OnGetFocus, event);
}
void CMirelControl::OnLostFocus(CFocusEvent* event) {
    Fire(&IFocusNotify::OnLostFocus, event);
}
void CMirelControl::OnTooltip(CTooltipEvent* event) {
    Fire(&ITooltipNotify::OnTooltip, event);
}
void CMirelControl::OnTooltipTrack(CTooltipEvent* event) {
    Fire(&ITooltipNotify::OnTooltipTrack, event);
}
void CMirelControl::OnHorzScroll(CScrollEvent* event) {
    Fire(&IScrollNotify::OnHorzScroll, event);
}
void CMirelControl::OnVertScroll(CScrollEvent* event) {
    Fire(&IScrollNotify::OnVertScroll, event);
}
void CMirelControl::OnButtonDown(CMouseEvent* event) {
    Fire(&IMouseNotify::OnButtonDown, event);
}
void CMirelControl::OnButtonUp(CMouseEvent* event) {
    Fire(&IMouseNotify::OnButtonUp, event);
}
void CMirelControl::OnMouseMove(CMouseEvent* event) {
    Fire(&IMouseNotify::OnMouseMove, event);
}
void CMirelControl::OnWheel(CMouseWheelEvent* event) {
    Fire(&IMouseNotify::OnWheel, event);
}
void CMirelControl::OnClick(CMouseEvent* event) {
    Fire(&IMouseClickNotify::OnClick, event);
}
void CMirelControl::OnDoubleClick(CMouseEvent* event) {
    Fire(&IMouseClickNotify::OnDoubleClick, event);
}
void CMirelControl::OnHover(CMouseEvent* event) {
    Fire(&IMouseHoverNotify::OnHover, event);
}
void CMirelControl::OnLeave(CMouseEvent* event) {
    Fire(&IMouseHoverNotify::OnLeave, event);
}
void CMirelControl::OnKeyDown(CKeyboardEvent* event) {
    Fire(&IKeyboardNotify::OnKeyDown, event);
}
void CMirelControl::OnKeyUp(CKeyboardEvent* event) {
    Fire(&IKeyboardNotify::OnKeyUp, event);
}
void CMirelControl::OnChar(CKeyboardEvent* event) {
    Fire(&IKeyboardNotify::OnChar, event);
}
void CMirelControl::OnSysColorChanged(CEvent* event) {
    Fire(&ISystemNotify::OnSysColorChanged, event);
}
void CMirelControl::OnContextMenu(CContextMenuEvent* event) {
    Fire(&IContextMenuNotify::OnContextMenu, event);
}
void CMirelControl::OnCustomEvent(CCustomEvent* event) {
    Fire(&ICustomEventNotify::OnCustomEvent, event);
}
void CMirelControl::OnTimer(CTimerEvent* event) {
    Fire(&ITimerNotify::OnTimer, event);
}

} // namespace mirel7
