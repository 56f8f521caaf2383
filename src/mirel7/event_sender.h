#pragma once

#include <mirel7/export.h>
#include <mirel7/notify.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <type_traits>
#include <typeinfo>
#include <vector>

namespace mirel7 {

// Sends the events of some notify interfaces to the objects subscribed to them. Each subscription is one
// object for one interface, named by its type_info; the object is told NoticeStarted when it joins and
// NoticeStopped when it leaves or the sender dies, unless the caller says otherwise.
//
// Subscribers may join and leave while an event is being sent: one that leaves is not called any more for
// that event, one that joins is called from the next event on.
class MIREL7_API IEventSender {
public:
    virtual ~IEventSender();

    // Both answer false, and subscribe nothing, for an interface the sender does not send or an object
    // already subscribed to it.
    virtual bool SubscribeToFront(INotify* notify, std::type_info const& type, bool notifyStart = true) = 0;
    virtual bool Subscribe(INotify* notify, std::type_info const& type, bool notifyStart = true) = 0;
    virtual bool Unsubscribe(INotify* notify, std::type_info const& type, bool notifyStop = true) = 0;
    // Every subscription of the object.
    virtual void Unsubscribe(INotify* notify, bool notifyStop = true) = 0;
    virtual void SetSupportedEvent(std::type_info const& type, bool supported = true) = 0;
    virtual bool IsEventSupported(std::type_info const& type) const = 0;
    // Calls `call` with each object subscribed to `type`, in order, or in reverse order with `reverse`.
    virtual void FireEvent(std::type_info const& type, std::function<void(INotify*)> const& call,
                           bool reverse = false) = 0;
    virtual bool IsSubscribed(INotify* notify, std::type_info const& type) const = 0;
    virtual int GetSubscribersCount(std::type_info const& type) const = 0;
    // While stopped, FireEvent sends nothing.
    virtual void StopEventSending(bool stop) = 0;

    // The interface is always named, `Subscribe<IMouseNotify>(this)`: deduced from an object implementing
    // several, it would be the object's own class.
    template <class T>
    bool Subscribe(std::type_identity_t<T>* notify) {
        return Subscribe(static_cast<INotify*>(notify), typeid(T));
    }
    template <class T>
    bool SubscribeToFront(std::type_identity_t<T>* notify) {
        return SubscribeToFront(static_cast<INotify*>(notify), typeid(T));
    }
    template <class T>
    bool Unsubscribe(std::type_identity_t<T>* notify) {
        return Unsubscribe(static_cast<INotify*>(notify), typeid(T));
    }
    // Sends one event of interface T: `Fire(&IMouseNotify::OnButtonDown, &event)`.
    template <class T, class E>
    void Fire(void (T::*handler)(E*), std::type_identity_t<E>* event) {
        FireEvent(typeid(T), [&](INotify* notify) {
            if (auto* target = dynamic_cast<T*>(notify)) (target->*handler)(event);
        });
    }
};

template <class Interface>
class CImplEventSender;

// The sender of the base layer, embedded in windows, timers and controls.
template <>
class MIREL7_API CImplEventSender<IEventSender> : public IEventSender {
public:
    CImplEventSender();
    CImplEventSender(CImplEventSender const&) = delete;
    CImplEventSender& operator=(CImplEventSender const&) = delete;
    // Tells every subscriber that the sending stopped.
    ~CImplEventSender() override;

    using IEventSender::Subscribe;
    using IEventSender::SubscribeToFront;
    using IEventSender::Unsubscribe;

    bool SubscribeToFront(INotify* notify, std::type_info const& type, bool notifyStart = true) override;
    bool Subscribe(INotify* notify, std::type_info const& type, bool notifyStart = true) override;
    bool Unsubscribe(INotify* notify, std::type_info const& type, bool notifyStop = true) override;
    void Unsubscribe(INotify* notify, bool notifyStop = true) override;
    void SetSupportedEvent(std::type_info const& type, bool supported = true) override;
    bool IsEventSupported(std::type_info const& type) const override;
    void FireEvent(std::type_info const& type, std::function<void(INotify*)> const& call,
                   bool reverse = false) override;
    bool IsSubscribed(INotify* notify, std::type_info const& type) const override;
    int GetSubscribersCount(std::type_info const& type) const override;
    void StopEventSending(bool stop) override;

private:
    struct SSubscription {
        INotify* notify;
        std::type_info const* type;
        // Tells a subscription apart from a later one of an object at the same address.
        std::uint64_t id;
    };

    bool Insert(INotify* notify, std::type_info const& type, bool front, bool notifyStart);

    std::vector<std::type_info const*> m_supported;
    std::vector<SSubscription> m_subscriptions;
    std::uint64_t m_nextId = 0;
    bool m_stopped = false;
};

// A sender of the notify interfaces of a system window.
MIREL7_API std::unique_ptr<IEventSender> CreateDefSenderList();

} // namespace mirel7
