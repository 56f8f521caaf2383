#include <mirel7/sdl/sdl_system.h>
#include <mirel7/sdl/sdl_window.h>

#include <SDL.h>
#include <X11/Xlib.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace mirel7::sdl {

namespace {

XErrorHandler g_nextErrorHandler = nullptr;

// Popups come and go while requests naming them are still on their way, and Xlib's own handler ends the
// program on any error. A request for a window that is gone has nothing left to do; every other error
// goes on to the handler that was there before.
int TolerateVanishedWindows(Display* display, XErrorEvent* error) {
    if (error->error_code == BadWindow) return 0;
    return g_nextErrorHandler ? g_nextErrorHandler(display, error) : 0;
}

} // namespace

CSdlSystem::CSdlSystem() {
    // A click that activates a window is also a click in it, as the framework's controls expect.
    SDL_SetHint(SDL_HINT_MOUSE_FOCUS_CLICKTHROUGH, "1");
    m_ready = SDL_Init(SDL_INIT_VIDEO) == 0;
    if (!m_ready) return;
    char const* const driver = SDL_GetCurrentVideoDriver();
    if (driver && std::strcmp(driver, "x11") == 0) {
        XErrorHandler const previous = XSetErrorHandler(TolerateVanishedWindows);
        if (previous != TolerateVanishedWindows) g_nextErrorHandler = previous;
    }
    m_wakeEvent = SDL_RegisterEvents(1);
    SDL_StartTextInput();
}

CSdlSystem::~CSdlSystem() {
    if (m_ready) SDL_Quit();
}

double CSdlSystem::GetDPIScale() const {
    float horizontal = 0;
    if (!m_ready || SDL_GetDisplayDPI(0, nullptr, &horizontal, nullptr) != 0 || horizontal <= 0) return 1.0;
    // Displays report their size roughly; the scale moves in quarters and never shrinks below 1.
    return std::max(1.0, std::round(horizontal / 96.0 * 4.0) / 4.0);
}

point<int> CSdlSystem::QueryPointer() const {
    int x = 0, y = 0;
    if (m_ready) SDL_GetGlobalMouseState(&x, &y);
    return {x, y};
}

std::int64_t CSdlSystem::Now() const {
    return static_cast<std::int64_t>(SDL_GetTicks64());
}

void CSdlSystem::Wake() {
    if (!m_ready) return;
    SDL_Event event{};
    event.type = m_wakeEvent;
    SDL_PushEvent(&event);
}

CSdlWindow* CSdlSystem::FindWindow(std::uint32_t windowId) const {
    for (CSysWindowBase* window : GetWindows()) {
        auto* const sdlWindow = static_cast<CSdlWindow*>(window);
        if (sdlWindow->IsOpen() && sdlWindow->GetId() == windowId) return sdlWindow;
    }
    return nullptr;
}

bool CSdlSystem::HasOpenWindow() const {
    return std::any_of(GetWindows().begin(), GetWindows().end(),
                       [](CSysWindowBase* w) { return static_cast<CSdlWindow*>(w)->IsOpen(); });
}

void CSdlSystem::Dispatch(SDL_Event const& event) {
    std::uint32_t windowId = 0;
    switch (event.type) {
    case SDL_WINDOWEVENT:
        windowId = event.window.windowID;
        break;
    case SDL_MOUSEMOTION:
        windowId = event.motion.windowID;
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        windowId = event.button.windowID;
        break;
    case SDL_MOUSEWHEEL:
        windowId = event.wheel.windowID;
        break;
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        windowId = event.key.windowID;
        break;
    case SDL_TEXTINPUT:
        windowId = event.text.windowID;
        break;
    default:
        return; // wake-ups and what no window takes
    }
    if (CSdlWindow* const window = FindWindow(windowId)) return window->Dispatch(event);
    for (CSysWindowBase* window : GetWindows())
        if (static_cast<CSdlWindow*>(window)->DispatchPopup(event, windowId)) return;
}

bool CSdlSystem::RunOnce(int timeoutMs) {
    if (!m_ready || !HasOpenWindow()) return false;
    std::int64_t wait = timeoutMs < 0 ? -1 : timeoutMs;
    if (auto const deadline = GetTimers().NextDeadline()) {
        std::int64_t const untilDeadline = std::max<std::int64_t>(0, *deadline - Now());
        wait = wait < 0 ? untilDeadline : std::min(wait, untilDeadline);
    }
    for (CSysWindowBase* window : GetWindows())
        if (window->IsPaintPending()) wait = 0;

    SDL_Event event;
    bool const got =
        wait < 0 ? SDL_WaitEvent(&event) != 0 : SDL_WaitEventTimeout(&event, static_cast<int>(wait)) != 0;
    if (got) {
        Dispatch(event);
        while (SDL_PollEvent(&event))
            Dispatch(event);
    }
    GetTimers().RunDue(Now());
    // Copied: a runnable or a paint may close a window, which leaves the list.
    for (CSysWindowBase* window : std::vector(GetWindows())) {
        window->RunRunnables();
        window->PaintPending();
    }
    return HasOpenWindow();
}

void CSdlSystem::Run() {
    while (RunOnce(-1)) {
    }
}

void CSdlSystem::CClipboard::SetText(std::string const& text) {
    SDL_SetClipboardText(text.c_str());
}

std::string CSdlSystem::CClipboard::GetText() const {
    char* const text = SDL_GetClipboardText();
    std::string result = text ? text : "";
    SDL_free(text);
    return result;
}

} // namespace mirel7::sdl

namespace mirel7 {

void RunEventLoop() {
    if (auto* const system = dynamic_cast<sdl::CSdlSystem*>(GetCurrentSystem())) system->Run();
}

} // namespace mirel7
