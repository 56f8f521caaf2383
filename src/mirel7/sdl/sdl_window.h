#pragma once

#include <mirel7/export.h>
#include <mirel7/sdl/sdl_popup_window.h>
#include <mirel7/sys_window_base.h>

#include <cstdint>
#include <memory>
#include <string>

struct SDL_Window;
struct SDL_Cursor;
union SDL_Event;

namespace mirel7::sdl {

class CSdlSystem;

// A top-level window of the desktop, shown from the start. Its back buffer is presented through the window
// surface, only where it changed. The user's closing it sends the destroy event; the object stays until
// its owner deletes it.
class MIREL7_API CSdlWindow : public CSysWindowBase {
public:
    // Without a painter the window makes one of the drawing backend. Without a position the desktop places
    // it.
    CSdlWindow(CSdlSystem& system, std::string const& title, size<int> clientSize,
               std::unique_ptr<IWindowPainter> painter = {}, point<int> const* position = nullptr);
    ~CSdlWindow() override;

    // Closes the window as the user would.
    void Close();
    bool IsOpen() const { return m_window != nullptr; }
    std::uint32_t GetId() const { return m_id; }

    // The tooltip's window while it shows.
    CSdlPopupWindow const& GetTooltipWindow() const { return m_tooltipWindow; }
    CSdlPopupWindow const& GetMenuWindow() const { return m_menuWindow; }
    // Events of the open menu's or tooltip's window; false when `windowId` is neither.
    bool DispatchPopup(SDL_Event const& event, std::uint32_t windowId);

    // Turns one SDL event addressed to this window into event records.
    void Dispatch(SDL_Event const& event);

protected:
    point<int> GetScreenOrigin() const override;
    void ApplyCursor(int cursor) override;
    void ApplyCapture(bool captured) override;
    void RequestFocus() override;
    void Present(screen_rectangle<int> const& area) override;
    void Wake() override;
    void OpenTooltip(std::string const& text, font const& textFont,
                     screen_rectangle<int> const& anchor) override;
    void CloseTooltip() override;
    void OpenMenuWindow(size<int> menuSize, screen_rectangle<int> const& anchor) override;
    void RedrawMenuWindow() override;
    void CloseMenuWindow() override;

private:
    void DispatchWindowEvent(SDL_Event const& event);
    // Without a window manager the desktop gives the keyboard to every window it shows, popups included.
    // The window counts a focus its popups took as its own: their keys come here, a menu stays open, and
    // the window takes the focus back when they close.
    bool IsOwnPopup(SDL_Window* window) const;
    void TakeFocusBack();

    CSdlSystem& m_sdlSystem;
    SDL_Window* m_window = nullptr;
    std::uint32_t m_id = 0;
    SDL_Cursor* m_sdlCursor = nullptr;
    // A focus asked for before the desktop showed the window is asked for again once it did.
    bool m_focusWanted = false;
    // The desktop's press counts at this window's last press and at the first of its series.
    int m_lastClicks = 0;
    int m_firstClick = 0;
    CSdlPopupWindow m_tooltipWindow;
    CSdlPopupWindow m_menuWindow;
};

} // namespace mirel7::sdl
