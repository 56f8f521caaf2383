#include <mirel7/system.h>

#include <atomic>

namespace mirel7 {

ISystem::~ISystem() = default;
ISystem::ICursorState::~ICursorState() = default;
ISystem::IClipboard::~IClipboard() = default;

namespace {
// Read on worker threads too (a runner asks for a lock), so kept atomic.
std::atomic<ISystem*> g_system{nullptr};
std::atomic<int> g_dpiAutoScale{1};
} // namespace

ISystem* GetCurrentSystem() {
    return g_system.load();
}

void SetCurrentSystem(ISystem* system) {
    g_system.store(system);
}

int GetDPIAutoScale() {
    return g_dpiAutoScale.load();
}

void SetDPIAutoScale(int flags) {
    g_dpiAutoScale.store(flags);
}

font GetDefaultGUIFont() {
    ISystem* const system = GetCurrentSystem();
    return system ? system->GetDefaultFont() : font{};
}

} // namespace mirel7
