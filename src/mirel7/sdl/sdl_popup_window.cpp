#include <mirel7/sdl/sdl_popup_window.h>
#include <mirel7/system.h>

#include <SDL.h>

#include <algorithm>

namespace mirel7::sdl {

void PresentPixels(SDL_Window* window, IWindowPainter* painter, screen_rectangle<int> const& area) {
    SDL_Surface* const surface = window ? SDL_GetWindowSurface(window) : nullptr;
    if (!painter || !surface) return;
    IWindowPainter::SPixels const pixels = painter->BeginPixelAccess();
    int const left = std::max(area.left, 0), top = std::max(area.top, 0);
    int const right = std::min({area.right, pixels.width, surface->w});
    int const bottom = std::min({area.bottom, pixels.height, surface->h});
    if (pixels.data && right > left && bottom > top) {
        if (SDL_MUSTLOCK(surface)) SDL_LockSurface(surface);
        auto* const target = static_cast<std::uint8_t*>(surface->pixels) + top * surface->pitch +
                             left * surface->format->BytesPerPixel;
        SDL_ConvertPixels(right - left, bottom - top, SDL_PIXELFORMAT_ARGB8888,
                          pixels.data + top * pixels.stride + left, pixels.stride * 4,
                          surface->format->format, target, surface->pitch);
        if (SDL_MUSTLOCK(surface)) SDL_UnlockSurface(surface);
        SDL_Rect const rect{left, top, right - left, bottom - top};
        SDL_UpdateWindowSurfaceRects(window, &rect, 1);
    }
    painter->EndPixelAccess();
}

CSdlPopupWindow::CSdlPopupWindow(std::uint32_t flags) : m_flags(flags) {}

CSdlPopupWindow::~CSdlPopupWindow() {
    Close();
}

void CSdlPopupWindow::Open(size<int> popupSize, screen_rectangle<int> const& anchor) {
    Close();
    m_size = {std::max(1, popupSize.cx), std::max(1, popupSize.cy)};
    ISystem* const system = GetCurrentSystem();
    m_painter = NewWindowPainter(m_size, system ? system->GetDPIScale() : 1.0);
    PositionPopup(this, anchor);
    m_window = SDL_CreateWindow("", m_origin.x, m_origin.y, m_size.cx, m_size.cy,
                                m_flags | SDL_WINDOW_BORDERLESS | SDL_WINDOW_ALWAYS_ON_TOP |
                                    SDL_WINDOW_SKIP_TASKBAR | SDL_WINDOW_SHOWN);
    m_id = m_window ? SDL_GetWindowID(m_window) : 0;
}

void CSdlPopupWindow::Close() {
    if (m_window) SDL_DestroyWindow(std::exchange(m_window, nullptr));
    m_id = 0;
}

void CSdlPopupWindow::Present() {
    PresentPixels(m_window, m_painter.get(), {0, 0, m_size.cx, m_size.cy});
}

void CSdlPopupWindow::MovePopup(point<int> const& topLeft) {
    m_origin = topLeft;
    if (m_window) SDL_SetWindowPosition(m_window, topLeft.x, topLeft.y);
}

screen_rectangle<int> CSdlPopupWindow::GetWorkArea() const {
    SDL_Rect bounds{0, 0, 0, 0};
    if (SDL_GetDisplayUsableBounds(0, &bounds) != 0) return {0, 0, 1 << 16, 1 << 16};
    return {bounds.x, bounds.y, bounds.x + bounds.w, bounds.y + bounds.h};
}

} // namespace mirel7::sdl
