// The input half of CVisualElement: how mouse, wheel, keyboard, tooltip, context-menu and focus events run
// down and up the tree once the control has delivered them.
#include <mirelfrw7/core/control.h>
#include <mirelfrw7/core/life_guard.h>
#include <mirelfrw7/core/visual_element.h>
#include <mirelfrw7/items/saturating_int.h>

#include <mirel7/popup_menu.h>
#include <mirel7/sys_window.h>
#include <mirel7/window_painter.h>

namespace mirelfrw7 {

namespace {
// The sign of a - b, taken wide: a point or edge may stand at either end of int.
int Sign(long long v) {
    return (v > 0) - (v < 0);
}
// Both edges hit; a zero extent never does; an inverted rectangle hits as if normalised.
bool Hits(rectangle<int> const& r, int x, int y) {
    return Sign(0LL + x - r.left) != Sign(0LL + x - r.right) &&
           Sign(0LL + y - r.top) != Sign(0LL + y - r.bottom);
}

mirel7::ISysWindow* WindowOf(IControl* control) {
    return control ? control->GetWindow() : nullptr;
}
} // namespace

// Runs `process` on the first visible child hit by (x, y), with the point in the child's coordinates.
// Children are tried in index order, the opposite of the painting order, and the first hit wins.
template <class Process>
static bool DeliverToChild(IChildren* children, int x, int y, Process process) {
    for (int i = 0; i < children->GetCount(); ++i) {
        CVisualElement* const child = children->GetItem(i);
        rectangle<int> const& b = child->GetPosition();
        if (child->IsVisible() && Hits(b, x, y))
            return process(child, SaturatingInt(0LL + x - b.left), SaturatingInt(0LL + y - b.top));
    }
    return false;
}

// --- Focus and capture ------------------------------------------------------------------------------------

bool CanHaveFocus(CVisualElement const* element) {
    return element && element->IsFocusable() && element->IsDisplayable() && element->IsEnabled() &&
           element->GetControl();
}

bool CVisualElement::IsFocused() const {
    mirel7::ISysWindow* const window = WindowOf(m_control);
    return window && window->HasFocus() && m_control->GetFocusedElement() == this;
}

void CVisualElement::SetFocus(bool setSystemFocus) {
    if (IsFocused()) return;
    if (CanHaveFocus(this))
        m_control->SetFocusedElement(this, setSystemFocus);
    else
        HandleGetFocus(nullptr, false);
}

void CVisualElement::CaptureMouse() {
    if (m_control) m_control->SetCapture(this);
}

void CVisualElement::ReleaseMouse() {
    if (m_control) m_control->SetCapture(nullptr);
}

// --- Mouse ------------------------------------------------------------------------------------------------

bool CVisualElement::ProcessButtonDown(int x, int y, int flags, MouseButton button) {
    if (!m_enabled) return false;
    m_pressed = true;
    bool const handled = DeliverToChild(m_children, x, y, [&](CVisualElement* child, int cx, int cy) {
        return child->ProcessButtonDown(cx, cy, flags, button);
    });
    sigButtonDown(this, x, y, flags, button);
    if (handled) return true;
    if ((flags & mirel7::FlagLeftButton) && m_control && m_control->GetMouseElement() == this) SetFocus(true);
    return HandleButtonDown(x, y, flags, button);
}

bool CVisualElement::ProcessButtonUp(int x, int y, int flags, MouseButton button) {
    if (!m_enabled) return false;
    bool const handled = DeliverToChild(m_children, x, y, [&](CVisualElement* child, int cx, int cy) {
        return child->ProcessButtonUp(cx, cy, flags, button);
    });
    // The end of a gesture is where an application deletes what was clicked: after every call out the
    // element may be gone, and then nothing of it is touched.
    CLifeGuard self(this);
    bool const pressed = m_pressed;
    if (pressed) sigClick(this, x, y, flags, button);
    if (self) sigButtonUp(this, x, y, flags, button);
    if (!self) return handled;
    if (handled) {
        m_pressed = false;
        return true;
    }
    if (pressed) HandleClick(x, y, flags, button);
    bool const result = self && HandleButtonUp(x, y, flags, button);
    if (self) m_pressed = false;
    return result;
}

bool CVisualElement::ProcessDoubleClick(int x, int y, int flags, MouseButton button) {
    if (!m_enabled) return false;
    bool const handled = DeliverToChild(m_children, x, y, [&](CVisualElement* child, int cx, int cy) {
        return child->ProcessDoubleClick(cx, cy, flags, button);
    });
    sigDoubleClick(this, x, y, flags, button);
    return handled || HandleDoubleClick(x, y, flags, button);
}

// No enabled test: disabled elements still track the mouse and become the mouse element.
bool CVisualElement::ProcessMouseMove(int x, int y, int flags, MouseButton button) {
    bool childHit = false;
    bool const handled = DeliverToChild(m_children, x, y, [&](CVisualElement* child, int cx, int cy) {
        childHit = true;
        return child->ProcessMouseMove(cx, cy, flags, button);
    });
    if (!childHit && m_control && m_control->GetMouseElement() != this && Hits(GetBounds(), x, y))
        m_control->SetMouseElement(this);
    sigMouseMove(this, x, y, flags, button);
    return handled || HandleMouseMove(x, y, flags, button);
}

// The other way round: the outermost element that wants the wheel wins.
bool CVisualElement::ProcessWheel(int x, int y, int flags, MouseButton button, int delta) {
    if (!m_enabled) return false;
    sigWheel(this, x, y, flags, button, delta);
    if (HandleWheel(x, y, flags, button, delta)) return true;
    return DeliverToChild(m_children, x, y, [&](CVisualElement* child, int cx, int cy) {
        return child->ProcessWheel(cx, cy, flags, button, delta);
    });
}

void CVisualElement::ProcessMouseHover(CVisualElement* previous) {
    mirel7::ISysWindow* const window = WindowOf(m_control);
    if (!m_control || m_control->GetDraggedElement()) return;
    if (window) {
        if (m_enabled) window->SetCursor(m_cursor);
        window->TrackMouse();
    }
    sigMouseHover(this);
    HandleMouseHover(previous);
    ProcessChildrenMouseHover(previous);
}

void CVisualElement::ProcessMouseLeave(CVisualElement* next) {
    m_pressed = false;
    sigMouseLeave(this);
    HandleMouseLeave(next);
    ProcessChildrenMouseLeave(next);
    if (mirel7::ISysWindow* const window = WindowOf(m_control)) window->SetCursor(1);
}

void CVisualElement::ProcessChildrenMouseHover(CVisualElement* previous) {
    for (CVisualElement* e = this; e && e->m_control; e = e->m_parent)
        e->HandleChildrenMouseHover(previous);
}

void CVisualElement::ProcessChildrenMouseLeave(CVisualElement* next) {
    for (CVisualElement* e = this; e && e->m_control; e = e->m_parent)
        e->HandleChildrenMouseLeave(next);
}

// --- Keyboard ---------------------------------------------------------------------------------------------

namespace {
// The elements that handed the key now on its way to their delegates, innermost first, on the stack of
// the dispatch. A key climbing from a delegate stops below any of them, since each goes on with the key
// itself once its delegate returns; and an element on the way is never handed the key again. So a delegate
// anywhere in the tree, even one moved out of the delegating element, sees a key once.
struct SDelegation {
    CVisualElement* element;
    SDelegation* outer;
};
// One chain for keys, one for the focus handed down a chain of delegates, which may loop.
thread_local SDelegation* t_keyDelegations = nullptr;
thread_local SDelegation* t_focusDelegations = nullptr;

bool IsDelegating(SDelegation const* innermost, CVisualElement const* element) {
    for (SDelegation const* d = innermost; d; d = d->outer)
        if (d->element == element) return true;
    return false;
}

class CDelegationScope {
public:
    CDelegationScope(SDelegation*& innermost, CVisualElement* element)
        : m_innermost(innermost), m_record{element, innermost} {
        m_innermost = &m_record;
    }
    ~CDelegationScope() { m_innermost = m_record.outer; }
    CDelegationScope(CDelegationScope const&) = delete;
    CDelegationScope& operator=(CDelegationScope const&) = delete;

private:
    SDelegation*& m_innermost;
    SDelegation m_record;
};
} // namespace

// The key goes to the focus delegate first, then this element, then up the parents: a parent's signal sees
// every key, its handler only keys nobody took. The call up always runs, handled or not.
template <class Signal, class Delegate, class Handle, class Parent>
static bool BubbleKey(CVisualElement* self, bool enabled, bool bubbling, Signal emit, Delegate toDelegate,
                      Handle handle, Parent toParent) {
    if (!enabled) return false;
    bool handled = bubbling;
    CVisualElement* const delegate = self->GetFocusDelegate();
    if (!bubbling && delegate && delegate != self && !IsDelegating(t_keyDelegations, delegate)) {
        CDelegationScope scope(t_keyDelegations, self);
        handled = toDelegate(delegate);
    }
    emit();
    if (!handled) handled = handle();
    CVisualElement* const parent = self->GetParent();
    if (!parent || parent->GetFocusDelegate() == self || IsDelegating(t_keyDelegations, parent))
        return handled;
    bool const parentHandled = toParent(parent, handled);
    return handled || parentHandled;
}

bool CVisualElement::ProcessKeyDown(int flags, int key, bool bubbling) {
    return BubbleKey(
        this, m_enabled, bubbling, [&] { sigKeyDown(this, flags, key); },
        [&](CVisualElement* d) { return d->ProcessKeyDown(flags, key, false); },
        [&] { return HandleKeyDown(flags, key); },
        [&](CVisualElement* p, bool handled) { return p->ProcessKeyDown(flags, key, handled); });
}

bool CVisualElement::ProcessKeyUp(int flags, int key, bool bubbling) {
    return BubbleKey(
        this, m_enabled, bubbling, [&] { sigKeyUp(this, flags, key); },
        [&](CVisualElement* d) { return d->ProcessKeyUp(flags, key, false); },
        [&] { return HandleKeyUp(flags, key); },
        [&](CVisualElement* p, bool handled) { return p->ProcessKeyUp(flags, key, handled); });
}

bool CVisualElement::ProcessChar(char c, bool bubbling) {
    return BubbleKey(
        this, m_enabled, bubbling, [&] { sigChar(this, c); },
        [&](CVisualElement* d) { return d->ProcessChar(c, false); }, [&] { return HandleChar(c); },
        [&](CVisualElement* p, bool handled) { return p->ProcessChar(c, handled); });
}

// --- Tooltips and context menu ----------------------------------------------------------------------------

bool CVisualElement::ProcessTooltip(mirel7::CTooltipEvent* ev) {
    sigTooltip(this, ev);
    bool handled = HandleOnTooltip(ev);
    ev->tooltipFont = GetFont();
    if (!handled && !m_tooltip.empty()) {
        ev->text = m_tooltip;
        ev->fromElement = m_tooltipFlag;
        ev->rect = GetBounds().Normalized();
        handled = true;
    }
    if (!handled) {
        if (!m_parent) return false;
        ev->x += m_bounds.left;
        ev->y += m_bounds.top;
        return m_parent->ProcessTooltip(ev);
    }
    // The rectangles are in this element's coordinates and go to the control's once, here, at the level
    // that handled the event.
    if (!ev->rect.IsAllZero()) ElementToControl(&ev->rect);
    if (!ev->rect2.IsAllZero()) ElementToControl(&ev->rect2);
    return true;
}

bool CVisualElement::ProcessTooltipTrack(mirel7::CTooltipEvent* ev) {
    sigTooltipTrack(this, ev);
    if (HandleOnTooltipTrack(ev)) return true;
    if (!m_parent) return false;
    ev->x += m_bounds.left;
    ev->y += m_bounds.top;
    return m_parent->ProcessTooltipTrack(ev);
}

void CVisualElement::ProcessContextMenu(int x, int y) {
    if (!m_enabled) return;
    sigContextMenu(this, x, y);
    if (HandleContextMenu(x, y)) return;
    if (m_contextMenu) {
        point<int> at{x, y};
        ElementToControl(&at);
        m_contextMenu->Popup(WindowOf(m_control), at);
    } else if (m_parent) {
        m_parent->ProcessContextMenu(m_bounds.left + x, m_bounds.top + y);
    }
}

// --- Focus ------------------------------------------------------------------------------------------------

void CVisualElement::ProcessGetFocus(CVisualElement* previous) {
    sigGetFocus(this);
    HandleGetFocus(previous, true);
    ProcessChildGetFocus(this, previous);
    OnChange(this, UpdateLocal);
}

void CVisualElement::ProcessLostFocus(CVisualElement* next) {
    sigLostFocus(this);
    HandleLostFocus(next);
    ProcessChildLostFocus(this, next);
    OnChange(this, UpdateLocal);
}

void CVisualElement::ProcessChildGetFocus(CVisualElement* focused, CVisualElement* other) {
    for (CVisualElement* e = this; e; e = e->m_parent) {
        e->sigChildGetFocus(focused, e);
        e->HandleChildFocusChanged(focused, other, true);
    }
}

void CVisualElement::ProcessChildLostFocus(CVisualElement* lost, CVisualElement* other) {
    for (CVisualElement* e = this; e; e = e->m_parent) {
        e->sigChildLostFocus(lost, e);
        e->HandleChildFocusChanged(lost, other, false);
    }
}

void CVisualElement::ProcessControlChangeFocus(bool gotFocus) {
    HandleControlChangeFocus(gotFocus);
    for (int i = 0; i < m_children->GetCount(); ++i)
        m_children->GetItem(i)->ProcessControlChangeFocus(gotFocus);
}

void CVisualElement::ProcessSysColorChanged() {
    for (int i = 0; i < m_children->GetCount(); ++i)
        m_children->GetItem(i)->ProcessSysColorChanged();
    SysColorsChanged();
    AttributeChanged();
}

void CVisualElement::ProcessControlDestroy() {
    sigControlDestroy(this);
    HandleControlDestroy();
    for (int i = 0; i < m_children->GetCount(); ++i)
        m_children->GetItem(i)->ProcessControlDestroy();
}

// --- Tab chain --------------------------------------------------------------------------------------------

CVisualElement* CVisualElement::GetFirstTabElement() {
    for (int i = 0; i < m_children->GetCount(); ++i) {
        CVisualElement* const child = m_children->GetItem(i);
        if (CanHaveFocus(child)) return child;
        if (child->m_visible && child->m_enabled)
            if (CVisualElement* const inner = child->GetFirstTabElement()) return inner;
    }
    return nullptr;
}

CVisualElement* CVisualElement::GetLastTabElement() {
    for (int i = m_children->GetCount() - 1; i >= 0; --i) {
        CVisualElement* const child = m_children->GetItem(i);
        if (CanHaveFocus(child)) return child;
        if (child->m_visible && child->m_enabled)
            if (CVisualElement* const inner = child->GetLastTabElement()) return inner;
    }
    return nullptr;
}

CVisualElement* CVisualElement::GetNextTabElement(CVisualElement* from) {
    return GetNextTabElementInt(from, true);
}

CVisualElement* CVisualElement::GetNextTabElementInt(CVisualElement* from, bool enterFrom) {
    int i = 0;
    int const count = m_children->GetCount();
    while (i < count && m_children->GetItem(i) != from)
        ++i;
    if (i < count) {
        // Tab goes into a focused composite before it goes past it.
        if (enterFrom)
            if (CVisualElement* const inner = from->GetFirstTabElement(); inner && inner != from)
                return inner;
        for (++i; i < count; ++i) {
            CVisualElement* const child = m_children->GetItem(i);
            CVisualElement* candidate = nullptr;
            if (CanHaveFocus(child))
                candidate = child;
            else if (child->m_visible && child->m_enabled)
                candidate = child->GetFirstTabElement();
            if (candidate && candidate != from) return candidate;
        }
    }
    if (!m_parent) return from;
    CVisualElement* const up = m_parent->GetNextTabElementInt(this, false);
    return up == this ? from : up;
}

CVisualElement* CVisualElement::GetPrevTabElement(CVisualElement* from) {
    int i = m_children->GetCount() - 1;
    while (i >= 0 && m_children->GetItem(i) != from)
        --i;
    // Backwards the inside of a child comes before the child itself; `from` itself is never entered.
    for (--i; i >= 0; --i) {
        CVisualElement* const child = m_children->GetItem(i);
        CVisualElement* candidate = nullptr;
        if (child->m_visible && child->m_enabled) candidate = child->GetLastTabElement();
        if (!candidate && CanHaveFocus(child)) candidate = child;
        if (candidate && candidate != from) return candidate;
    }
    if (!m_parent) return from;
    CVisualElement* const up = m_parent->GetPrevTabElement(this);
    return up == this ? from : up;
}

// --- Defaults of the input virtuals -----------------------------------------------------------------------

bool CVisualElement::HandleMouseMove(int, int, int, MouseButton) {
    return false;
}
bool CVisualElement::HandleButtonDown(int, int, int, MouseButton) {
    return false;
}
bool CVisualElement::HandleButtonUp(int, int, int, MouseButton) {
    return false;
}
bool CVisualElement::HandleClick(int, int, int, MouseButton) {
    return false;
}
bool CVisualElement::HandleDoubleClick(int, int, int, MouseButton) {
    return false;
}
bool CVisualElement::HandleWheel(int, int, int, MouseButton, int) {
    return false;
}
void CVisualElement::HandleMouseHover(CVisualElement*) {}
void CVisualElement::HandleMouseLeave(CVisualElement*) {}
void CVisualElement::HandleChildrenMouseHover(CVisualElement*) {}
void CVisualElement::HandleChildrenMouseLeave(CVisualElement*) {}
bool CVisualElement::HandleKeyDown(int, int) {
    return false;
}
bool CVisualElement::HandleKeyUp(int, int) {
    return false;
}
bool CVisualElement::HandleChar(char) {
    return false;
}
bool CVisualElement::HandleOnTooltip(mirel7::CTooltipEvent*) {
    return false;
}
bool CVisualElement::HandleOnTooltipTrack(mirel7::CTooltipEvent*) {
    return false;
}
bool CVisualElement::HandleContextMenu(int, int) {
    return false;
}

void CVisualElement::HandleGetFocus(CVisualElement* previous, bool direct) {
    // Delegates that lead back to an element on the way would pass the focus round for ever.
    if (direct || !m_focusDelegate || m_focusDelegate == this ||
        IsDelegating(t_focusDelegations, m_focusDelegate))
        return;
    CDelegationScope scope(t_focusDelegations, this);
    m_focusDelegate->HandleGetFocus(previous, false);
}

void CVisualElement::HandleLostFocus(CVisualElement*) {}
void CVisualElement::HandleChildFocusChanged(CVisualElement*, CVisualElement*, bool) {}
void CVisualElement::HandleControlChangeFocus(bool) {}
void CVisualElement::HandleControlDestroy() {}
void CVisualElement::HandleRefreshPos() {}

} // namespace mirelfrw7
