#include <mirelfrw7/core/base_control.h>
#include <mirelfrw7/core/cancel_processing.h>

#include <mirel7/sys_window.h>
#include <mirel7/system.h>
#include <mirel7/window_painter.h>

namespace mirelfrw7 {

IControl::~IControl() = default;

CBaseControlImp::CBaseControlImp(CBaseControl* owner)
    : m_owner(owner), m_content(new CContent(nullptr, {0, 0}, AlignClient)) {
    m_content->ReParent(nullptr, true);
    m_content->SetControl(this);
}

CBaseControlImp::~CBaseControlImp() {
    if (m_content->IsDynamic())
        delete m_content;
    else
        m_content->SetControl(nullptr);
    m_content = nullptr;
}

mirel7::ISysWindow* CBaseControlImp::GetWindow() {
    return m_owner ? m_owner->GetSysWindow() : nullptr;
}

mirel7::IImageList* CBaseControlImp::GetImageList() {
    return m_owner ? m_owner->GetImageList() : nullptr;
}

void CBaseControlImp::SetImageList(mirel7::IImageList* images) {
    if (m_owner) m_owner->SetImageList(images);
}

rectangle<int> CBaseControlImp::GetRealDrawRect() const {
    mirel7::ISysWindow* const window = m_owner ? m_owner->GetSysWindow() : nullptr;
    if (!window) return {};
    screen_rectangle<int> client;
    window->GetClientRect(client);
    return {client.left, client.top, client.right - 1, client.bottom - 1};
}

bool CBaseControlImp::IsWindowEmpty() const {
    rectangle<int> const rect = GetRealDrawRect();
    return rect.right < rect.left || rect.bottom < rect.top;
}

void CBaseControlImp::InvalidateWindow() {
    // The layout inside a paint pass is drawn by that same pass; an empty window has nothing to show.
    if (m_arrangingInPaint || IsWindowEmpty()) return;
    if (mirel7::ISysWindow* const window = GetWindow()) {
        screen_rectangle<int> client;
        window->GetClientRect(client);
        window->Invalidate(client);
    }
}

void CBaseControlImp::ArrangeAll(bool force) {
    // An empty window has no rectangle to lay the tree into; the need stays for when it grows.
    if (IsWindowEmpty()) return;
    m_rearrangeNeeded = false;
    sigBeforeArrange();
    m_content->SetPos(GetRealDrawRect().Normalized(), force);
    RearrangeInt();
    m_content->RefreshPos();
    sigAfterArrange();
}

// --- Paint pass -------------------------------------------------------------------------------------------

constexpr int MaxAfterArrangeRounds = 8;

void CBaseControlImp::ProcessDraw(IPainter* painter) {
    mirel7::ISysWindow* const window = GetWindow();
    if (!window || !painter || IsWindowEmpty()) return;
    sigBeforePaint();
    if (m_firstPaint) {
        m_rearrangeNeeded = true;
        m_rearranges.Clear();
    }
    bool paintAll = m_rearrangeNeeded || m_fullRepaint || !m_updates.IsEmpty();

    // Layout always happens before any drawing, inside the paint.
    rectangle<int> const rect = GetRealDrawRect().Normalized();
    m_arrangingInPaint = true;
    try {
        if (m_content->GetBounds() == rect)
            ForceRearrange();
        else if (m_rearrangeLocks == 0)
            ArrangeAll(true);
        // A slot of the arrangement signals may ask for more layout; this pass draws it, since no paint
        // of its own follows. A slot that asks every time is cut off after a few rounds.
        for (int round = 0; round < MaxAfterArrangeRounds && m_rearrangeNeeded && !m_rearranges.IsEmpty();
             ++round)
            ForceRearrange();
    } catch (...) {
        m_arrangingInPaint = false;
        throw;
    }
    m_arrangingInPaint = false;

    if (m_firstPaint) {
        m_updates.Clear();
        m_firstPaint = false;
    }
    painter->SetColorSubstitution(painter->IsDisabled() ? _color(0, 0, 0, 255) : _color(), false);
    painter->BeginPaint(IPainter::PaintWindow);
    if (painter->NeedsFullRepaint()) {
        m_updates.Clear();
        paintAll = true;
    }
    // The copy under a drag item is laid in window pixels, whatever mapping the last paint's item left.
    painter->SetCoordSystem(IPainter::MapDevice, nullptr);
    IPainter::MapMode savedMode;
    IPainter::CoordInfo savedInfo;
    painter->GetCoordSystem(savedMode, &savedInfo);

    screen_rectangle<int> client;
    window->GetClientRect(client);
    // A drag that begins or ends works its copy of the window at the next paint, also one with nothing else
    // to draw: a copy first taken later would hold the item this paint lays on the window.
    bool const dragCopyDue = (m_mouseFlags & (DragBufferDue | DragBufferDrop)) != 0;
    if (paintAll || !m_updates.IsEmpty() || dragCopyDue) {
        if (m_draggedElement || (m_mouseFlags & DragBufferDrop)) {
            if (!m_dragInfo.useBuffer) {
                m_mouseFlags &= ~DragBufferDrop;
            } else {
                // The last frame without the drag item comes back under the new one; so does an ended drag's
                // when the next drag begins before it went.
                bool const ended = m_mouseFlags & DragBufferDrop;
                if (m_dragBuffer && (ended || !(m_mouseFlags & DragBufferDue)))
                    painter->DrawRasterPicture(m_dragBuffer.get(), 0, 0, client.Width(), client.Height());
                if (ended) m_dragBuffer.reset();
                if (m_mouseFlags & DragBufferDue) {
                    // The new drag's own copy, taken once this paint is done.
                    mirel7::ISystem* const system = mirel7::GetCurrentSystem();
                    m_dragBuffer =
                        system ? system->CreateRasterPicture(client.Width(), client.Height()) : nullptr;
                    m_mouseFlags &= ~DragBufferDue;
                }
                m_mouseFlags &= ~DragBufferDrop;
            }
        }

        if (m_fullRepaint || (paintAll && m_updates.IsEmpty()))
            m_content->OnDraw(painter);
        else if (!m_updates.IsEmpty())
            DrawUpdates(painter);

        m_updates.Clear();
        painter->ResetClip();
        painter->ClearStoredClip();
        painter->SetCoordSystem(savedMode, &savedInfo);
        if (m_draggedElement && m_dragBuffer)
            painter->ExtractRasterPicture(m_dragBuffer.get(), 0, 0, client.Width(), client.Height());
    }

    // The drag item is drawn above everything at every paint, also when nothing else changed.
    if (m_draggedElement) {
        point<int> origin;
        m_draggedElement->ElementToControl(&origin);
        rectangle<int> const bounds = m_draggedElement->GetBounds();
        auto const info = IPainter::CoordInfo::Mapping(0, 0, bounds.right, bounds.bottom, origin.x, origin.y,
                                                       bounds.right, bounds.bottom);
        painter->SetCoordSystem(IPainter::MapElement, &info);
        m_draggedElement->DrawDragItem(m_draggedElement, painter, m_dragInfo,
                                       (m_mouseFlags & DropAccepted) != 0, m_mouseElement);
    }
    painter->EndPaint();
    m_fullRepaint = false;
    sigAfterPaint();
}

namespace {
// The elements of one paint pass in drawing order; an element may come more than once.
class CDrawRun : public IVisualElements {
public:
    int GetCount() const override { return static_cast<int>(items.size()); }
    CVisualElement* GetItem(int index) override { return items[static_cast<std::size_t>(index)]; }
    std::vector<CVisualElement*> items;
};
} // namespace

void CBaseControlImp::DrawUpdates(IPainter* painter) {
    m_updates.Reduce();
    CDrawRun run;
    for (int i = 0; i < m_updates.GetCount(); ++i) {
        CVisualElement* const element = m_updates.GetItem(i);
        // Hidden or squeezed to nothing since it was queued: a full paint would not draw it either.
        if (!element || !IsDrawn(element)) continue;
        run.items.push_back(element);
        // What lies over the element is drawn again after it, as a full repaint would draw it.
        rectangle<int> extent;
        if (GetExtent(element, extent, false)) AddOverlapping(element, extent, run.items);
    }
    DrawElements(&run, painter, {});
}

void CBaseControlImp::ProcessResize(mirel7::CWindowEvent*, bool force) {
    if (!GetWindow()) return;
    // What an empty window showed is gone: all of it paints once the window grows again.
    if (force || IsWindowEmpty()) m_fullRepaint = true;
    if (m_rearrangeLocks == 0) ArrangeAll(force);
    InvalidateWindow();
}

// --- Rearranging ------------------------------------------------------------------------------------------

void CBaseControlImp::ForceRearrange() {
    if (!m_rearrangeNeeded) return;
    if (m_rearranging) {
        m_rearrangeNeeded = false;
        m_rearrangeAgain = true;
        return;
    }
    if (m_rearranges.IsEmpty()) {
        if (m_rearrangeLocks != 0) {
            m_rearrangeNeeded = false;
            m_rearranging = false;
        } else {
            m_rearranging = true;
            ArrangeAll(true);
        }
    } else {
        m_rearranging = true;
        m_rearrangeNeeded = false;
        sigBeforeArrange();
        RearrangeInt();
        m_content->RefreshPos();
        sigAfterArrange();
    }
    m_rearranging = false;
    if (m_rearrangeAgain) {
        m_rearrangeAgain = false;
        ForceRearrange();
    }
}

void CBaseControlImp::RearrangeInt() {
    if (m_rearrangeLocks != 0 || m_rearranges.IsEmpty()) return;
    m_rearranges.Reduce();
    // A layout that keeps queuing elements is cut off. A round may ask again for what it just placed (a box
    // that measured anew while it was placed) and is laid out once more; asking a third time in a row, or an
    // oscillation that outlasts any real cascade, never settles.
    constexpr int MaxRounds = 64, MaxRepeats = 2;
    CElementList previous;
    for (int round = 0, repeats = 0; !m_rearranges.IsEmpty(); ++round) {
        repeats = previous == m_rearranges ? repeats + 1 : 0;
        if (repeats == MaxRepeats || round == MaxRounds) {
            m_rearranges.Clear();
            break;
        }
        previous = m_rearranges;
        m_rearranges.Clear();
        for (int i = 0; i < previous.GetCount(); ++i) {
            CVisualElement* const element = previous.GetItem(i);
            if (element && element->IsDisplayable())
                element->SetPos(element->GetPosition(), true); // as a full layout placed it, inverted or not
        }
    }
}

void CBaseControlImp::LockRearrange(bool lock) {
    if (lock) {
        ++m_rearrangeLocks;
        return;
    }
    if (m_rearrangeLocks > 0) --m_rearrangeLocks;
    if (m_rearrangeLocks != 0) return;
    // A pass that ran during the lock cleared the request but could not work the queue off: ask again, or
    // the queued elements would wait for an unrelated request.
    if (!m_rearranges.IsEmpty()) m_rearrangeNeeded = true;
    // A resize or a new root during the lock left the content out of place, and the window showed it so:
    // it is laid out and drawn whole.
    if (m_content->GetBounds() != GetRealDrawRect().Normalized() && !IsWindowEmpty()) {
        m_rearrangeNeeded = true;
        m_fullRepaint = true;
        InvalidateWindow();
    }
    ForceRearrange();
}

// --- Updates ----------------------------------------------------------------------------------------------

void CBaseControlImp::UpdateElement(CVisualElement* element, UpdateType type) {
    if (!element) return;
    if (!GetWindow()) {
        // Forgetting a leaving element is bookkeeping the control owes even without a window: the pointers
        // must never outlive the element.
        if (type & UpdateLeaving) ForgetElement(element);
        return;
    }
    if (type & (UpdateGlobal | 4)) m_content->OnGlobalUpdate();
    if (m_fullRepaint || !(type & UpdateLocal)) {
        if (type & UpdateLeaving) {
            ForgetElement(element);
        } else {
            m_updates.Clear();
            m_fullRepaint = true;
        }
        InvalidateWindow();
        return;
    }
    int const before = m_updates.GetCount();
    m_updates.AddElement(element);
    if (m_updates.GetCount() > before) InvalidateWindow();
}

void CBaseControlImp::ForgetElement(CVisualElement* element) {
    // A drag whose element leaves ends without a drop: the copy under its item goes at the next paint.
    if (element == m_draggedElement)
        m_mouseFlags = (m_mouseFlags & ~(DropAccepted | DragBufferDue)) | DragBufferDrop;
    bool const heldMouse = element == m_capture || element == m_draggedElement;
    m_updates.RemoveElement(element);
    m_rearranges.RemoveElement(element);
    for (CVisualElement** pointer : {&m_focused, &m_focussing, &m_mouseElement, &m_capture, &m_clickedElement,
                                     &m_draggedElement, &m_tabHandler, &m_dragTarget})
        if (*pointer == element) *pointer = nullptr;
    // The window holds the mouse for a capturing element and for a drag: it lets go when neither is left.
    if (heldMouse && !m_capture && !m_draggedElement)
        if (mirel7::ISysWindow* const window = GetWindow()) window->ReleaseMouse();
}

std::vector<CVisualElement*> CBaseControlImp::GetHeldElements() const {
    std::vector<CVisualElement*> held;
    for (CVisualElement* e : {m_capture, m_mouseElement, m_draggedElement, m_dragTarget, m_focused,
                              m_focussing, m_tabHandler, m_clickedElement})
        if (e) held.push_back(e);
    for (CElementList const* list : {&m_updates, &m_rearranges})
        for (int i = 0; i < list->GetCount(); ++i)
            if (CVisualElement* const e = const_cast<CElementList*>(list)->GetItem(i)) held.push_back(e);
    return held;
}

void CBaseControlImp::RearrangeElement(CVisualElement* element) {
    if (!GetWindow() || !element) return;
    if (CVisualElement* const parent = element->GetParent()) {
        if (!parent->IsDisplayable()) return;
        m_rearranges.AddElement(parent);
    } else if (element == m_content) {
        m_rearranges.AddElement(element);
    }
    m_rearrangeNeeded = true;
    InvalidateWindow();
}

bool CBaseControlImp::ScrollContent(int dx, int dy, screen_rectangle<int> const& rect) {
    mirel7::ISysWindow* const window = GetWindow();
    if (!window) return false;
    bool const scrolled = window->ScrollWindow(dx, dy, rect);
    mirel7::ISystem* const system = mirel7::GetCurrentSystem();
    if (m_dragBuffer && system) {
        // The copy under the drag item moves along with the window's pixels.
        screen_rectangle<int> client;
        window->GetClientRect(client);
        mirel_ptr<IRasterPicture> copy = system->CreateRasterPicture(client.Width(), client.Height());
        if (IPainter* const painter = copy ? copy->GetPainter() : nullptr) {
            painter->BeginPaint(IPainter::PaintPlain);
            painter->DrawRasterPicture(m_dragBuffer.get(), 0, 0, client.Width(), client.Height());
            painter->ExtractRasterPictureEx(m_dragBuffer.get(), rect.left, rect.top, rect.right + 1,
                                            rect.bottom + 1, {rect.left + dx, rect.top + dy});
            painter->EndPaint();
        }
    }
    return scrolled;
}

void CBaseControlImp::SetContent(CVisualElement* element) {
    if (!element) return;
    element->ReParent(nullptr, true);
    if (m_content) element->SetFont(m_content->GetStoredFont());
    if (element != m_content) {
        CVisualElement* const old = m_content;
        m_content = element;
        if (old->IsDynamic())
            delete old;
        else
            old->SetControl(nullptr);
    }
    element->SetControl(this);
    // The new root is laid out and drawn at the next paint.
    RearrangeElement(element);
}

// --- CBaseControl -----------------------------------------------------------------------------------------

namespace {
// The tree's handling of one event; cancel_processing thrown anywhere in it ends the event quietly.
template <class Work>
void Guarded(Work work) {
    try {
        work();
    } catch (cancel_processing const&) {
    }
}
} // namespace

CBaseControl::CBaseControl(mirel7::ISysWindow* window)
    : mirel7::CMirelControl(window, false), m_imp(new CBaseControlImp(this)) {}

CBaseControl::~CBaseControl() {
    delete m_imp;
    m_imp = nullptr;
}

void CBaseControl::OnDraw(IPainter* painter) {
    Guarded([&] {
        m_imp->ProcessDraw(painter);
        mirel7::CMirelControl::OnDraw(painter);
    });
}

void CBaseControl::OnResize(mirel7::CWindowEvent* ev) {
    Guarded([&] {
        m_imp->ProcessResize(ev, false);
        mirel7::CMirelControl::OnResize(ev);
    });
}

void CBaseControl::OnDestroy(mirel7::CWindowEvent* ev) {
    Guarded([&] {
        mirel7::CMirelControl::OnDestroy(ev);
        sigControlDestroy(this);
        m_imp->GetContent()->ProcessControlDestroy();
        m_imp->sigControlDestroyed();
    });
}

void CBaseControl::OnGetFocus(mirel7::CFocusEvent* ev) {
    Guarded([&] {
        m_imp->ProcessGetFocus();
        mirel7::CMirelControl::OnGetFocus(ev);
        sigControlGetFocus(this);
    });
}

void CBaseControl::OnLostFocus(mirel7::CFocusEvent* ev) {
    Guarded([&] {
        m_imp->ProcessLostFocus();
        mirel7::CMirelControl::OnLostFocus(ev);
        sigControlLostFocus(this);
    });
}

void CBaseControl::OnTooltip(mirel7::CTooltipEvent* ev) {
    Guarded([&] {
        m_imp->ProcessTooltip(ev);
        mirel7::CMirelControl::OnTooltip(ev);
    });
}

void CBaseControl::OnTooltipTrack(mirel7::CTooltipEvent* ev) {
    Guarded([&] {
        m_imp->ProcessTooltipTrack(ev);
        mirel7::CMirelControl::OnTooltipTrack(ev);
    });
}

void CBaseControl::OnButtonDown(mirel7::CMouseEvent* ev) {
    Guarded([&] {
        m_imp->ProcessButtonDown(ev);
        mirel7::CMirelControl::OnButtonDown(ev);
    });
}

void CBaseControl::OnButtonUp(mirel7::CMouseEvent* ev) {
    Guarded([&] {
        m_imp->ProcessButtonUp(ev);
        mirel7::CMirelControl::OnButtonUp(ev);
    });
}

void CBaseControl::OnMouseMove(mirel7::CMouseEvent* ev) {
    Guarded([&] {
        m_imp->ProcessMouseMove(ev);
        mirel7::CMirelControl::OnMouseMove(ev);
    });
}

void CBaseControl::OnWheel(mirel7::CMouseWheelEvent* ev) {
    Guarded([&] {
        m_imp->ProcessWheel(ev);
        mirel7::CMirelControl::OnWheel(ev);
    });
}

void CBaseControl::OnDoubleClick(mirel7::CMouseEvent* ev) {
    Guarded([&] {
        m_imp->ProcessDoubleClick(ev);
        mirel7::CMirelControl::OnDoubleClick(ev);
    });
}

void CBaseControl::OnHover(mirel7::CMouseEvent* ev) {
    Guarded([&] {
        m_imp->ProcessOnHover(ev);
        mirel7::CMirelControl::OnHover(ev);
    });
}

void CBaseControl::OnLeave(mirel7::CMouseEvent* ev) {
    Guarded([&] {
        m_imp->ProcessLeave(ev);
        mirel7::CMirelControl::OnLeave(ev);
    });
}

void CBaseControl::OnKeyDown(mirel7::CKeyboardEvent* ev) {
    Guarded([&] {
        // Ctrl+C copies when enabled and something was copied; then nothing else sees the key.
        if (m_copyToClipboard && ev->flags == mirel7::FlagControl && ev->GetVirtualKey() == 'C' &&
            CopyToClipboard())
            return;
        m_imp->ProcessKeyDown(ev);
        if (ev->passToBase) mirel7::CMirelControl::OnKeyDown(ev);
    });
}

void CBaseControl::OnKeyUp(mirel7::CKeyboardEvent* ev) {
    Guarded([&] {
        m_imp->ProcessKeyUp(ev);
        mirel7::CMirelControl::OnKeyUp(ev);
    });
}

void CBaseControl::OnChar(mirel7::CKeyboardEvent* ev) {
    Guarded([&] {
        m_imp->ProcessChar(ev);
        mirel7::CMirelControl::OnChar(ev);
    });
}

void CBaseControl::OnSysColorChanged(mirel7::CEvent*) {
    Guarded([&] { m_imp->ProcessSysColorChanged(); });
}

void CBaseControl::OnContextMenu(mirel7::CContextMenuEvent* ev) {
    Guarded([&] {
        m_imp->ProcessContextMenu(ev);
        mirel7::CMirelControl::OnContextMenu(ev);
    });
}

void CBaseControl::OnCustomEvent(mirel7::CCustomEvent* ev) {
    Guarded([&] { m_imp->ProcessCustom(ev); });
}

CVisualElement* CBaseControl::GetContent() const {
    return m_imp->GetContent();
}

void CBaseControl::SetContent(CVisualElement* element) {
    m_imp->SetContent(element);
}

void CBaseControl::Rearrange() {
    m_imp->ProcessResize(nullptr, true);
}

void CBaseControl::LockRearrange(bool lock) {
    m_imp->LockRearrange(lock);
}

CVisualElement* CBaseControl::GetMouseElement() const {
    return m_imp->GetMouseElement();
}

CVisualElement* CBaseControl::GetFocusedElement() const {
    return m_imp->GetFocusedElement();
}

std::string CBaseControl::GetHelpId(CVisualElement* element) const {
    for (CVisualElement* e = element ? element : m_imp->GetFocusedElement(); e; e = e->GetParent())
        if (!e->GetHelpId().empty()) return e->GetHelpId();
    return {};
}

bool CBaseControl::CopyToClipboard() {
    std::vector<CVisualElement*> chain;
    for (CVisualElement* e = m_imp->GetFocusedElement(); e; e = e->GetParent())
        chain.push_back(e);
    // The outermost element that accepts wins.
    for (auto it = chain.rbegin(); it != chain.rend(); ++it)
        if ((*it)->CopyToClipboard()) return true;
    return false;
}

} // namespace mirelfrw7
