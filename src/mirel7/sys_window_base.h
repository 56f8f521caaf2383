#pragma once

#include <mirel7/event_sender.h>
#include <mirel7/events.h>
#include <mirel7/export.h>
#include <mirel7/runnable_queue.h>
#include <mirel7/sys_window.h>
#include <mirel7/timer.h>
#include <mirel7/window_painter.h>

#include <memory>
#include <string>
#include <vector>

namespace mirel7 {

class CCustomControlBase;
class CPopupMenu;
class CSystemBase;

// What the windows of every backend share: the sender, the paint and present cycle over the back buffer,
// focus, cursor and capture state, pointer tracking with hover and leave, and the runnable queue. A backend
// adds what the desktop does (the hooks below) and turns its input into the Send functions, which build the
// event records and send them.
class MIREL7_API CSysWindowBase : public ISysWindow {
public:
    CSysWindowBase(CSysWindowBase const&) = delete;
    CSysWindowBase& operator=(CSysWindowBase const&) = delete;
    // Backends call SendDestroy() in their destructors, while their hooks still work.
    ~CSysWindowBase() override;

    IEventSender* GetEventSender() override { return m_sender.get(); }
    void GetClientRect(screen_rectangle<int>& rect) const override;
    void Invalidate(screen_rectangle<int> const& rect) override;
    void PaintNow() override;
    void SetFocus() override;
    bool HasFocus() const override { return m_focused; }
    void SetCursor(int cursor) override;
    int GetCursor() const override { return m_cursor; }
    void CaptureMouse() override;
    void ReleaseMouse() override;
    bool HasCapture() const override { return m_captured; }
    void TrackMouse() override;
    void ScreenToClient(point<int>& p) const override;
    void ClientToScreen(point<int>& p) const override;
    bool ScrollWindow(int dx, int dy, screen_rectangle<int> const& source) override;
    IWindowPainter* GetPainter() override { return m_painter.get(); }
    void PostRunnable(IRunnable* runnable) override;
    ISynchronizer* GetSynchronizer() override { return &m_queue; }
    bool IsClosing() const override { return m_closing; }
    mirel_ptr<IScrollBar> CreateScrollBar(ScrollType type) override;
    void HideTooltip() override;
    bool IsTooltipShown() const { return m_tipShown; }
    CPopupMenu* GetOpenMenu() const { return m_menu; }

    // The native controls of the window, in the order they were made; the last is on top.
    std::vector<CCustomControlBase*> const& GetCustomControls() const { return m_customControls; }
    CCustomControlBase* GetFocusedCustomControl() const { return m_focusedControl; }

    // The event loop's part, on the GUI thread. Runs the runnables posted so far and answers how many ran.
    int RunRunnables() { return m_queue.RunPending(); }
    // Runs a pending paint, then shows what changed since the last time. Answers whether it painted.
    bool PaintPending();
    bool IsPaintPending() const { return m_paintPending; }
    int GetPaintCount() const { return m_paints; }

protected:
    CSysWindowBase(CSystemBase& system, size<int> clientSize, std::unique_ptr<IWindowPainter> painter);

    // The backend's part.
    virtual point<int> GetScreenOrigin() const = 0;
    virtual void ApplyCursor(int cursor) = 0;
    virtual void ApplyCapture(bool captured) = 0;
    virtual void RequestFocus() = 0;
    // Shows the back buffer's pixels of `area` (right and bottom exclusive) on the desktop.
    virtual void Present(screen_rectangle<int> const& area) = 0;
    // Called from any thread after a runnable was posted.
    virtual void Wake() = 0;
    // Shows the tooltip text by `anchor` (screen pixels, the pointer's cell), or takes it down.
    virtual void OpenTooltip(std::string const& text, font const& textFont,
                             screen_rectangle<int> const& anchor) = 0;
    virtual void CloseTooltip() = 0;
    // Shows the open menu's window by `anchor` (screen pixels), draws it again, or takes it down.
    virtual void OpenMenuWindow(size<int> menuSize, screen_rectangle<int> const& anchor) = 0;
    virtual void RedrawMenuWindow() = 0;
    virtual void CloseMenuWindow() = 0;
    // Pointer input on the open menu's window, in its own pixels.
    void SendMenuPointer(bool released, point<int> const& at);

