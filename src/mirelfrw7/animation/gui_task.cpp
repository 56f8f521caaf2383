#include <mirelfrw7/animation/gui_task.h>
#include <mirelfrw7/animation/runnable_proxy.h>

#include <mirel7/runner.h>
#include <mirel7/synchronizer.h>
#include <mirel7/system.h>

#include <memory>

namespace mirelfrw7 {

void CGUITask::Execute() {
    mirel7::ISystem* const system = mirel7::GetCurrentSystem();
    // The lock comes with the first run, before any worker can read the flag.
    if (!m_stopped.GetLock() && system)
        m_stopped = mirel7::LockedValue<bool>(system->CreateLock(), false);
    else
        m_stopped.Set(false);
    if (mirel7::IRunner* const runner = GetRunner()) runner->Run(this);
}

void CGUITask::Stop() {
    m_stopped.Set(true);
    if (mirel7::IRunner* const runner = GetRunner()) runner->Stop();
    m_runner.store(nullptr);
}

bool CGUITask::ProcessData() {
    if (m_stopped.Get()) return false;
    bool const result = InternalProcessData();
    mirel7::ISynchronizer* const synchronizer = GetSynchronizer();
    if (m_stopped.Get() || !synchronizer) return result;
    auto proxy = std::make_unique<CRunnableProxy>();
    InitUpdater(proxy.get());
    synchronizer->Synchronize(proxy.release());
    return result;
}

} // namespace mirelfrw7
