#include <mirel7/locked_value.h>
#include <mirel7/palette.h>
#include <mirel7/raster_picture.h>
#include <mirel7/spawn.h>
#include <mirel7/sys_window_base.h>
#include <mirel7/system_base.h>
#include <mirel7/thread_runner.h>
#include <mirel7/window_painter.h>

#include <algorithm>
#include <mutex>

namespace mirel7 {

namespace {

class CMutexLock : public ILock {
public:
    void Acquire() override { m_mutex.lock(); }
    void Release() override { m_mutex.unlock(); }

private:
    std::mutex m_mutex;
};

} // namespace

CSystemBase::CSystemBase() : m_palette(GetDefaultPalette()) {
    SetCurrentSystem(this);
}

CSystemBase::~CSystemBase() {
    if (GetCurrentSystem() == this) SetCurrentSystem(nullptr);
}

int CSystemBase::GetMetric(int index) const {
    int base = 0;
    switch (index) {
    case MetricCheckSize:
        base = 13;
        break;
    case MetricDoubleClickTime:
        return 500;
    case MetricHoverTime:
        return 500;
    default:
        return 0;
    }
    return static_cast<int>(base * std::max(1.0, GetDPIScale()));
}

font CSystemBase::GetDefaultFont() const {
    font f;
    f.face = "DejaVu Sans";
    f.size = 8;
    return f;
}

mirel_ptr<ISysTimer> CSystemBase::CreateTimer(int intervalMs, bool active) {
    return m_timers.CreateTimer(intervalMs, active);
}

mirel_ptr<IRasterPicture> CSystemBase::CreateRasterPicture(int width, int height) {
    return NewRasterPicture(width, height);
}

mirel_ptr<IRunner> CSystemBase::CreateRunner() {
    return new CThreadRunner;
}

mirel_ptr<ILock> CSystemBase::CreateLock() {
    return new CMutexLock;
}

void CSystemBase::OpenLink(std::string const& address) {
    if (!address.empty()) SpawnDetached({"xdg-open", address});
}

void CSystemBase::SetPalette(ISysPalette* palette) {
    m_palette = palette ? palette : GetDefaultPalette();
    for (CSysWindowBase* window : std::vector(m_windows))
        window->SendSysColorChanged();
}

void CSystemBase::AddWindow(CSysWindowBase* window) {
    m_windows.push_back(window);
}

void CSystemBase::RemoveWindow(CSysWindowBase* window) {
    std::erase(m_windows, window);
}

} // namespace mirel7
