#include <mirelfrw7/animation/animation_process.h>
#include <mirelfrw7/animation/thread_animation_process.h>
#include <mirelfrw7/animation/timer_animation_process.h>

namespace mirelfrw7 {

namespace {
// Set by the application at start-up, read where processes are made: the GUI thread's alone.
AnimationProcessType s_defaultType = AnimationProcessTimer;
} // namespace

IAnimationProcess::IUpdater::~IUpdater() = default;

void CAnimationProcess::SetAnimation(IAnimation* animation) {
    m_animation = animation;
    if (m_startPending) StartAnimation();
}

bool CAnimationProcess::CanAdvance() const {
    return m_animation && m_updater && m_updater->IsUpdatable();
}

mirel7::mirel_ptr<IAnimationProcess> CreateAnimationProcess() {
    switch (s_defaultType) {
    case AnimationProcessThread:
        return new CThreadAnimationProcess;
    case AnimationProcessTimer:
        return new CTimerAnimationProcess;
    }
    return {};
}

void SetDefAnimationProcess(AnimationProcessType type) {
    s_defaultType = type;
}

} // namespace mirelfrw7
