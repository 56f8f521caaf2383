#pragma once

#include <mirel7/export.h>
#include <mirel7/popup.h>
#include <mirel7/window_painter.h>

#include <cstdint>
#include <memory>

struct SDL_Window;

namespace mirel7::sdl {

// Shows the back buffer's pixels of `area` (right and bottom exclusive) in the SDL window.
void PresentPixels(SDL_Window* window, IWindowPainter* painter, screen_rectangle<int> const& area);

// A small undecorated window over everything else, for a tooltip or a menu: the caller draws into its
// painter and presents. It has no events of its own but those SDL sends with its id.
class MIREL7_API CSdlPopupWindow : public IPopup {
public:
    // `flags` are SDL's window flags of the kind, SDL_WINDOW_TOOLTIP or SDL_WINDOW_POPUP_MENU.
    explicit CSdlPopupWindow(std::uint32_t flags);
    ~CSdlPopupWindow() override;

    // Opens the window at `popupSize` by `anchor` (screen pixels), placed by PositionPopup.
    void Open(size<int> popupSize, screen_rectangle<int> const& anchor);
    void Close();
    bool IsOpen() const { return m_window != nullptr; }
    std::uint32_t GetId() const { return m_id; }
    SDL_Window* GetSdlWindow() const { return m_window; }
    point<int> GetOrigin() const { return m_origin; }
    IWindowPainter* GetPainter() { return m_painter.get(); }
    void Present();

    size<int> GetPopupSize() const override { return m_size; }
    void MovePopup(point<int> const& topLeft) override;
    screen_rectangle<int> GetWorkArea() const override;

private:
    std::uint32_t m_flags;
    SDL_Window* m_window = nullptr;
    std::uint32_t m_id = 0;
    size<int> m_size;
    point<int> m_origin;
    std::unique_ptr<IWindowPainter> m_painter;
};

} // namespace mirel7::sdl
