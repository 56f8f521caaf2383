#include <mirelfrw7/animation/animation.h>
#include <mirelfrw7/animation/runnable_proxy.h>
#include <mirelfrw7/animation/thread_animation_process.h>

#include <mirel7/system.h>

namespace mirelfrw7 {

CThreadAnimationProcess::~CThreadAnimationProcess() {
    DoStopAnimation();
}

void CThreadAnimationProcess::SetProcessSynchronizer(mirel7::ISynchronizer* synchronizer) {
    m_processSynchronizer = synchronizer;
    Refresh();
}

void CThreadAnimationProcess::Refresh() {
    bool const wanted = m_animation && m_processSynchronizer && m_startPending;
    bool const animated = IsAnimated();
    if (!animated && wanted)
        StartAnimation();
    else if (animated && !wanted)
        StopAnimation();
}

void CThreadAnimationProcess::StartAnimation() {
    m_startPending = true;
    if (!m_animation || !m_processSynchronizer) return;
    mirel7::ISystem* const system = mirel7::GetCurrentSystem();
    int const interval = m_animation->GetInterval();
    // The lock comes with the first start, before there is a worker to read the value.
    if (!m_interval.GetLock() && system)
        m_interval = mirel7::LockedValue<int>(system->CreateLock(), interval);
    else
        m_interval.Set(interval);
    if (!GetRunner() && system) {
        m_ownRunner = system->CreateRunner();
        SetRunner(m_ownRunner.get());
    }
    if (!GetSynchronizer()) SetSynchronizer(m_processSynchronizer);
    mirel7::IRunner* const runner = GetRunner();
    if (runner && runner->IsRunning()) return;
    Execute();
}

bool CThreadAnimationProcess::IsAnimated() const {
    mirel7::IRunner* const runner = GetRunner();
    return m_animation && runner && runner->IsRunning();
}

bool CThreadAnimationProcess::InternalProcessData() {
    if (mirel7::IRunner* const runner = GetRunner()) runner->Sleep(m_interval.Get());
    return true;
}

void CThreadAnimationProcess::InitUpdater(CRunnableProxy* proxy) {
    proxy->sigRun.connect(this, &CThreadAnimationProcess::UpdateData);
}

void CThreadAnimationProcess::UpdateData() {
    if (!CanAdvance()) return;
    m_animation->Advance();
    m_interval.Set(m_animation->GetInterval());
    m_updater->UpdateAnimation();
}

void CThreadAnimationProcess::DoStopAnimation() {
    Stop();
    SetRunner(nullptr);
    SetSynchronizer(nullptr);
    m_startPending = false;
    m_ownRunner.reset();
}

} // namespace mirelfrw7
