#include <mirel7/sdl/sdl_system.h>
#include <mirel7/sdl/sdl_window.h>

#include <mirel7/palette.h>
#include <mirel7/popup_menu.h>

#include <SDL.h>

#include <algorithm>

namespace mirel7::sdl {

namespace {

int Modifiers() {
    SDL_Keymod const mod = SDL_GetModState();
    return (mod & KMOD_SHIFT ? FlagShift : 0) | (mod & KMOD_CTRL ? FlagControl : 0) |
           (mod & KMOD_ALT ? FlagAlt : 0);
}

MouseButton Button(std::uint8_t button) {
    switch (button) {
    case SDL_BUTTON_LEFT:
        return ButtonLeft;
    case SDL_BUTTON_MIDDLE:
        return ButtonMiddle;
    case SDL_BUTTON_RIGHT:
        return ButtonRight;
    default:
        return ButtonNone;
    }
}

// The virtual key code of a key symbol, 0 for keys the framework has no code for.
int VirtualKey(SDL_Keycode key) {
    if (key >= SDLK_a && key <= SDLK_z) return 'A' + (key - SDLK_a);
    if (key >= SDLK_0 && key <= SDLK_9) return '0' + (key - SDLK_0);
    if (key >= SDLK_F1 && key <= SDLK_F12) return KeyF1 + (key - SDLK_F1);
    switch (key) {
    case SDLK_BACKSPACE:
        return KeyBackspace;
    case SDLK_TAB:
        return KeyTab;
    case SDLK_RETURN:
    case SDLK_KP_ENTER:
        return KeyReturn;
    case SDLK_LSHIFT:
    case SDLK_RSHIFT:
        return KeyShift;
    case SDLK_LCTRL:
    case SDLK_RCTRL:
        return KeyControl;
    case SDLK_LALT:
    case SDLK_RALT:
        return KeyAlt;
    case SDLK_ESCAPE:
        return KeyEscape;
    case SDLK_SPACE:
        return KeySpace;
    case SDLK_PAGEUP:
        return KeyPageUp;
    case SDLK_PAGEDOWN:
        return KeyPageDown;
    case SDLK_END:
        return KeyEnd;
    case SDLK_HOME:
        return KeyHome;
    case SDLK_LEFT:
        return KeyLeft;
    case SDLK_UP:
        return KeyUp;
    case SDLK_RIGHT:
        return KeyRight;
    case SDLK_DOWN:
        return KeyDown;
    case SDLK_INSERT:
        return KeyInsert;
    case SDLK_DELETE:
        return KeyDelete;
    default:
        return 0;
    }
}

// Keys that type a control character; the desktop sends no text for them.
int ControlCharacter(int virtualKey) {
    switch (virtualKey) {
    case KeyBackspace:
    case KeyTab:
    case KeyReturn:
    case KeyEscape:
        return virtualKey;
    default:
        return 0;
    }
}

SDL_SystemCursor SystemCursor(int cursor) {
    switch (cursor) {
    case ISysWindow::CursorSizeNS:
        return SDL_SYSTEM_CURSOR_SIZENS;
    case ISysWindow::CursorSizeWE:
        return SDL_SYSTEM_CURSOR_SIZEWE;
    case ISysWindow::CursorHand:
        return SDL_SYSTEM_CURSOR_HAND;
    case ISysWindow::CursorNoDrop:
        return SDL_SYSTEM_CURSOR_NO;
    default:
        return SDL_SYSTEM_CURSOR_ARROW;
    }
}

// The code points of UTF-8 text; broken sequences are skipped.
std::vector<int> CodePoints(char const* text) {
    std::vector<int> result;
    auto const* p = reinterpret_cast<unsigned char const*>(text);
    while (*p) {
        int length = *p < 0x80 ? 1 : (*p >> 5) == 0x6 ? 2 : (*p >> 4) == 0xE ? 3 : (*p >> 3) == 0x1E ? 4 : 0;
        if (length == 0) {
            ++p;
            continue;
        }
        int code = length == 1 ? *p : *p & (0x7F >> length);
        int i = 1;
        for (; i < length && (p[i] & 0xC0) == 0x80; ++i)
            code = code << 6 | (p[i] & 0x3F);
        if (i == length) result.push_back(code);
        p += i;
    }
    return result;
}

} // namespace

CSdlWindow::CSdlWindow(CSdlSystem& system, std::string const& title, size<int> clientSize,
                       std::unique_ptr<IWindowPainter> painter, point<int> const* position)
    : CSysWindowBase(system, clientSize, std::move(painter)), m_sdlSystem(system),
      m_tooltipWindow(SDL_WINDOW_TOOLTIP), m_menuWindow(SDL_WINDOW_POPUP_MENU) {
    if (!system.IsReady()) {
        SetClosing();
        return;
    }
    int const x = position ? position->x : static_cast<int>(SDL_WINDOWPOS_UNDEFINED);
    int const y = position ? position->y : static_cast<int>(SDL_WINDOWPOS_UNDEFINED);
    m_window = SDL_CreateWindow(title.c_str(), x, y, clientSize.cx, clientSize.cy,
                                SDL_WINDOW_SHOWN | SDL_WINDOW_RESIZABLE);
    if (!m_window) {
        SetClosing();
        return;
    }
    m_id = SDL_GetWindowID(m_window);
    Invalidate({0, 0, clientSize.cx, clientSize.cy});
}

CSdlWindow::~CSdlWindow() {
    Close();
    if (m_sdlCursor) SDL_FreeCursor(m_sdlCursor);
}

void CSdlWindow::Close() {
    SendDestroy();
    if (m_window) SDL_DestroyWindow(std::exchange(m_window, nullptr));
}

point<int> CSdlWindow::GetScreenOrigin() const {
    int x = 0, y = 0;
    if (m_window) SDL_GetWindowPosition(m_window, &x, &y);
    return {x, y};
}

void CSdlWindow::ApplyCursor(int cursor) {
    SDL_Cursor* const next = SDL_CreateSystemCursor(SystemCursor(cursor));
    if (!next) return;
    SDL_SetCursor(next);
    if (m_sdlCursor) SDL_FreeCursor(m_sdlCursor);
    m_sdlCursor = next;
}

void CSdlWindow::ApplyCapture(bool captured) {
    if (m_window) SDL_CaptureMouse(captured ? SDL_TRUE : SDL_FALSE);
}

void CSdlWindow::RequestFocus() {
    if (!m_window) return;
    m_focusWanted = true;
    SDL_RaiseWindow(m_window);
    SDL_SetWindowInputFocus(m_window);
}

void CSdlWindow::Present(screen_rectangle<int> const& area) {
    PresentPixels(m_window, GetPainter(), area);
}

void CSdlWindow::OpenTooltip(std::string const& text, font const& textFont,
                             screen_rectangle<int> const& anchor) {
    double const scale = GetPainter() ? GetPainter()->GetDPIScale() : 1.0;
    int const pad = static_cast<int>(4 * scale);
    std::unique_ptr<IWindowPainter> const measure = NewWindowPainter({1, 1}, scale);
    measure->SetFont(textFont);
    size<double> const textSize = measure->GetTextSize(text);
    size<int> const tip{static_cast<int>(textSize.cx) + 2 * pad, static_cast<int>(textSize.cy) + 2 * pad};
    m_tooltipWindow.Open(tip, anchor);
    IWindowPainter* const painter = m_tooltipWindow.GetPainter();
    ISysPalette* const palette = GetSysPalette();
    painter->BeginPaint(IPainter::PaintPlain);
    painter->SetBrush(
        {palette ? palette->GetColor(ISysPalette::ColorInfoBackground) : _color(255, 255, 225)});
    painter->SetPen({palette ? palette->GetColor(ISysPalette::ColorShadow) : _color(128, 128, 128)});
    painter->Rectangle(0, 0, tip.cx - 1, tip.cy - 1);
    painter->SetFont(textFont);
    painter->SetTextColor(palette ? palette->GetColor(ISysPalette::ColorInfoText) : _color(0, 0, 0));
    painter->DrawString(rectangle<double>(pad, pad, tip.cx - pad, tip.cy - pad), text,
                        IPainter::AlignLeft | IPainter::AlignTop);
    painter->EndPaint();
    m_tooltipWindow.Present();
}

void CSdlWindow::CloseTooltip() {
    m_tooltipWindow.Close();
    TakeFocusBack();
}

void CSdlWindow::OpenMenuWindow(size<int> menuSize, screen_rectangle<int> const& anchor) {
    m_menuWindow.Open(menuSize, anchor);
}

bool CSdlWindow::IsOwnPopup(SDL_Window* window) const {
    return window && (window == m_menuWindow.GetSdlWindow() || window == m_tooltipWindow.GetSdlWindow());
}

void CSdlWindow::TakeFocusBack() {
    if (m_window && HasFocus() && SDL_GetKeyboardFocus() != m_window) SDL_SetWindowInputFocus(m_window);
}

void CSdlWindow::RedrawMenuWindow() {
    IWindowPainter* const painter = m_menuWindow.GetPainter();
    if (!GetOpenMenu() || !painter || !m_menuWindow.IsOpen()) return;
    GetOpenMenu()->Draw(painter, m_menuWindow.GetPopupSize(), painter->GetDPIScale());
    m_menuWindow.Present();
}

void CSdlWindow::CloseMenuWindow() {
    m_menuWindow.Close();
    TakeFocusBack();
}

bool CSdlWindow::DispatchPopup(SDL_Event const& event, std::uint32_t windowId) {
    bool const menu = m_menuWindow.IsOpen() && windowId == m_menuWindow.GetId();
    if (!menu && !(m_tooltipWindow.IsOpen() && windowId == m_tooltipWindow.GetId())) return false;
    switch (event.type) {
    case SDL_MOUSEMOTION:
        if (menu) SendMenuPointer(false, {event.motion.x, event.motion.y});
        break;
    case SDL_MOUSEBUTTONUP:
        if (menu) SendMenuPointer(true, {event.button.x, event.button.y});
        break;
    case SDL_WINDOWEVENT:
        if (event.window.event == SDL_WINDOWEVENT_EXPOSED) {
            if (menu)
                RedrawMenuWindow();
            else
                m_tooltipWindow.Present();
        }
        // The lent focus went on elsewhere: the window has lost it.
        if (event.window.event == SDL_WINDOWEVENT_FOCUS_LOST && SDL_GetKeyboardFocus() != m_window &&
            !IsOwnPopup(SDL_GetKeyboardFocus()))
            SendFocus(false);
        break;
    case SDL_KEYDOWN:
    case SDL_KEYUP:
    case SDL_TEXTINPUT:
        Dispatch(event);
        break;
    default:
        break;
    }
    return true;
}

void CSdlWindow::Wake() {
    m_sdlSystem.Wake();
}

void CSdlWindow::DispatchWindowEvent(SDL_Event const& event) {
    switch (event.window.event) {
    case SDL_WINDOWEVENT_CLOSE:
        Close();
        break;
    case SDL_WINDOWEVENT_SIZE_CHANGED:
        SendResize({event.window.data1, event.window.data2});
        break;
    case SDL_WINDOWEVENT_SHOWN:
        if (m_focusWanted && !HasFocus()) RequestFocus();
        break;
    case SDL_WINDOWEVENT_EXPOSED: {
        // The back buffer still holds everything: the desktop only lost its copy.
        screen_rectangle<int> client;
        GetClientRect(client);
        Present(client);
        if (m_focusWanted && !HasFocus()) RequestFocus();
        break;
    }
    case SDL_WINDOWEVENT_FOCUS_GAINED:
        m_focusWanted = false;
        SendFocus(true);
        break;
    case SDL_WINDOWEVENT_FOCUS_LOST:
        // Lent to a popup of this window, the keyboard is still this window's.
        if (!IsOwnPopup(SDL_GetKeyboardFocus())) SendFocus(false);
        break;
    case SDL_WINDOWEVENT_LEAVE:
        SendLeave();
        break;
    default:
        break;
    }
}

void CSdlWindow::Dispatch(SDL_Event const& event) {
    switch (event.type) {
    case SDL_WINDOWEVENT:
        DispatchWindowEvent(event);
        break;
    case SDL_MOUSEMOTION:
        SendMove(event.motion.x, event.motion.y, Modifiers());
        break;
    case SDL_MOUSEBUTTONDOWN: {
        MouseButton const button = Button(event.button.button);
        if (button == ButtonNone) break;
        // The second press of each pair is the double click; a third starts over. The desktop counts the
        // presses of the whole program, so this window counts from the first press it saw itself.
        int const clicks = event.button.clicks;
        if (clicks == 1 || clicks != m_lastClicks + 1) m_firstClick = clicks;
        m_lastClicks = clicks;
        if ((clicks - m_firstClick) % 2 == 1)
            SendDoubleClick(event.button.x, event.button.y, button, Modifiers());
        else
            SendButton(true, event.button.x, event.button.y, button, Modifiers());
        break;
    }
    case SDL_MOUSEBUTTONUP: {
        MouseButton const button = Button(event.button.button);
        if (button == ButtonNone) break;
        SendButton(false, event.button.x, event.button.y, button, Modifiers());
        if (button == ButtonRight) SendContextMenu(event.button.x, event.button.y);
        break;
    }
    case SDL_MOUSEWHEEL: {
        int const sign = event.wheel.direction == SDL_MOUSEWHEEL_FLIPPED ? -1 : 1;
        if (event.wheel.y != 0)
            SendWheel(event.wheel.mouseX, event.wheel.mouseY, sign * event.wheel.y, Modifiers());
        if (event.wheel.x != 0)
            SendHorizontalWheel(event.wheel.mouseX, event.wheel.mouseY, sign * event.wheel.x, Modifiers());
        break;
    }
    case SDL_KEYDOWN:
    case SDL_KEYUP: {
        int const key = VirtualKey(event.key.keysym.sym);
        if (key == 0) break;
        bool const down = event.type == SDL_KEYDOWN;
        SendKey(down, key, Modifiers());
        if (down && ControlCharacter(key)) SendChar(ControlCharacter(key), Modifiers());
        break;
    }
    case SDL_TEXTINPUT:
        for (int const code : CodePoints(event.text.text))
            SendChar(code, Modifiers());
        break;
    default:
        break;
    }
}

} // namespace mirel7::sdl
