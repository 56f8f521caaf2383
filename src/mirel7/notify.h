#pragma once

#include <mirel7/events.h>
#include <mirel7/export.h>

#include <vector>

namespace mirel7 {

class IEventSender;
class IPainter;

// The root of the notify interfaces. A sender tells a notify object when it starts and stops sending to
// it, so that either side can die first: see CSubscriber.
//
// The notify interfaces derive from INotify virtually, so that one object implementing several of them is
// one INotify to the senders it subscribes to.
class MIREL7_API INotify {
public:
    virtual ~INotify();
    virtual void NoticeStarted(IEventSender* sender) = 0;
    virtual void NoticeStopped(IEventSender* sender) = 0;
};

class MIREL7_API IDrawingNotify : public virtual INotify {
public:
    virtual void OnDraw(IPainter* painter) = 0;
};

class MIREL7_API IWindowNotify : public virtual INotify {
public:
    virtual void OnResize(CWindowEvent* event) = 0;
    virtual void OnMove(CWindowEvent* event) = 0;
    virtual void OnDestroy(CWindowEvent* event) = 0;
    virtual void OnShow(CWindowEvent* event) = 0;
    virtual void OnHide(CWindowEvent* event) = 0;
};

class MIREL7_API IFocusNotify : public virtual INotify {
public:
    virtual void OnGetFocus(CFocusEvent* event) = 0;
    virtual void OnLostFocus(CFocusEvent* event) = 0;
};

class MIREL7_API ITooltipNotify : public virtual INotify {
public:
    virtual void OnTooltip(CTooltipEvent* event) = 0;
    virtual void OnTooltipTrack(CTooltipEvent* event) = 0;
};

class MIREL7_API IScrollNotify : public virtual INotify {
public:
    virtual void OnHorzScroll(CScrollEvent* event) = 0;
    virtual void OnVertScroll(CScrollEvent* event) = 0;
};

class MIREL7_API IMouseNotify : public virtual INotify {
public:
    virtual void OnButtonDown(CMouseEvent* event) = 0;
    virtual void OnButtonUp(CMouseEvent* event) = 0;
    virtual void OnMouseMove(CMouseEvent* event) = 0;
    virtual void OnWheel(CMouseWheelEvent* event) = 0;
};

class MIREL7_API IMouseClickNotify : public virtual INotify {
public:
    virtual void OnClick(CMouseEvent* event) = 0;
    virtual void OnDoubleClick(CMouseEvent* event) = 0;
};

class MIREL7_API IMouseHoverNotify : public virtual INotify {
public:
    virtual void OnHover(CMouseEvent* event) = 0;
    virtual void OnLeave(CMouseEvent* event) = 0;
};

class MIREL7_API IKeyboardNotify : public virtual INotify {
public:
    virtual void OnKeyDown(CKeyboardEvent* event) = 0;
    virtual void OnKeyUp(CKeyboardEvent* event) = 0;
    virtual void OnChar(CKeyboardEvent* event) = 0;
};

class MIREL7_API ISystemNotify : public virtual INotify {
public:
    virtual void OnSysColorChanged(CEvent* event) = 0;
};

class MIREL7_API IContextMenuNotify : public virtual INotify {
public:
    virtual void OnContextMenu(CContextMenuEvent* event) = 0;
};

class MIREL7_API ICustomEventNotify : public virtual INotify {
public:
    virtual void OnCustomEvent(CCustomEvent* event) = 0;
};

class MIREL7_API ITimerNotify : public virtual INotify {
public:
    virtual void OnTimer(CTimerEvent* event) = 0;
};

// Remembers the senders that send to this object and leaves them all when it dies, so a subscriber never
// has to unsubscribe by hand. A sender that dies first tells it through NoticeStopped.
class MIREL7_API CSenderTracker : public virtual INotify {
public:
    CSenderTracker() = default;
    // A copy subscribes to nothing.
    CSenderTracker(CSenderTracker const&) : INotify() {}
    CSenderTracker& operator=(CSenderTracker const&) { return *this; }
    ~CSenderTracker() override;

    void NoticeStarted(IEventSender* sender) override;
    void NoticeStopped(IEventSender* sender) override;

    // Leaves every sender this object is subscribed to.
    void UnsubscribeAll();

private:
    // One entry per subscription, so a sender sending two interfaces to this object is listed twice.
    std::vector<IEventSender*> m_senders;
};

// A notify object of the interfaces `T...` that leaves its senders when it dies.
template <class... T>
class CSubscriber : public T..., public CSenderTracker {};

} // namespace mirel7
