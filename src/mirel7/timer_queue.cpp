#include <mirel7/event_sender.h>
#include <mirel7/timer_queue.h>

#include <algorithm>

namespace mirel7 {

// A timer of a CTimerQueue. It holds its place in the queue: a deadline while active and its interval is
// positive, and the sequence number of its activation for ties.
class CQueuedTimer : public ISysTimer {
public:
    CQueuedTimer(CTimerQueue* queue, int interval) : m_queue(queue), m_interval(interval) {
        m_sender.SetSupportedEvent(typeid(ITimerNotify));
    }
    ~CQueuedTimer() override {
        if (m_queue) m_queue->Remove(this);
    }

    void SetInterval(int ms) override {
        m_interval = ms;
        if (m_active) Reschedule();
    }
    int GetInterval() const override { return m_interval; }
    void SetActive(bool active) override {
        if (active == m_active) return;
        m_active = active;
        Reschedule();
    }
    bool IsActive() const override { return m_active; }
    IEventSender* GetEventSender() override { return &m_sender; }

    bool IsScheduled() const { return m_active && m_interval > 0 && m_queue; }
    std::int64_t GetDeadline() const { return m_deadline; }
    std::uint64_t GetSequence() const { return m_sequence; }

    void Detach() { m_queue = nullptr; }

    void Reschedule() {
        if (m_queue) m_queue->Schedule(this);
    }
    void SetDeadline(std::int64_t deadline, std::uint64_t sequence) {
        m_deadline = deadline;
        m_sequence = sequence;
    }

    void Tick(std::int64_t now) {
        // The next deadline counts from this one, so ticks do not drift; a loop that fell behind by more than
        // an interval skips the ticks it missed.
        std::int64_t next = m_deadline + m_interval;
        if (next <= now) next = now + m_interval;
        m_deadline = next;
        CTimerEvent event;
        m_sender.Fire(&ITimerNotify::OnTimer, &event);
    }

private:
    CTimerQueue* m_queue;
    int m_interval;
    bool m_active = false;
    std::int64_t m_deadline = 0;
    std::uint64_t m_sequence = 0;
    CImplEventSender<IEventSender> m_sender;
};

CTimerQueue::CTimerQueue(std::function<std::int64_t()> clock) : m_clock(std::move(clock)) {}

CTimerQueue::~CTimerQueue() {
    for (CQueuedTimer* timer : m_timers)
        timer->Detach();
}

mirel_ptr<ISysTimer> CTimerQueue::CreateTimer(int intervalMs, bool active) {
    auto* timer = new CQueuedTimer(this, intervalMs);
    m_timers.push_back(timer);
    mirel_ptr<ISysTimer> result(timer);
    timer->SetActive(active);
    return result;
}

void CTimerQueue::Schedule(CQueuedTimer* timer) {
    timer->SetDeadline(Now() + timer->GetInterval(), m_sequence++);
}

void CTimerQueue::Remove(CQueuedTimer* timer) {
    std::erase(m_timers, timer);
}

std::optional<std::int64_t> CTimerQueue::NextDeadline() const {
    std::optional<std::int64_t> next;
    for (CQueuedTimer const* timer : m_timers)
        if (timer->IsScheduled() && (!next || timer->GetDeadline() < *next)) next = timer->GetDeadline();
    return next;
}

void CTimerQueue::RunDue(std::int64_t now) {
    // The due timers are held while they tick, so one may release another, or itself, from its tick.
    std::vector<mirel_ptr<CQueuedTimer>> due;
    for (CQueuedTimer* timer : m_timers)
        if (timer->IsScheduled() && timer->GetDeadline() <= now) due.emplace_back(timer);
    std::sort(due.begin(), due.end(), [](auto const& a, auto const& b) {
        return a->GetDeadline() != b->GetDeadline() ? a->GetDeadline() < b->GetDeadline()
                                                    : a->GetSequence() < b->GetSequence();
    });
    for (auto const& timer : due) {
        // An earlier tick may have stopped or moved it, or released the last reference besides this one.
        bool const released = timer->GetRefCount() == 1;
        if (!released && timer->IsScheduled() && timer->GetDeadline() <= now) timer->Tick(now);
    }
}

} // namespace mirel7
