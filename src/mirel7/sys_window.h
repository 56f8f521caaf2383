#pragma once

#include <mirel7/base.h>
#include <mirel7/export.h>
#include <mirel7/types.h>

namespace mirel7 {

class IEventSender;
class IRunnable;
class IScrollBar;
class ISynchronizer;
class IWindowPainter;

// A window of the desktop as the framework sees it: one client area in pixels, a back buffer that keeps
// what was painted, and the events of the notify interfaces, sent through GetEventSender() on the GUI
// thread.
class MIREL7_API ISysWindow {
public:
    enum ScrollType { ScrollHorizontal = 1, ScrollVertical = 2 };

    // SetCursor ids; any other id shows the arrow.
    enum Cursor { CursorArrow = 1, CursorSizeNS = 7, CursorSizeWE = 9, CursorHand = 12, CursorNoDrop = 13 };

    virtual ~ISysWindow();

    virtual IEventSender* GetEventSender() = 0;

    // (0, 0, width, height).
    virtual void GetClientRect(screen_rectangle<int>& rect) const = 0;
    // Asks for a paint on the next turn of the event loop; many calls before it make one paint.
    virtual void Invalidate(screen_rectangle<int> const& rect) = 0;
    // Runs a pending paint now.
    virtual void PaintNow() = 0;

    // Asks the desktop for the keyboard focus. The focus events come from the event loop later, never from
    // inside this call; HasFocus() tells the state of the last of them.
    virtual void SetFocus() = 0;
    virtual bool HasFocus() const = 0;

    virtual void SetCursor(int cursor) = 0;
    virtual int GetCursor() const = 0;
    // While captured, the pointer's events come here wherever it is, and leaving the window is not reported.
    virtual void CaptureMouse() = 0;
    virtual void ReleaseMouse() = 0;
    virtual bool HasCapture() const = 0;
    // Asks for one leave event when the pointer next leaves the window, and for one hover event when it next
    // rests 500 ms inside it. A leave ends both requests.
    virtual void TrackMouse() = 0;

    virtual void ScreenToClient(point<int>& p) const = 0;
    virtual void ClientToScreen(point<int>& p) const = 0;

    // Moves the pixels of `source` (right and bottom inclusive) by (dx, dy) in the back buffer and shows them
    // there; what the move uncovers keeps its old pixels until painted. False without a painter.
    virtual bool ScrollWindow(int dx, int dy, screen_rectangle<int> const& source) = 0;
    virtual IWindowPainter* GetPainter() = 0;

    // Runs the runnable on the next turn of the event loop, on the GUI thread, and deletes it afterwards if
    // it is dynamic. Runnables still pending when the window is destroyed are dropped.
    virtual void PostRunnable(IRunnable* runnable) = 0;
    // The same queue for other threads.
    virtual ISynchronizer* GetSynchronizer() = 0;
    // True from the moment the window is being closed: work meant for it can be skipped.
    virtual bool IsClosing() const = 0;

    // A native scroll bar in a region of this window, placed empty until moved; null when the window cannot
    // make one.
    virtual mirel_ptr<IScrollBar> CreateScrollBar(ScrollType type) = 0;

    // Takes a tooltip down, if one shows; the next is asked for once the pointer rests again.
    virtual void HideTooltip() = 0;
};

} // namespace mirel7
