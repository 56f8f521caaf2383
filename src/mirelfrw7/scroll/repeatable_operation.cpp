#include <mirelfrw7/scroll/repeatable_operation.h>

#include <mirel7/event_sender.h>
#include <mirel7/system.h>

namespace mirelfrw7 {

void CRepeatTimerNotify::OnTimer(mirel7::CTimerEvent* event) {
    OnRepeatTimer(event);
}

CRepeatableOperation::~CRepeatableOperation() {
    StopRepeating();
}

void CRepeatableOperation::OnRepeatTimer(mirel7::CTimerEvent*) {
    ProcessRepeatOperation();
}

void CRepeatableOperation::SetRepeatInterval(int interval) {
    if (interval == m_repeatInterval) return;
    m_repeatInterval = interval;
    if (!m_timer) return;
    bool const active = m_timer->IsActive();
    m_timer->SetInterval(interval);
    m_timer->SetActive(active);
}

void CRepeatableOperation::StartRepeating() {
    if (m_repeatInterval <= 0) return;
    if (!m_timer) {
        mirel7::ISystem* const system = mirel7::GetCurrentSystem();
        if (!system) return;
        m_timer = system->CreateTimer(m_repeatInterval, false);
        if (!m_timer) return;
        m_timer->GetEventSender()->Subscribe<mirel7::ITimerNotify>(this);
    }
    m_timer->SetInterval(m_repeatInterval);
    m_timer->SetActive(true);
}

void CRepeatableOperation::StopRepeating() {
    if (m_timer) {
        m_timer->SetActive(false);
        m_timer->GetEventSender()->Unsubscribe<mirel7::ITimerNotify>(this);
    }
    m_timer.reset();
}

} // namespace mirelfrw7
