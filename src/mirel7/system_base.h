#pragma once

#include <mirel7/export.h>
#include <mirel7/system.h>
#include <mirel7/timer_queue.h>

#include <cstdint>
#include <vector>

namespace mirel7 {

class CSysWindowBase;

// What the systems of every backend share: the factories, measures scaled by the DPI scale, the palette,
// the timers on the backend's clock and the list of open windows. It installs itself as the current
// system when made, and leaves when it dies.
class MIREL7_API CSystemBase : public ISystem {
public:
    CSystemBase(CSystemBase const&) = delete;
    CSystemBase& operator=(CSystemBase const&) = delete;
    ~CSystemBase() override;

    ICursorState* GetCursorState() override { return &m_cursorState; }
    int GetMetric(int index) const override;
    ISysPalette* GetPalette() const override { return m_palette; }
    font GetDefaultFont() const override;

    mirel_ptr<ISysTimer> CreateTimer(int intervalMs = 0, bool active = false) override;
    mirel_ptr<IRasterPicture> CreateRasterPicture(int width, int height) override;
    mirel_ptr<IRunner> CreateRunner() override;
    mirel_ptr<ILock> CreateLock() override;
    // Runs xdg-open with the address.
    void OpenLink(std::string const& address) override;

    // A new palette is announced to every window as a change of the system colours.
    void SetPalette(ISysPalette* palette);

    std::vector<CSysWindowBase*> const& GetWindows() const { return m_windows; }

protected:
    CSystemBase();

    // The pointer in screen pixels.
    virtual point<int> QueryPointer() const = 0;
    // The backend's clock in milliseconds.
    virtual std::int64_t Now() const = 0;

    CTimerQueue& GetTimers() { return m_timers; }

private:
    friend class CSysWindowBase;
    void AddWindow(CSysWindowBase* window);
    void RemoveWindow(CSysWindowBase* window);

    class CCursorState : public ICursorState {
    public:
        explicit CCursorState(CSystemBase const& system) : m_system(system) {}
        point<int> GetPosition() const override { return m_system.QueryPointer(); }

    private:
        CSystemBase const& m_system;
    };

    CCursorState m_cursorState{*this};
    ISysPalette* m_palette;
    CTimerQueue m_timers{[this] { return Now(); }};
    std::vector<CSysWindowBase*> m_windows;
};

} // namespace mirel7
