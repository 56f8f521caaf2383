#pragma once

#include <mirelfrw7/core/control.h>
#include <mirelfrw7/core/element_list.h>
#include <mirelfrw7/core/life_guard.h>
#include <mirelfrw7/core/visual_element.h>
#include <mirelfrw7/export.h>

#include <mirel7/events.h>
#include <mirel7/mirel_control.h>

#include <string>

namespace mirelfrw7 {

class CBaseControl;

// The work of a control: the queues of updates and rearrangements, the paint pass, and the routing of the
// window's events into the tree. Every entry returns at once when the control has no window.
class MIRELFRW7_API CBaseControlImp : public IControl, public tarnkit2::subscriber_base_t {
public:
    // Bits of m_mouseFlags.
    enum MouseFlags {
        ButtonDown = 16,     // a button is down
        DragBufferDue = 32,  // a drag started and its buffer is not made yet
        DragBufferDrop = 64, // a drag ended and its buffer goes at the next paint
        DropAccepted = 128,  // the present drop target accepts
        DragRefused = 256,   // the start was refused; no second attempt until the button comes up
    };

    explicit CBaseControlImp(CBaseControl* owner);
    ~CBaseControlImp() override;

    // IControl
    void SetCapture(CVisualElement* element) override;
    CVisualElement* GetCapture() override { return m_capture; }
    mirel7::ISysWindow* GetWindow() override;
    mirel7::IImageList* GetImageList() override;
    void SetImageList(mirel7::IImageList* images) override;
    int GetUpdatesLastPos() const override { return m_updates.GetCount(); }
    void ClearUpdates(int keep) override { m_updates.Clear(keep); }
    void StartDragging(CVisualElement* element, DragInfo const& info) override;
    size<int> GetDragStartSensitivity() const override { return m_dragSensitivity; }
    void SetDragStartSensitivity(size<int> const& sensitivity) override { m_dragSensitivity = sensitivity; }
    bool IsClicked() const override { return (m_mouseFlags & ButtonDown) != 0; }
    bool ScrollContent(int dx, int dy, screen_rectangle<int> const& rect) override;
    void ForceRearrange() override;
    bool IsRearrangeNeeded() const override { return m_rearrangeNeeded; }
    void LockRearrange(bool lock) override;
    CVisualElement* GetMouseElement() override { return m_mouseElement; }
    CVisualElement* GetFocusedElement() override { return m_focused; }
    CVisualElement* GetFocussingElement() override { return m_focussing; }
    void SetFocusedElement(CVisualElement* element, bool setSystemFocus) override;
    void SetTabHandler(CVisualElement* element) override { m_tabHandler = element; }
    void UpdateElement(CVisualElement* element, UpdateType type) override;
    void RearrangeElement(CVisualElement* element) override;
    bool IsTabKeyProcessing() const override { return m_tabProcessing; }
    void ActivateHelp(std::string const& id) const override;
    void SetMouseElement(CVisualElement* element) override;
    CVisualElement* GetDraggedElement() const override { return m_draggedElement; }
    void SetDragTarget(CVisualElement* element) override { m_dragTarget = element; }
    CVisualElement* GetDragTarget() const override { return m_dragTarget; }
    void OpenLink(std::string const& link) const override;

    void ProcessDraw(IPainter* painter);
    // The client rectangle less one pixel at the right and bottom; all zero without a window.
    rectangle<int> GetRealDrawRect() const;
    void ProcessResize(mirel7::CWindowEvent* ev, bool force);
    void ProcessButtonDown(mirel7::CMouseEvent* ev);
    void ProcessButtonUp(mirel7::CMouseEvent* ev);
    void ProcessMouseMove(mirel7::CMouseEvent* ev);
    void ProcessDoubleClick(mirel7::CMouseEvent* ev);
    void ProcessWheel(mirel7::CMouseWheelEvent* ev);
    void ProcessKeyDown(mirel7::CKeyboardEvent* ev);
    void ProcessKeyUp(mirel7::CKeyboardEvent* ev);
    void ProcessChar(mirel7::CKeyboardEvent* ev);
    void ProcessFocusChange(bool forward);
    CVisualElement* GetNextElement(CVisualElement* element) const;
    CVisualElement* GetPrevElement(CVisualElement* element) const;
    CVisualElement* GetFirstElement() const;
    CVisualElement* GetLastElement() const;
    void ProcessLeave(mirel7::CMouseEvent* ev);
    void ProcessOnHover(mirel7::CMouseEvent* ev);
    void ProcessTooltip(mirel7::CTooltipEvent* ev);
    void ProcessTooltipTrack(mirel7::CTooltipEvent* ev);
    void ProcessContextMenu(mirel7::CContextMenuEvent* ev);
    void ProcessGetFocus();
    void ProcessLostFocus();
    void ProcessCustom(mirel7::CCustomEvent* ev);
    void ProcessSysColorChanged();
    void RearrangeInt();

