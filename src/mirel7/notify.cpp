#include <mirel7/event_sender.h>
#include <mirel7/notify.h>

#include <algorithm>

namespace mirel7 {

INotify::~INotify() = default;

CSenderTracker::~CSenderTracker() {
    UnsubscribeAll();
}

void CSenderTracker::NoticeStarted(IEventSender* sender) {
    m_senders.push_back(sender);
}

void CSenderTracker::NoticeStopped(IEventSender* sender) {
    auto const it = std::find(m_senders.begin(), m_senders.end(), sender);
    if (it != m_senders.end()) m_senders.erase(it);
}

void CSenderTracker::UnsubscribeAll() {
    // Each sender is left once for all the interfaces this object takes from it; the stop notices would
    // only shorten the list being walked.
    std::vector<IEventSender*> senders;
    senders.swap(m_senders);
    std::sort(senders.begin(), senders.end());
    senders.erase(std::unique(senders.begin(), senders.end()), senders.end());
    for (IEventSender* sender : senders)
        sender->Unsubscribe(this, false);
}

} // namespace mirel7
