#pragma once

#include <mirel7/event_sender.h>
#include <mirel7/export.h>
#include <mirel7/notify.h>

namespace mirel7 {

class IImageList;
class ISysWindow;

// The base of a control living on a system window. It subscribes to the window's events and turns each
// into a call of its virtual OnX; the base OnX passes the event on to the control's own subscribers, so a
// subclass that calls it lets them see the event after itself.
//
// The window may die first: the control then forgets it, after its OnDestroy.
class MIREL7_API CMirelControl : public IDrawingNotify,
                                 public IMouseNotify,
                                 public IMouseClickNotify,
                                 public IMouseHoverNotify,
                                 public IKeyboardNotify,
                                 public IWindowNotify,
                                 public IFocusNotify,
                                 public ITimerNotify,
                                 public IContextMenuNotify,
                                 public ITooltipNotify,
                                 public IScrollNotify,
                                 public ICustomEventNotify,
                                 public ISystemNotify,
                                 public CSenderTracker,
                                 public CImplEventSender<IEventSender> {
public:
    // With `ownsWindow`, the control deletes the window when it dies.
    CMirelControl(ISysWindow* window, bool ownsWindow);
    CMirelControl(CMirelControl const&) = delete;
    CMirelControl& operator=(CMirelControl const&) = delete;
    ~CMirelControl() override;

    // Asks for a paint of the whole window.
    virtual void Invalidate();

    void OnDraw(IPainter* painter) override;
    void OnResize(CWindowEvent* event) override;
    void OnMove(CWindowEvent* event) override;
    void OnDestroy(CWindowEvent* event) override;
    void OnShow(CWindowEvent* event) override;
    void OnHide(CWindowEvent* event) override;
    void OnGetFocus(CFocusEvent* event) override;
    void OnLostFocus(CFocusEvent* event) override;
    void OnTooltip(CTooltipEvent* event) override;
    void OnTooltipTrack(CTooltipEvent* event) override;
    void OnHorzScroll(CScrollEvent* event) override;
    void OnVertScroll(CScrollEvent* event) override;
    void OnButtonDown(CMouseEvent* event) override;
    void OnButtonUp(CMouseEvent* event) override;
    void OnMouseMove(CMouseEvent* event) override;
    void OnWheel(CMouseWheelEvent* event) override;
    void OnClick(CMouseEvent* event) override;
    void OnDoubleClick(CMouseEvent* event) override;
    void OnHover(CMouseEvent* event) override;
    void OnLeave(CMouseEvent* event) override;
    void OnKeyDown(CKeyboardEvent* event) override;
    void OnKeyUp(CKeyboardEvent* event) override;
    void OnChar(CKeyboardEvent* event) override;
    void OnSysColorChanged(CEvent* event) override;
    void OnContextMenu(CContextMenuEvent* event) override;

    // Moves the control to another window, or to none.
    virtual void SetSysWindow(ISysWindow* window);
    virtual bool CanBeFocused() const;

    void OnCustomEvent(CCustomEvent* event) override;
    // Controls subscribe to timers of their own; the base sends the tick on to the control's subscribers.
    void OnTimer(CTimerEvent* event) override;

    ISysWindow* GetSysWindow() const { return m_window; }
    IImageList* GetImageList() const { return m_imageList; }
    void SetImageList(IImageList* imageList) { m_imageList = imageList; }

    void NoticeStopped(IEventSender* sender) override;

private:
    void SubscribeTo(ISysWindow* window);

    ISysWindow* m_window = nullptr;
    bool m_ownsWindow;
    IImageList* m_imageList = nullptr;
};

} // namespace mirel7
