#pragma once

#include <mirelfrw7/export.h>

#include <mirel7/base.h>
#include <mirel7/timer.h>

namespace mirelfrw7 {

// A timer subscriber that hands its ticks on under a name of its own, so that a class can receive a repeat
// timer beside other timers.
class MIRELFRW7_API CRepeatTimerNotify : public mirel7::CTimerNotify {
public:
    void OnTimer(mirel7::CTimerEvent* event) override;
    virtual void OnRepeatTimer(mirel7::CTimerEvent* event) = 0;
};

// Something done repeatedly while a condition holds (automatic scrolling, a button's auto-repeat). The timer
// exists only while repeating, made from the current system; ticks come on the GUI thread, and a tick may
// stop the repetition.
class MIRELFRW7_API CRepeatableOperation : public CRepeatTimerNotify {
public:
    explicit CRepeatableOperation(int repeatInterval = 100) : m_repeatInterval(repeatInterval) {}
    ~CRepeatableOperation() override;
    CRepeatableOperation(CRepeatableOperation const&) = delete;
    CRepeatableOperation& operator=(CRepeatableOperation const&) = delete;

    void OnRepeatTimer(mirel7::CTimerEvent* event) override;
    // One repetition.
    virtual void ProcessRepeatOperation() = 0;

    // In milliseconds; an interval not above 0 keeps the operation from ever starting. A running timer
    // takes the new interval and keeps its state.
    void SetRepeatInterval(int interval);
    int GetRepeatInterval() const { return m_repeatInterval; }
    // Starts ticking; nothing without a system.
    void StartRepeating();
    // Stops ticking and lets the timer go.
    void StopRepeating();
    bool IsRepeating() const { return m_timer && m_timer->IsActive(); }

private:
    int m_repeatInterval;
    mirel7::mirel_ptr<mirel7::ISysTimer> m_timer;
};

} // namespace mirelfrw7
