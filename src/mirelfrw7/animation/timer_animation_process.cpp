#include <mirelfrw7/animation/animation.h>
#include <mirelfrw7/animation/timer_animation_process.h>

namespace mirelfrw7 {

void CTimerAnimationProcess::StartAnimation() {
    m_startPending = true;
    if (!m_animation) return;
    // The first frame may stop the animation or let the last reference to this process go.
    mirel7::mirel_ptr<IAnimationProcess> const keep(this);
    ProcessRepeatOperation();
    if (m_startPending) StartRepeating();
}

void CTimerAnimationProcess::StopAnimation() {
    m_startPending = false;
    StopRepeating();
}

bool CTimerAnimationProcess::IsAnimated() const {
    return m_animation && IsRepeating();
}

void CTimerAnimationProcess::ProcessRepeatOperation() {
    if (!CanAdvance()) return;
    m_animation->Advance();
    SetRepeatInterval(m_animation->GetInterval());
    m_updater->UpdateAnimation();
}

} // namespace mirelfrw7
