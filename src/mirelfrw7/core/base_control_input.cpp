// The input half of CBaseControlImp: who receives a mouse or key event, and how the control keeps capture,
// hover, click, drag, focus and the Tab chain.
#include <mirelfrw7/core/base_control.h>
#include <mirelfrw7/core/life_guard.h>

#include <mirel7/sys_window.h>
#include <mirel7/system.h>
#include <mirel7/window_painter.h>

#include <cstdlib>

namespace mirelfrw7 {

CVisualElement* CBaseControlImp::MouseTarget(point<int>& at) const {
    if (!m_capture) return m_content;
    m_capture->ControlToElement(&at);
    return m_capture;
}

void CBaseControlImp::ProcessButtonDown(mirel7::CMouseEvent* ev) {
    if (!GetWindow()) return;
    m_mouseFlags |= ButtonDown;
    m_downPos = {ev->x, ev->y};
    if (!m_mouseElement) {
        ProcessMouseMove(ev);
        if (!m_mouseElement) return;
    }
    m_clickedElement = m_mouseElement;
    point<int> at{ev->x, ev->y};
    MouseTarget(at)->ProcessButtonDown(at.x, at.y, ev->flags, ev->button);
}

void CBaseControlImp::ProcessMouseMove(mirel7::CMouseEvent* ev) {
    mirel7::ISysWindow* const window = GetWindow();
    if (!window) return;
    if (ev->button == mirel7::MouseButton(0) && m_clickedElement) {
        // The button came up unseen. A drag still open would have no button to end it: it ends here as a
        // drop on nothing.
        CLifeGuard dragged(m_draggedElement);
        m_mouseFlags = 0;
        m_clickedElement = nullptr;
        if (dragged) {
            m_draggedElement = nullptr;
            window->ReleaseMouse();
            EndDrag(dragged, nullptr);
        }
    }

    point<int> at{ev->x, ev->y};
    MouseTarget(at)->ProcessMouseMove(at.x, at.y, ev->flags, ev->button);

    if (m_clickedElement && !m_draggedElement && IsClicked() && !(m_mouseFlags & DragRefused)) {
        bool const moved = std::abs(ev->x - m_downPos.x) > m_dragSensitivity.cx ||
                           std::abs(ev->y - m_downPos.y) > m_dragSensitivity.cy;
        if (moved) {
            point<int> down = m_downPos;
            m_clickedElement->ControlToElement(&down);
            m_dragInfo = DragInfo();
            // The question may delete the element asked, which then clears m_clickedElement.
            if (m_clickedElement->CanStartDragging(m_clickedElement, down.x, down.y, m_dragInfo) &&
                m_clickedElement) {
                m_mouseFlags |= DragBufferDue;
                m_draggedElement = m_clickedElement;
                window->CaptureMouse();
            } else {
                m_mouseFlags |= DragRefused;
            }
        }
    }
    if (!m_draggedElement) {
        m_lastMouse = {ev->x, ev->y};
        return;
    }

    rectangle<int>& r = m_dragInfo.rect;
    int const dx = ev->x - m_lastMouse.x, dy = ev->y - m_lastMouse.y;
    r = {r.left + dx, r.top + dy, r.right + dx, r.bottom + dy};
    rectangle<int> const& limits = m_dragInfo.limits;
    if (!limits.IsAllZero()) {
        // The size stays; the right and bottom tests come last, so they win over a too small limit.
        int const width = r.Width(), height = r.Height();
        if (r.left < limits.left) r = {limits.left, r.top, limits.left + width, r.bottom};
        if (r.right > limits.right) r = {limits.right - width, r.top, limits.right, r.bottom};
        if (r.top < limits.top) r = {r.left, limits.top, r.right, limits.top + height};
        if (r.bottom > limits.bottom) r = {r.left, limits.bottom - height, r.right, limits.bottom};
    }

    if (CVisualElement* const target = m_capture ? m_capture : m_mouseElement) {
        point<int> over{ev->x, ev->y};
        target->ControlToElement(&over);
        if (target->DragOver(m_draggedElement, target, over.x, over.y, m_dragInfo)) {
            window->SetCursor(1);
            m_mouseFlags |= DropAccepted;
        } else {
            window->SetCursor(13);
            m_mouseFlags &= ~DropAccepted;
        }
    }
    // The target's answer may have deleted the dragged element, which then ended the drag.
    if (CVisualElement* const dragged = m_draggedElement) {
        dragged->OnChange(dragged, m_dragInfo.globalUpdate ? UpdateGlobal : UpdateLocal);
        sigDragMove(dragged, ev->x, ev->y);
    }
    m_lastMouse = {ev->x, ev->y};
}

void CBaseControlImp::ProcessButtonUp(mirel7::CMouseEvent* ev) {
    mirel7::ISysWindow* const window = GetWindow();
    if (!window) return;
    m_mouseFlags &= ~(ButtonDown | DragRefused);
    m_clickedElement = nullptr;
    bool const dragging = m_draggedElement != nullptr;
    CLifeGuard dragged(m_draggedElement);
    point<int> at{ev->x, ev->y};
    MouseTarget(at)->ProcessButtonUp(at.x, at.y, ev->flags, ev->button);
    m_draggedElement = nullptr;
    if (!dragging) return;
    window->ReleaseMouse();
    point<int> const drop{ev->x, ev->y};
    EndDrag(dragged, &drop);
}

// Every call out may delete the dragged element or the target: each is asked for again before its use,
// and a drag whose source died ends without a drop.
void CBaseControlImp::EndDrag(CLifeGuard const& dragged, point<int> const* at) {
    bool const accepted = (m_mouseFlags & DropAccepted) != 0;
    // A drag that saw no paint never took its copy of the window, and needs none now.
    m_mouseFlags = (m_mouseFlags & ~(DropAccepted | DragBufferDue)) | DragBufferDrop;
    CLifeGuard target(m_capture ? m_capture : m_mouseElement);
    if (dragged && at && accepted && target) {
        point<int> p = *at;
        target->ControlToElement(&p);
        target->DropDone(dragged.Get(), target.Get(), p.x, p.y, m_dragInfo);
        if (dragged) dragged->DragFinished(dragged.Get(), m_mouseElement, m_dragInfo);
        if (mirel7::ISysWindow* const window = GetWindow(); window && target)
            window->SetCursor(target->GetCursor());
    } else if (dragged) {
        dragged->DragFinished(dragged.Get(), nullptr, m_dragInfo);
    }
    if (dragged) dragged->OnChange(dragged.Get(), m_dragInfo.globalUpdate ? UpdateGlobal : UpdateLocal);
    if (dragged) sigDragEnd(dragged.Get());
}

void CBaseControlImp::ProcessDoubleClick(mirel7::CMouseEvent* ev) {
    if (!GetWindow()) return;
    point<int> at{ev->x, ev->y};
    MouseTarget(at)->ProcessDoubleClick(at.x, at.y, ev->flags, ev->button);
}

void CBaseControlImp::ProcessWheel(mirel7::CMouseWheelEvent* ev) {
    if (!GetWindow()) return;
    point<int> at{ev->x, ev->y};
    MouseTarget(at)->ProcessWheel(at.x, at.y, ev->flags, ev->button, ev->delta);
}

void CBaseControlImp::ProcessLeave(mirel7::CMouseEvent*) {
    mirel7::ISysWindow* const window = GetWindow();
    if (!window) return;
    if (m_mouseElement) m_mouseElement->ProcessMouseLeave(nullptr);
    m_mouseElement = nullptr;
    window->SetCursor(1);
}

void CBaseControlImp::ProcessOnHover(mirel7::CMouseEvent*) {
    mirel7::ISysWindow* const window = GetWindow();
    if (window && m_capture) window->SetCursor(m_capture->GetCursor());
}

void CBaseControlImp::StartDragging(CVisualElement* element, DragInfo const& info) {
    m_draggedElement = element;
    m_dragInfo = info;
    m_mouseFlags |= DragBufferDue;
}

void CBaseControlImp::SetCapture(CVisualElement* element) {
    m_capture = element;
    if (mirel7::ISysWindow* const window = GetWindow()) {
        if (element)
            window->CaptureMouse();
        else
            window->ReleaseMouse();
    }
}

void CBaseControlImp::SetMouseElement(CVisualElement* element) {
    if (element == m_mouseElement) return;
    CVisualElement* const old = m_mouseElement;
    if (old) old->ProcessMouseLeave(element);
    m_mouseElement = element;
    if (element) element->ProcessMouseHover(old);
}

// --- Keyboard ---------------------------------------------------------------------------------------------

void CBaseControlImp::ProcessKeyDown(mirel7::CKeyboardEvent* ev) {
    mirel7::ISysWindow* const window = GetWindow();
    if (!window) return;
    int const key = ev->GetVirtualKey();
    if (key == 9) {
        if (!window->HasFocus()) {
            m_focused = nullptr;
            window->SetFocus();
        }
        bool const forward = !(ev->flags & mirel7::FlagShift);
        CVisualElement* const old = m_focused;
        m_tabProcessing = true;
        ProcessFocusChange(forward);
        m_tabProcessing = false;
        if (m_focused != old) ev->passToBase = false;
    }
    // The Tab key too goes to the element that has the focus now.
    CVisualElement* const target = m_focused ? m_focused : m_content;
    if (!target->ProcessKeyDown(ev->flags, key, false)) ev->handled = false;
}

void CBaseControlImp::ProcessKeyUp(mirel7::CKeyboardEvent* ev) {
    if (!GetWindow()) return;
    CVisualElement* const target = m_focused ? m_focused : m_content;
    if (!target->ProcessKeyUp(ev->flags, ev->GetVirtualKey(), false)) ev->handled = false;
}

void CBaseControlImp::ProcessChar(mirel7::CKeyboardEvent* ev) {
    if (!GetWindow()) return;
    CVisualElement* const target = m_focused ? m_focused : m_content;
    if (!target->ProcessChar(static_cast<char>(ev->GetCharacterCode()), false)) ev->handled = false;
}

void CBaseControlImp::ProcessFocusChange(bool forward) {
    CVisualElement* const next = m_focused ? (forward ? GetNextElement(m_focused) : GetPrevElement(m_focused))
                                           : (forward ? GetFirstElement() : GetLastElement());
    if (next && next != m_focused) next->SetFocus(true);
}

namespace {
// Who answers the next/previous question about `element`: the tab handler, else its parent, else the root.
CVisualElement* TabAuthority(CVisualElement* tabHandler, CVisualElement* element, CVisualElement* content) {
    if (tabHandler) return tabHandler;
    return element->GetParent() ? element->GetParent() : content;
}
} // namespace

CVisualElement* CBaseControlImp::GetNextElement(CVisualElement* element) const {
    return element ? TabAuthority(m_tabHandler, element, m_content)->GetNextTabElement(element) : nullptr;
}

CVisualElement* CBaseControlImp::GetPrevElement(CVisualElement* element) const {
    return element ? TabAuthority(m_tabHandler, element, m_content)->GetPrevTabElement(element) : nullptr;
}

CVisualElement* CBaseControlImp::GetFirstElement() const {
    return CanHaveFocus(m_content) ? m_content : m_content->GetFirstTabElement();
}

CVisualElement* CBaseControlImp::GetLastElement() const {
    return m_content->GetLastTabElement();
}

void CBaseControlImp::SetFocusedElement(CVisualElement* element, bool setSystemFocus) {
    if (element == m_focused) return;
    CVisualElement* const old = m_focused;
    m_focussing = m_focused = element;
    if (old) old->ProcessLostFocus(element);
    m_tabHandler = nullptr;
    // Read again: a lost-focus handler may have moved the focus.
    if (m_focused) m_focused->ProcessGetFocus(old);
    mirel7::ISysWindow* const window = GetWindow();
    if (setSystemFocus && window && !window->HasFocus()) window->SetFocus();
    if (m_owner) m_owner->sigFocusedElementChanged(m_owner, m_focused);
}

void CBaseControlImp::ProcessGetFocus() {
    if (!GetWindow()) return;
    CVisualElement* e = m_focused;
    while (e && !CanHaveFocus(e))
        e = e->GetParent();
    m_focused = e;
    if (!e) {
        if (CVisualElement* const first = GetFirstElement()) first->SetFocus(true);
    } else {
        e->ProcessGetFocus(nullptr);
    }
    m_content->ProcessControlChangeFocus(true);
}

void CBaseControlImp::ProcessLostFocus() {
    if (!GetWindow()) return;
    // The focused element stays: it takes the focus again when the window gets it back.
    if (m_focused) m_focused->ProcessLostFocus(nullptr);
    m_content->ProcessControlChangeFocus(false);
}

// A neighbouring window hands the tab chain over: 0 enters at the first element, 1 at the last.
void CBaseControlImp::ProcessCustom(mirel7::CCustomEvent* ev) {
    if (!GetWindow()) return;
    CVisualElement* const target = ev->data == 0   ? GetFirstElement()
                                   : ev->data == 1 ? GetLastElement()
                                                   : nullptr;
    if (!target) return;
    m_tabProcessing = true;
    target->SetFocus(true);
    m_tabProcessing = false;
}

// --- Other events -----------------------------------------------------------------------------------------

void CBaseControlImp::ProcessContextMenu(mirel7::CContextMenuEvent* ev) {
    if (!GetWindow()) return;
    if (m_mouseElement) {
        point<int> at{ev->x, ev->y};
        m_mouseElement->ControlToElement(&at);
        m_mouseElement->ProcessContextMenu(at.x, at.y);
    } else {
        m_content->ProcessContextMenu(ev->x, ev->y);
    }
}

void CBaseControlImp::ProcessTooltip(mirel7::CTooltipEvent* ev) {
    if (!GetWindow() || !m_mouseElement || m_draggedElement) return;
    point<int> at{ev->x, ev->y};
    m_mouseElement->ControlToElement(&at);
    ev->x = at.x;
    ev->y = at.y;
    m_mouseElement->ProcessTooltip(ev);
}

void CBaseControlImp::ProcessTooltipTrack(mirel7::CTooltipEvent* ev) {
    if (!GetWindow() || !m_mouseElement) return;
    point<int> at{ev->x, ev->y};
    m_mouseElement->ControlToElement(&at);
    ev->x = at.x;
    ev->y = at.y;
    m_mouseElement->ProcessTooltipTrack(ev);
}

void CBaseControlImp::ProcessSysColorChanged() {
    if (!GetWindow()) return;
    m_content->ProcessSysColorChanged();
    if (m_owner) m_owner->sigSysColorChanged(m_owner);
}

void CBaseControlImp::ActivateHelp(std::string const& id) const {
    if (m_owner && !id.empty()) m_owner->sigHelpRequested(m_owner, id);
}

void CBaseControlImp::OpenLink(std::string const& link) const {
    if (!m_owner || link.empty()) return;
    bool taken = false;
    m_owner->sigOpenLink(m_owner, link, taken);
    if (mirel7::ISystem* const system = mirel7::GetCurrentSystem(); system && !taken) system->OpenLink(link);
}

} // namespace mirelfrw7
