#pragma once

#include <mirelfrw7/export.h>

#include <mirel7/mutex.h>

#include <cstring>
#include <list>
#include <type_traits>
#include <utility>

namespace tarnkit2::_internal {

using threading::mutex_t;

class signal_base_t;

// What an object derives from to receive signals. It remembers every connection made to it, one entry per
// connection, and cuts them all when it dies, so a signal never calls a dead receiver.
//
// Lock order. Connecting, disconnecting and destroying a signal take the signal's mutex and then the
// subscriber's; destroying a subscriber takes its own mutex and then each signal's. The two orders are
// opposite, so a thread that destroys a subscriber while another connects it to a signal can deadlock.
// Signals live on the GUI thread, where every mutex is only ever taken recursively by that one thread.
class MIRELFRW7_API subscriber_base_t {
public:
    subscriber_base_t();
    virtual ~subscriber_base_t();
    subscriber_base_t(subscriber_base_t const&) = delete;
    subscriber_base_t& operator=(subscriber_base_t const&) = delete;

private:
    friend class signal_base_t;

    std::list<signal_base_t*> m_signals;
    mutex_t m_mutex;
};

// A member-function pointer with its type taken away: two machine words on this ABI.
struct typeless_connection_t {
    void* words[2];

    friend bool operator==(typeless_connection_t const& a, typeless_connection_t const& b) {
        return a.words[0] == b.words[0] && a.words[1] == b.words[1];
    }
};

// One slot of a signal. An entry with a null subscriber is blank: disconnected during an emission and swept
// when the outermost emission ends.
struct connection_t {
    using caster_t = void (*)();

    void* object = nullptr;
    subscriber_base_t* subscriber = nullptr;
    typeless_connection_t method{};
    caster_t caster = nullptr;

    // The same receiver and method: the subscriber and caster follow from those two.
    friend bool operator==(connection_t const& a, connection_t const& b) {
        return a.object == b.object && a.method == b.method;
    }
};

// What an emission keeps on its stack. Nested emissions share the outermost one's `alive`, which the
// signal's destructor clears, so every level learns that the signal died during a slot.
struct onstack_signal_state_t {
    mutex_t* mutex = nullptr;
    bool alive = true;
    bool* alive_ptr = nullptr;
    bool nested = false;
};

// Everything of a signal that does not depend on its argument types. A signal can itself receive, so that
// one signal can be connected to another's operator().
class MIRELFRW7_API signal_base_t : public subscriber_base_t {
public:
    signal_base_t();
    ~signal_base_t() override;

    void _insert(connection_t const& c);
    void _erase(connection_t const& c);
    void _erase_all();
    void on_subscriber_destroy(subscriber_base_t* s);

    bool is_emitting() const { return m_active != nullptr; }
    // The live connections, blanked ones left out.
    std::size_t connection_count() const;
    // The entries of the list, blanked ones included; blanks exist only while an emission runs.
    std::size_t entry_count() const;

protected:
    // The steps of an emission, inline because every emission runs them.

    // Takes the mutex and sets the emission up; answers false (mutex released) when the signal is dying.
    bool pre_call(onstack_signal_state_t& state) const {
        state.mutex = m_mutex;
        state.mutex->acquire();
        state.alive = true;
        state.nested = m_active != nullptr;
        if (!state.nested) m_active = &state.alive;
        state.alive_ptr = m_active;
        if (*state.alive_ptr) return true;
        state.mutex->release();
        return false;
    }
    // After a slot has thrown: answers true when the signal survived the slot, else releases what the
    // emission held.
    static bool check_valid_state_after_call(onstack_signal_state_t& state) {
        if (*state.alive_ptr) return true;
        abandon_call(state);
        return false;
    }
    // Ends an emission: the outermost level of a live signal sweeps the blanked entries. Releases the mutex.
    void post_call(onstack_signal_state_t& state) const {
        if (*state.alive_ptr && !state.nested) {
            m_active = nullptr;
            if (m_hasBlanks) sweep_blanks();
        }
        state.mutex->release();
    }
    // Ends an emission whose signal was destroyed by a slot: nothing of the signal may be touched any more.
    static void abandon_call(onstack_signal_state_t& state) {
        state.mutex->release();
        if (!state.nested) delete state.mutex;
    }