    CVisualElement* GetContent() const { return m_content; }
    void SetContent(CVisualElement* element);
    int GetMouseFlags() const { return m_mouseFlags; }
    CVisualElement* GetClickedElement() const { return m_clickedElement; }
    DragInfo const& GetDragInfo() const { return m_dragInfo; }
    bool IsFullRepaintPending() const { return m_fullRepaint; }
    CElementList const& GetUpdates() const { return m_updates; }
    CElementList const& GetRearranges() const { return m_rearranges; }
    // Every element the control points at or has queued, nulls left out: for tests that check it names
    // only live elements of its own tree.
    std::vector<CVisualElement*> GetHeldElements() const;

private:
    // The whole client area: repaints are never partial at the window's level, the partial work is the list.
    void InvalidateWindow();
    // A window without width or height: it paints nothing, lays nothing out and asks for no paint.
    bool IsWindowEmpty() const;
    // The queued elements, each followed by what lies over it.
    void DrawUpdates(IPainter* painter);
    // The content laid out into the client rectangle, the queued rearrangements worked off, all between the
    // two arrange signals.
    void ArrangeAll(bool force);
    // The receiver of a mouse event: the capture, else the content; the point comes in its coordinates.
    CVisualElement* MouseTarget(point<int>& at) const;
    // Ends the drag of `dragged`: a drop at `at` (control coordinates) when the target accepts, else a drop
    // on nothing.
    void EndDrag(CLifeGuard const& dragged, point<int> const* at);
    void ForgetElement(CVisualElement* element);

    CBaseControl* m_owner;
    CVisualElement* m_content;
    CVisualElement* m_capture = nullptr;
    CVisualElement* m_mouseElement = nullptr;
    CVisualElement* m_draggedElement = nullptr;
    CVisualElement* m_dragTarget = nullptr;
    CVisualElement* m_focused = nullptr;
    CVisualElement* m_focussing = nullptr;
    CVisualElement* m_tabHandler = nullptr;
    CElementList m_updates;
    CElementList m_rearranges;
    bool m_fullRepaint = false;
    bool m_rearrangeNeeded = true;
    bool m_rearrangeAgain = false;
    bool m_rearranging = false;
    bool m_firstPaint = true;
    bool m_tabProcessing = false;
    bool m_arrangingInPaint = false;
    int m_rearrangeLocks = 0;
    point<int> m_lastMouse;
    point<int> m_downPos;
    CVisualElement* m_clickedElement = nullptr;
    mirel_ptr<IRasterPicture> m_dragBuffer;
    size<int> m_dragSensitivity{2, 2};
    DragInfo m_dragInfo;
    int m_mouseFlags = 0;
};

// The bridge between one system window and one tree of elements. Each window event runs inside a catch of
// cancel_processing: the tree sees it first, the base layer's own subscribers after.
class MIRELFRW7_API CBaseControl : public mirel7::CMirelControl {
public:
    tarnkit2::signal_t<CBaseControl*> sigControlGetFocus;
    tarnkit2::signal_t<CBaseControl*> sigControlLostFocus;
    tarnkit2::signal_t<CBaseControl*> sigControlDestroy;
    tarnkit2::signal_t<CBaseControl*> sigSysColorChanged;
    tarnkit2::signal_t<CBaseControl*, CVisualElement*> sigFocusedElementChanged;
    tarnkit2::signal_t<CBaseControl*, std::string const&> sigHelpRequested;
    // A slot that opens the link itself sets the flag, and the desktop is not asked.
    tarnkit2::signal_t<CBaseControl*, std::string const&, bool&> sigOpenLink;

    explicit CBaseControl(mirel7::ISysWindow* window);
    ~CBaseControl() override;
    CBaseControl(CBaseControl const&) = delete;
    CBaseControl& operator=(CBaseControl const&) = delete;

    void OnDraw(IPainter* painter) override;
    void OnResize(mirel7::CWindowEvent* ev) override;
    void OnDestroy(mirel7::CWindowEvent* ev) override;
    void OnGetFocus(mirel7::CFocusEvent* ev) override;
    void OnLostFocus(mirel7::CFocusEvent* ev) override;
    void OnTooltip(mirel7::CTooltipEvent* ev) override;
    void OnTooltipTrack(mirel7::CTooltipEvent* ev) override;
    void OnButtonDown(mirel7::CMouseEvent* ev) override;
    void OnButtonUp(mirel7::CMouseEvent* ev) override;
    void OnMouseMove(mirel7::CMouseEvent* ev) override;
    void OnWheel(mirel7::CMouseWheelEvent* ev) override;
    void OnDoubleClick(mirel7::CMouseEvent* ev) override;
    void OnHover(mirel7::CMouseEvent* ev) override;
    void OnLeave(mirel7::CMouseEvent* ev) override;
    void OnKeyDown(mirel7::CKeyboardEvent* ev) override;
    void OnKeyUp(mirel7::CKeyboardEvent* ev) override;
    void OnChar(mirel7::CKeyboardEvent* ev) override;
    void OnSysColorChanged(mirel7::CEvent* ev) override;
    void OnContextMenu(mirel7::CContextMenuEvent* ev) override;
    void OnCustomEvent(mirel7::CCustomEvent* ev) override;

    CVisualElement* GetContent() const;
    // Makes `element` the root; the old root is deleted when it was made with new, else detached. Null is
    // ignored.
    void SetContent(CVisualElement* element);
    // Lays the whole tree out again at the next paint, forcing every element to arrange.
    void Rearrange();
    void LockRearrange(bool lock);
    CVisualElement* GetMouseElement() const;
    CVisualElement* GetFocusedElement() const;
    // The help id of the element or its nearest ancestor that has one; the focused element for null.
    std::string GetHelpId(CVisualElement* element) const;
    // Offers the focused element and its ancestors, outermost first, the copy to the clipboard.
    bool CopyToClipboard();
    void SetCopyToClipboard(bool enabled) { m_copyToClipboard = enabled; }
    CBaseControlImp* GetImp() const { return m_imp; }

private:
    CBaseControlImp* m_imp;
    bool m_copyToClipboard = false;
};

} // namespace mirelfrw7
