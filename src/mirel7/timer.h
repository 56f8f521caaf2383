#pragma once

#include <mirel7/base.h>
#include <mirel7/export.h>
#include <mirel7/notify.h>

namespace mirel7 {

class IEventSender;

// A repeating timer of the GUI thread, made by the system object. While active it sends
// ITimerNotify::OnTimer every interval, from the event loop. A subscriber may stop it, change its interval
// or release the last reference to it from inside a tick.
class MIREL7_API ISysTimer : public CBase {
public:
    // A new interval takes effect at once: an active timer next ticks one new interval from now. An interval
    // below 1 keeps the timer from ticking.
    virtual void SetInterval(int ms) = 0;
    virtual int GetInterval() const = 0;
    // Activation starts a fresh interval; activating an active timer changes nothing.
    virtual void SetActive(bool active) = 0;
    virtual bool IsActive() const = 0;
    virtual IEventSender* GetEventSender() = 0;
};

// The base of the framework's timer subscribers.
class MIREL7_API CTimerNotify : public CSubscriber<ITimerNotify> {};

} // namespace mirel7
