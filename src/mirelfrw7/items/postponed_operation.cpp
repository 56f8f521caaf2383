#include <mirelfrw7/items/postponed_operation.h>

#include <mirel7/event_sender.h>
#include <mirel7/system.h>

namespace mirelfrw7 {

CPostponedOperation::~CPostponedOperation() {
    if (!m_timer) return;
    m_timer->SetActive(false);
    m_timer->GetEventSender()->Unsubscribe<mirel7::ITimerNotify>(this);
}

void CPostponedOperation::Start() {
    if (!m_timer) {
        mirel7::ISystem* const system = mirel7::GetCurrentSystem();
        if (!system) return;
        m_timer = system->CreateTimer(m_delay, false);
        if (!m_timer) return;
        m_timer->GetEventSender()->Subscribe<mirel7::ITimerNotify>(this);
    }
    m_timer->SetActive(false);
    m_timer->SetInterval(m_delay);
    m_timer->SetActive(true);
}

void CPostponedOperation::Stop() {
    if (m_timer) m_timer->SetActive(false);
}

void CPostponedOperation::OnTimer(mirel7::CTimerEvent*) {
    Stop();
    sigOperation();
}

} // namespace mirelfrw7
