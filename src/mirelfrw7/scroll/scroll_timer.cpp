#include <mirelfrw7/items/saturating_int.h>
#include <mirelfrw7/scroll/scroll_converter.h>
#include <mirelfrw7/scroll/scroll_model.h>
#include <mirelfrw7/scroll/scroll_timer.h>
#include <mirelfrw7/scroll/scrollable_element_ex.h>

#include <mirel7/event_sender.h>
#include <mirel7/system.h>

#include <algorithm>
#include <cstdint>

namespace mirelfrw7 {

namespace {
mirel7::mirel_ptr<mirel7::ISysTimer> MakeTimer(int interval) {
    mirel7::ISystem* const system = mirel7::GetCurrentSystem();
    return system ? system->CreateTimer(interval, false) : nullptr;
}
} // namespace

CScrollTimer::CScrollTimer(CScrollableElementEx* element, int interval, int step, int maxStep,
                           int stepIncrement, int ticksPerIncrement)
    : m_element(element), m_initialStep(step), m_maxStep(maxStep), m_stepIncrement(stepIncrement),
      m_ticksPerIncrement(ticksPerIncrement), m_timer(MakeTimer(interval)), m_currentStep(step) {
    if (m_timer) m_timer->GetEventSender()->Subscribe<mirel7::ITimerNotify>(this);
}

CScrollTimer::~CScrollTimer() {
    if (m_timer) {
        m_timer->SetActive(false);
        m_timer->GetEventSender()->Unsubscribe<mirel7::ITimerNotify>(this);
    }
}

bool CScrollTimer::Start(bool forward) {
    if (!m_element || !m_element->GetScrollModel()) return false;
    m_forward = forward;
    if (!m_timer || m_timer->IsActive()) return true;
    m_timer->SetActive(true);
    m_currentStep = m_initialStep;
    m_tickCount = 0;
    return true;
}

void CScrollTimer::Stop() {
    if (m_timer) m_timer->SetActive(false);
}

void CScrollTimer::OnTimer(mirel7::CTimerEvent*) {
    IScrollModel* const model = m_element ? m_element->GetScrollModel() : nullptr;
    if (!model) return;
    CScrollConverter const converter(model);
    std::int64_t const position = SaturatingInt(converter.L2P(model->GetStart()));
    int target;
    if (!m_forward) {
        target = SaturatingInt(position - m_currentStep);
        if (target < converter.L2P(model->GetFrom())) {
            target = SaturatingInt(converter.L2P(model->GetFrom()));
            Stop();
        }
    } else {
        rectangle<int> const content = m_element->GetContentRect();
        double const view = m_element->GetAlong(content.Width(), content.Height());
        target = SaturatingInt(position + m_currentStep);
        int const limit = SaturatingInt(converter.L2P(model->GetTo()) - view);
        if (limit < target) {
            Stop();
            target = limit;
        }
    }
    model->SetStart(converter.P2L(target));
    m_element->OnChange(m_element, UpdateGlobal);

    if (m_tickCount + 1 == m_ticksPerIncrement && m_currentStep < m_maxStep) {
        m_currentStep = int(std::min<std::int64_t>(std::int64_t(m_currentStep) + m_stepIncrement, m_maxStep));
        m_tickCount = 0;
    } else {
        ++m_tickCount;
    }
    sigTick(this);
}

mirel7::ISysTimer* GetVertScrollTimer() {
    static mirel7::mirel_ptr<mirel7::ISysTimer> const timer = MakeTimer(100);
    return timer.get();
}

mirel7::ISysTimer* GetHorzScrollTimer() {
    static mirel7::mirel_ptr<mirel7::ISysTimer> const timer = MakeTimer(100);
    return timer.get();
}

} // namespace mirelfrw7
