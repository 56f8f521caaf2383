#pragma once

#include <mirelfrw7/core/signal.h>
#include <mirelfrw7/export.h>

#include <mirel7/base.h>
#include <mirel7/notify.h>
#include <mirel7/timer.h>

namespace mirelfrw7 {

// Something done once a stretch of time has passed without a new request: every Start begins the wait
// again. The timer comes from the current system on first use.
class MIRELFRW7_API CPostponedOperation : public mirel7::CSubscriber<mirel7::ITimerNotify> {
public:
    tarnkit2::signal_t<> sigOperation;

    explicit CPostponedOperation(int delay) : m_delay(delay) {}
    ~CPostponedOperation() override;
    CPostponedOperation(CPostponedOperation const&) = delete;
    CPostponedOperation& operator=(CPostponedOperation const&) = delete;

    // In milliseconds; takes effect at the next Start.
    void SetDelay(int delay) { m_delay = delay; }
    void Start();
    void Stop();
    bool IsPending() const { return m_timer && m_timer->IsActive(); }

    void OnTimer(mirel7::CTimerEvent* event) override;

private:
    int m_delay;
    mirel7::mirel_ptr<mirel7::ISysTimer> m_timer;
};

} // namespace mirelfrw7