    mutable std::list<connection_t> m_connections;
    mutable bool* m_active = nullptr;
    // Whether an entry was blanked during the running emission, so that most emissions skip the sweep.
    mutable bool m_hasBlanks = false;
    // On the heap: it must outlive a signal destroyed during its own emission.
    mutex_t* m_mutex;

private:
    void sweep_blanks() const;
    // Removes, or blanks during an emission, the connections to `s`.
    void forget_subscriber(subscriber_base_t* s) const;
    // Removes the back-reference of one connection to `s` from the subscriber's list.
    void unlink_from(subscriber_base_t* s) const;
};

struct dummy_t {};

// The arguments of a signal are passed on by value when they are scalars or references, and by const
// reference otherwise, so that an emission copies nothing on its way to the slots.
template <class A>
using pass_t = std::conditional_t<std::is_reference_v<A> || std::is_scalar_v<A>, A, A const&>;

template <class... A>
struct arg_list {};

// Builds X<A...> from a signal's argument positions, dropping the dummy_t that fill the unused ones.
template <template <class...> class X, class Done, class... Rest>
struct trim_dummies;
template <template <class...> class X, class... Done>
struct trim_dummies<X, arg_list<Done...>> {
    using type = X<Done...>;
};
template <template <class...> class X, class... Done, class... Rest>
struct trim_dummies<X, arg_list<Done...>, dummy_t, Rest...> {
    using type = X<Done...>;
};
template <template <class...> class X, class... Done, class H, class... Rest>
struct trim_dummies<X, arg_list<Done...>, H, Rest...> : trim_dummies<X, arg_list<Done..., H>, Rest...> {};

template <class M>
typeless_connection_t erase_method_type(M method) {
    static_assert(sizeof(M) == sizeof(typeless_connection_t), "a member-function pointer is two words here");
    typeless_connection_t t;
    std::memcpy(&t, &method, sizeof t);
    return t;
}

// Turns a stored (object, method) pair back into a call for receiver class T and method type M.
template <class T, class M>
struct bound_caster {
    template <class... A>
    struct for_args {
        static void caster(void* object, typeless_connection_t method, pass_t<A>... args) {
            M m;
            std::memcpy(&m, &method, sizeof m);
            (static_cast<T*>(object)->*m)(static_cast<pass_t<A>>(args)...);
        }
    };
};

// The emitting half of a signal with the arguments A...
template <class... A>
class signal_core : public signal_base_t {
public:
    using caster_fn = void (*)(void*, typeless_connection_t, pass_t<A>...);

    void operator()(pass_t<A>... args) const {
        onstack_signal_state_t state;
        if (!pre_call(state)) return;
        try {
            for (auto it = m_connections.begin(); it != m_connections.end(); ++it) {
                if (!it->subscriber) continue;
                reinterpret_cast<caster_fn>(it->caster)(it->object, it->method,
                                                        static_cast<pass_t<A>>(args)...);
                if (!*state.alive_ptr) return abandon_call(state);
            }
        } catch (...) {
            if (check_valid_state_after_call(state)) post_call(state);
            throw;
        }
        post_call(state);
    }

protected:
    template <class R, class C, class M>
    static connection_t make_connection(R* receiver, M method) {
        static_assert(std::is_base_of_v<subscriber_base_t, R>, "a receiver derives from subscriber_base_t");
        static_assert(std::is_base_of_v<C, R>, "the method belongs to the receiver's class");
        using caster_of = typename bound_caster<C, M>::template for_args<A...>;
        caster_fn const caster = &caster_of::caster;
        return {static_cast<C*>(receiver), static_cast<subscriber_base_t*>(receiver),
                erase_method_type(method), reinterpret_cast<connection_t::caster_t>(caster)};
    }
};

// With T and M being dummy_t: the typed signal, called like a function. With a receiver class T and a
// member-function type M: the caster that calls M on a T with the signal's arguments.
template <class T, class M, class A1 = dummy_t, class A2 = dummy_t, class A3 = dummy_t, class A4 = dummy_t,
          class A5 = dummy_t, class A6 = dummy_t>
struct signal_templ
    : trim_dummies<bound_caster<T, M>::template for_args, arg_list<>, A1, A2, A3, A4, A5, A6>::type {};

template <class A1, class A2, class A3, class A4, class A5, class A6>
class signal_templ<dummy_t, dummy_t, A1, A2, A3, A4, A5, A6>
    : public trim_dummies<signal_core, arg_list<>, A1, A2, A3, A4, A5, A6>::type {};

// The signal members are declared with: signal_t<> to signal_t<A1, ..., A6>.
template <class A1 = dummy_t, class A2 = dummy_t, class A3 = dummy_t, class A4 = dummy_t, class A5 = dummy_t,
          class A6 = dummy_t>
class signal_t : public signal_templ<dummy_t, dummy_t, A1, A2, A3, A4, A5, A6> {
public:
    // `method` is a member function of the receiver's class (or a base of it), const or not, whose
    // parameters are the signal's own.
    template <class R, class C, class... P>
    void connect(R* receiver, void (C::*method)(P...)) {
        this->_insert(this->template make_connection<R, C>(receiver, method));
    }
    template <class R, class C, class... P>
    void connect(R* receiver, void (C::*method)(P...) const) {
        this->_insert(this->template make_connection<R, C>(receiver, method));
    }
    template <class R, class C, class... P>
    void disconnect(R* receiver, void (C::*method)(P...)) {
        this->_erase(this->template make_connection<R, C>(receiver, method));
    }
    template <class R, class C, class... P>
    void disconnect(R* receiver, void (C::*method)(P...) const) {
        this->_erase(this->template make_connection<R, C>(receiver, method));
    }
};

} // namespace tarnkit2::_internal

namespace tarnkit2 {
using _internal::signal_t;
using _internal::subscriber_base_t;
} // namespace tarnkit2
