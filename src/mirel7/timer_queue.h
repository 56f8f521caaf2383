#pragma once

#include <mirel7/export.h>
#include <mirel7/timer.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace mirel7 {

class CQueuedTimer;

// The timers of one system on one clock, in milliseconds. The event loop asks for the next deadline and
// runs what is due; timers due together tick in the order of their deadlines, then of their activation.
class MIREL7_API CTimerQueue {
public:
    explicit CTimerQueue(std::function<std::int64_t()> clock);
    CTimerQueue(CTimerQueue const&) = delete;
    CTimerQueue& operator=(CTimerQueue const&) = delete;
    // Timers that outlive the queue stay valid objects that never tick.
    ~CTimerQueue();

    mirel_ptr<ISysTimer> CreateTimer(int intervalMs, bool active);

    std::int64_t Now() const { return m_clock(); }
    std::optional<std::int64_t> NextDeadline() const;
    // Ticks every timer due at `now`, once each.
    void RunDue(std::int64_t now);

private:
    friend class CQueuedTimer;
    void Schedule(CQueuedTimer* timer);
    void Remove(CQueuedTimer* timer);

    std::function<std::int64_t()> m_clock;
    std::vector<CQueuedTimer*> m_timers;
    std::uint64_t m_sequence = 0;
};

} // namespace mirel7
