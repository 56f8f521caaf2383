#pragma once

#include <mirelfrw7/core/signal.h>
#include <mirelfrw7/export.h>

#include <mirel7/base.h>
#include <mirel7/timer.h>

namespace mirelfrw7 {

class CScrollableElementEx;

// Scrolls the model along a strip element while it runs, by a number of pixels per tick that grows by
// `stepIncrement` every `ticksPerIncrement` ticks up to `maxStep`. It stops by itself at either end of the
// range, where the view comes to rest exactly on the end.
class MIRELFRW7_API CScrollTimer : public mirel7::CTimerNotify {
public:
    // After every tick.
    tarnkit2::signal_t<CScrollTimer*> sigTick;

    // The timer is made at once from the current system (none without one) and stays for the object's life.
    CScrollTimer(CScrollableElementEx* element, int interval, int step, int maxStep, int stepIncrement,
                 int ticksPerIncrement);
    ~CScrollTimer() override;
    CScrollTimer(CScrollTimer const&) = delete;
    CScrollTimer& operator=(CScrollTimer const&) = delete;

    // False without an element or a model along it. A running timer keeps its speed and takes the new
    // direction; a stopped one starts again at the initial step.
    bool Start(bool forward);
    void Stop();
    void OnTimer(mirel7::CTimerEvent* event) override;

    bool IsRunning() const { return m_timer && m_timer->IsActive(); }
    int GetCurrentStep() const { return m_currentStep; }
    int GetTickCount() const { return m_tickCount; }

private:
    CScrollableElementEx* m_element;
    bool m_forward = true;
    int m_initialStep;
    int m_maxStep;
    int m_stepIncrement;
    int m_ticksPerIncrement;
    mirel7::mirel_ptr<mirel7::ISysTimer> m_timer;
    int m_currentStep;
    int m_tickCount = 0;
};

// Process-wide timers of 100 milliseconds for automatic scrolling along each axis, made inactive by the
// current system on the first call and kept until exit; null when there was no system at that call.
MIRELFRW7_API mirel7::ISysTimer* GetVertScrollTimer();
MIRELFRW7_API mirel7::ISysTimer* GetHorzScrollTimer();

} // namespace mirelfrw7