    // Input as the desktop reports it, in client pixels; `modifiers` holds FlagShift, FlagControl and
    // FlagAlt. The window adds the button state to the flags.
    void SendButton(bool down, int x, int y, MouseButton button, int modifiers);
    // The second press of a double click: sends the double-click record where a down would go.
    void SendDoubleClick(int x, int y, MouseButton button, int modifiers);
    void SendMove(int x, int y, int modifiers);
    void SendWheel(int x, int y, int delta, int modifiers);
    // A sideways notch (`notches` to the right) travels as a wheel event with Shift held, the desktop's own
    // convention for scrolling sideways: a notch to the right scrolls toward the end, like one toward the
    // user.
    void SendHorizontalWheel(int x, int y, int notches, int modifiers) {
        SendWheel(x, y, -notches, modifiers | FlagShift);
    }
    // The pointer left the window; reported if tracked, and not while the pointer is captured.
    void SendLeave();
    // The pointer rested; reported if tracked.
    void SendHover();
    CKeyboardEvent SendKey(bool down, int virtualKey, int modifiers);
    CKeyboardEvent SendChar(int characterCode, int modifiers);
    void SendFocus(bool focused);
    void SendResize(size<int> clientSize);
    void SendContextMenu(int x, int y);
    CTooltipEvent SendTooltip(int x, int y, bool track);
    void SendCustom(int data);
    void SendSysColorChanged();
    // Sends the destroy event once, drops the pending runnables and marks the window as closing.
    void SendDestroy();
    void SetClosing() { m_closing = true; }

private:
    friend class CSystemBase;
    friend class CCustomControlBase;
    friend class CPopupMenu;

    void OpenPopupMenu(CPopupMenu* menu, point<int> const& at);
    void ClosePopupMenu(CPopupMenu* menu);
    void RedrawPopupMenu() {
        if (m_menu) RedrawMenuWindow();
    }

    void AddCustomControl(CCustomControlBase* control);
    void RemoveCustomControl(CCustomControlBase* control);
    // A hidden control loses the pointer and the focus.
    void ForgetCustomControl(CCustomControlBase* control);
    void FocusCustomControl(CCustomControlBase* control) { m_focusedControl = control; }
    CCustomControlBase* CustomControlAt(point<int> const& at) const;
    // The native controls take the pointer before the window's subscribers; true when one took it.
    bool RouteButton(bool down, point<int> const& at, MouseButton button);
    bool RouteMove(point<int> const& at);
    void SetHotControl(CCustomControlBase* control);
    void DrawCustomControls();

    class CHoverTimer : public CTimerNotify {
    public:
        explicit CHoverTimer(CSysWindowBase& window) : m_window(window) {}
        void OnTimer(CTimerEvent* event) override;

    private:
        CSysWindowBase& m_window;
    };

    // The tooltip is asked for once the pointer rested as long as for a hover, wherever the control tracks.
    class CTooltipTimer : public CTimerNotify {
    public:
        explicit CTooltipTimer(CSysWindowBase& window) : m_window(window) {}
        void OnTimer(CTimerEvent* event) override;

    private:
        CSysWindowBase& m_window;
    };

    void AskTooltip();
    // While the tip shows, a move inside its rectangle is a tooltip track event at the pointer. Its answer
    // may move the rectangle (the tip goes if the pointer is then outside) and change the text, which then
    // shows at the pointer; an empty answer keeps the tip as it is.
    void TrackTooltip();
    void ShowTooltipText(CTooltipEvent const& event);
    CMouseEvent PointerEvent(int x, int y, MouseButton button, int modifiers) const;
    void AddDamage(screen_rectangle<int> const& area);

    CSystemBase& m_system;
    std::unique_ptr<IEventSender> m_sender = CreateDefSenderList();
    std::unique_ptr<IWindowPainter> m_painter;
    CRunnableQueue m_queue;
    size<int> m_size;
    bool m_paintPending = false;
    int m_paints = 0;
    screen_rectangle<int> m_damage;
    bool m_focused = false;
    bool m_closing = false;
    bool m_destroySent = false;
    int m_cursor = CursorArrow;
    bool m_captured = false;
    int m_buttons = 0; // bit per MouseButton held
    int m_modifiers = 0;
    bool m_pointerInside = false;
    point<int> m_pointer;
    bool m_trackLeave = false;
    bool m_trackHover = false;
    bool m_leftWhileCaptured = false;
    std::vector<CCustomControlBase*> m_customControls;
    // The control a button went down on, until it is up; the one under the pointer; the one with the keys.
    CCustomControlBase* m_pressedControl = nullptr;
    CCustomControlBase* m_hotControl = nullptr;
    CCustomControlBase* m_focusedControl = nullptr;
    bool m_pressCaptured = false;
    CHoverTimer m_hover{*this};
    mirel_ptr<ISysTimer> m_hoverTimer;
    CTooltipTimer m_tooltip{*this};
    mirel_ptr<ISysTimer> m_tipTimer;
    bool m_tipShown = false;
    CPopupMenu* m_menu = nullptr;
    // Where the shown tooltip stays valid, client pixels inclusive, and its text.
    rectangle<int> m_tipValid;
    std::string m_tipText;
};

} // namespace mirel7
