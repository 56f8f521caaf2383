#pragma once

#include <mirel7/export.h>
#include <mirel7/sys_window_base.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace mirel7::headless {

class CHeadlessSystem;

// A window without a desktop. Tests play the desktop: the Inject functions report input as the desktop
// would, and the window turns it into event records sent through its sender; RunPending() and Paint() are
// the turn of the event loop that a real backend runs by itself. Counters tell what the framework asked of
// the window.
class MIREL7_API CHeadlessWindow : public CSysWindowBase {
public:
    // Without a painter the window makes one of the drawing backend.
    CHeadlessWindow(CHeadlessSystem& system, size<int> clientSize,
                    std::unique_ptr<IWindowPainter> painter = {});
    ~CHeadlessWindow() override;

    // Input. `modifiers` holds FlagShift, FlagControl and FlagAlt; the window adds the button state.
    void InjectButtonDown(int x, int y, MouseButton button = ButtonLeft, int modifiers = 0);
    void InjectButtonUp(int x, int y, MouseButton button = ButtonLeft, int modifiers = 0);
    void InjectMouseMove(int x, int y, int modifiers = 0);
    // Down, up, double click, up.
    void InjectDoubleClick(int x, int y, MouseButton button = ButtonLeft, int modifiers = 0);
    void InjectWheel(int x, int y, int delta, int modifiers = 0);
    // `notches` to the right.
    void InjectHorizontalWheel(int x, int y, int notches, int modifiers = 0) {
        SendHorizontalWheel(x, y, notches, modifiers);
    }
    // The records as the receivers left them, with their result words.
    CKeyboardEvent InjectKeyDown(int virtualKey, int modifiers = 0);
    CKeyboardEvent InjectKeyUp(int virtualKey, int modifiers = 0);
    CKeyboardEvent InjectChar(int characterCode, int modifiers = 0);
    void InjectFocusIn() { SendFocus(true); }
    void InjectFocusOut() { SendFocus(false); }
    // The pointer leaves the window, or rests where it is; reported as the window's tracking allows.
    void InjectLeave() { SendLeave(); }
    void InjectHover() { SendHover(); }
    void InjectContextMenu(int x, int y) { SendContextMenu(x, y); }
    CTooltipEvent InjectTooltip(int x, int y) { return SendTooltip(x, y, false); }
    CTooltipEvent InjectTooltipTrack(int x, int y) { return SendTooltip(x, y, true); }
    void InjectCustom(int data) { SendCustom(data); }
    void InjectResize(int width, int height) { SendResize({width, height}); }
    void InjectDestroy() { SendDestroy(); }

    // The turn of the loop: a focus asked for with SetFocus(), then the runnables posted so far. Answers
    // how many runnables ran.
    int RunPending();
    // Runs a pending paint; false when none was pending.
    bool Paint() { return PaintPending(); }

    int GetInvalidateCount() const { return m_invalidations; }
    int GetScrollCount() const { return m_scrolls; }
    int GetFocusRequestCount() const { return m_focusRequests; }
    int GetCaptureCount() const { return m_captures; }

    void SetScreenOrigin(point<int> origin) { m_origin = origin; }
    // Writes the back buffer; false without a painter or when the file could not be written.
    bool SavePng(std::string const& path);

    // Tests put bars of their own in the window's place: CreateScrollBar() answers what the factory makes.
    // An empty factory brings the window's own bars back.
    using ScrollBarFactory = std::function<mirel_ptr<IScrollBar>(ScrollType)>;
    void SetScrollBarFactory(ScrollBarFactory factory) { m_scrollBarFactory = std::move(factory); }
    mirel_ptr<IScrollBar> CreateScrollBar(ScrollType type) override;

    // What a desktop would show: the tooltips opened so far, text and anchor, and whether one shows now.
    struct STooltip {
        std::string text;
        screen_rectangle<int> anchor;
    };
    std::vector<STooltip> const& GetTooltips() const { return m_tooltips; }
    // The open menu's window: its size and anchor, and how often it was drawn; empty when closed.
    struct SMenuWindow {
        size<int> extent;
        screen_rectangle<int> anchor;
        int draws = 0;
    };
    SMenuWindow const& GetMenuWindow() const { return m_menuWindow; }
    // The pointer on the open menu's window, in its pixels.
    void InjectMenuMove(int x, int y) { SendMenuPointer(false, {x, y}); }
    void InjectMenuClick(int x, int y) { SendMenuPointer(true, {x, y}); }

    void Invalidate(screen_rectangle<int> const& rect) override;
    bool ScrollWindow(int dx, int dy, screen_rectangle<int> const& source) override;

protected:
    point<int> GetScreenOrigin() const override { return m_origin; }
    void ApplyCursor(int) override {}
    void ApplyCapture(bool captured) override;
    void RequestFocus() override;
    void Present(screen_rectangle<int> const&) override {}
    void Wake() override {}
    void OpenTooltip(std::string const& text, font const&, screen_rectangle<int> const& anchor) override {
        m_tooltips.push_back({text, anchor});
    }
    void CloseTooltip() override {}
    void OpenMenuWindow(size<int> menuSize, screen_rectangle<int> const& anchor) override {
        m_menuWindow = {menuSize, anchor, 0};
    }
    void RedrawMenuWindow() override { ++m_menuWindow.draws; }
    void CloseMenuWindow() override { m_menuWindow = {}; }

private:
    ScrollBarFactory m_scrollBarFactory;
    std::vector<STooltip> m_tooltips;
    SMenuWindow m_menuWindow;
    point<int> m_origin;
    bool m_focusRequested = false;
    int m_invalidations = 0;
    int m_scrolls = 0;
    int m_focusRequests = 0;
    int m_captures = 0;
};

} // namespace mirel7::headless
