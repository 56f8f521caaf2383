#pragma once

#include <mirel7/export.h>
#include <mirel7/system_base.h>

#include <cstdint>
#include <string>

union SDL_Event;

namespace mirel7::sdl {

class CSdlWindow;

// The desktop through SDL2, on X11 or Wayland. One per process; it installs itself as the current system.
// Everything but Wake() runs on the thread that made it, the GUI thread.
class MIREL7_API CSdlSystem : public CSystemBase {
public:
    CSdlSystem();
    ~CSdlSystem() override;

    // False when SDL could not start a video driver; windows cannot be made then.
    bool IsReady() const { return m_ready; }

    IClipboard* GetClipboard() override { return &m_clipboard; }
    double GetDPIScale() const override;

    // One turn of the event loop: waits up to `timeoutMs` (forever when negative) for an event, a timer
    // deadline or a wake-up, then sends the events, ticks the timers, runs the windows' runnables and
    // paints. Answers false once no window is open.
    bool RunOnce(int timeoutMs);
    // Turns until the last window closed.
    void Run();
    // Gets a waiting RunOnce() going, from any thread.
    void Wake();

protected:
    point<int> QueryPointer() const override;
    std::int64_t Now() const override;

private:
    class CClipboard : public IClipboard {
    public:
        void SetText(std::string const& text) override;
        std::string GetText() const override;
    };

    void Dispatch(SDL_Event const& event);
    CSdlWindow* FindWindow(std::uint32_t windowId) const;
    bool HasOpenWindow() const;

    bool m_ready = false;
    std::uint32_t m_wakeEvent = 0;
    CClipboard m_clipboard;
};

} // namespace mirel7::sdl

namespace mirel7 {

// Runs the event loop of the current SDL system until its last window closed; returns at once without one.
MIREL7_API void RunEventLoop();

} // namespace mirel7
