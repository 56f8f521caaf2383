#include <mirel7/event_sender.h>

#include <algorithm>

namespace mirel7 {

IEventSender::~IEventSender() = default;

CImplEventSender<IEventSender>::CImplEventSender() = default;

CImplEventSender<IEventSender>::~CImplEventSender() {
    std::vector<SSubscription> subscriptions;
    subscriptions.swap(m_subscriptions);
    for (SSubscription const& s : subscriptions)
        s.notify->NoticeStopped(this);
}

bool CImplEventSender<IEventSender>::Insert(INotify* notify, std::type_info const& type, bool front,
                                            bool notifyStart) {
    if (!notify || !IsEventSupported(type) || IsSubscribed(notify, type)) return false;
    SSubscription const entry{notify, &type, m_nextId++};
    m_subscriptions.insert(front ? m_subscriptions.begin() : m_subscriptions.end(), entry);
    if (notifyStart) notify->NoticeStarted(this);
    return true;
}

bool CImplEventSender<IEventSender>::SubscribeToFront(INotify* notify, std::type_info const& type,
                                                      bool notifyStart) {
    return Insert(notify, type, true, notifyStart);
}

bool CImplEventSender<IEventSender>::Subscribe(INotify* notify, std::type_info const& type,
                                               bool notifyStart) {
    return Insert(notify, type, false, notifyStart);
}

bool CImplEventSender<IEventSender>::Unsubscribe(INotify* notify, std::type_info const& type,
                                                 bool notifyStop) {
    auto const it = std::find_if(m_subscriptions.begin(), m_subscriptions.end(), [&](SSubscription const& s) {
        return s.notify == notify && *s.type == type;
    });
    if (it == m_subscriptions.end()) return false;
    m_subscriptions.erase(it);
    if (notifyStop) notify->NoticeStopped(this);
    return true;
}

void CImplEventSender<IEventSender>::Unsubscribe(INotify* notify, bool notifyStop) {
    auto const removed =
        std::erase_if(m_subscriptions, [&](SSubscription const& s) { return s.notify == notify; });
    if (notifyStop)
        for (std::size_t i = 0; i < removed; ++i)
            notify->NoticeStopped(this);
}

void CImplEventSender<IEventSender>::SetSupportedEvent(std::type_info const& type, bool supported) {
    auto const it = std::find_if(m_supported.begin(), m_supported.end(),
                                 [&](std::type_info const* t) { return *t == type; });
    if (supported && it == m_supported.end()) m_supported.push_back(&type);
    if (!supported && it != m_supported.end()) m_supported.erase(it);
}

bool CImplEventSender<IEventSender>::IsEventSupported(std::type_info const& type) const {
    return std::any_of(m_supported.begin(), m_supported.end(),
                       [&](std::type_info const* t) { return *t == type; });
}

void CImplEventSender<IEventSender>::FireEvent(std::type_info const& type,
                                               std::function<void(INotify*)> const& call, bool reverse) {
    if (m_stopped) return;
    // The receivers are fixed when the sending starts; each is looked up again before its call, since an
    // earlier one may have made it leave.
    std::vector<std::uint64_t> receivers;
    for (SSubscription const& s : m_subscriptions)
        if (*s.type == type) receivers.push_back(s.id);
    if (reverse) std::reverse(receivers.begin(), receivers.end());
    for (std::uint64_t const id : receivers) {
        auto const it = std::find_if(m_subscriptions.begin(), m_subscriptions.end(),
                                     [id](SSubscription const& s) { return s.id == id; });
        if (it != m_subscriptions.end()) call(it->notify);
        if (m_stopped) return;
    }
}

bool CImplEventSender<IEventSender>::IsSubscribed(INotify* notify, std::type_info const& type) const {
    return std::any_of(m_subscriptions.begin(), m_subscriptions.end(),
                       [&](SSubscription const& s) { return s.notify == notify && *s.type == type; });
}

int CImplEventSender<IEventSender>::GetSubscribersCount(std::type_info const& type) const {
    return static_cast<int>(std::count_if(m_subscriptions.begin(), m_subscriptions.end(),
                                          [&](SSubscription const& s) { return *s.type == type; }));
}

void CImplEventSender<IEventSender>::StopEventSending(bool stop) {
    m_stopped = stop;
}

std::unique_ptr<IEventSender> CreateDefSenderList() {
    auto sender = std::make_unique<CImplEventSender<IEventSender>>();
    for (std::type_info const* type :
         {&typeid(IDrawingNotify), &typeid(IWindowNotify), &typeid(IFocusNotify), &typeid(ITooltipNotify),
          &typeid(IScrollNotify), &typeid(IMouseNotify), &typeid(IMouseClickNotify),
          &typeid(IMouseHoverNotify), &typeid(IKeyboardNotify), &typeid(ISystemNotify),
          &typeid(IContextMenuNotify), &typeid(ICustomEventNotify)})
        sender->SetSupportedEvent(*type);
    return sender;
}

} // namespace mirel7
