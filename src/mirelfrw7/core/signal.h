#pragma once

#include <mirelfrw7/export.h>

#include <mirel7/mutex.h>

#include <atomic>
#include <cstring>
#include <list>
#include <type_traits>
#include <utility>

namespace tarnkit2::_internal {

using threading::mutex_t;

class signal_base_t;

// The receiving side of connections: one back-reference per connection made to a receiver, so that the
// receiver's death cuts them all and a signal never calls a dead receiver, and the mutex guarding them.
struct receiver_links_t {
    std::list<signal_base_t*> signals;
    mutex_t mutex;
};

// What an object derives from to receive signals.
//
// Lock order. Connecting, disconnecting and destroying a signal take the signal's mutex and then the
// receiver's; destroying a receiver takes its own mutex and then each signal's. The two orders are opposite,
// so a thread that destroys a receiver while another connects it to a signal can deadlock. Signals live on
// the GUI thread, where every mutex is only ever taken recursively by that one thread.
class MIRELFRW7_API subscriber_base_t {
public:
    subscriber_base_t();
    virtual ~subscriber_base_t();
    subscriber_base_t(subscriber_base_t const&) = delete;
    subscriber_base_t& operator=(subscriber_base_t const&) = delete;

    receiver_links_t* receiver_links() { return &m_links; }

private:
    receiver_links_t m_links;
};

// A member-function pointer with its type taken away: two machine words on this ABI.
struct typeless_connection_t {
    void* words[2];

    friend bool operator==(typeless_connection_t const& a, typeless_connection_t const& b) {
        return a.words[0] == b.words[0] && a.words[1] == b.words[1];
    }
};

// One slot of a signal. An entry with null links is blank: disconnected during an emission and swept when
// the outermost emission ends.
struct connection_t {
    using caster_t = void (*)();

    void* object = nullptr;
    receiver_links_t* subscriber = nullptr;
    typeless_connection_t method{};
    caster_t caster = nullptr;

    // The same receiver and method: the subscriber and caster follow from those two.
    friend bool operator==(connection_t const& a, connection_t const& b) {
        return a.object == b.object && a.method == b.method;
    }
};

// What a connected signal keeps on the heap. It outlives a signal destroyed during its own emission: the
// outermost emitting frame frees it. Its mutex guards the connections and, when the signal itself receives
// from another signal, the back-references of that role too.
struct signal_state_t : receiver_links_t {
    std::list<connection_t> connections;
    // The outermost emission's `alive`; null while no emission runs.
    bool* active = nullptr;
    // Whether an entry was blanked during the running emission, so that most emissions skip the sweep.
    bool hasBlanks = false;
};

// What an emission keeps on its stack. Nested emissions share the outermost one's `alive`, which the
// signal's destructor clears, so every level learns that the signal died during a slot.
struct onstack_signal_state_t {
    signal_state_t* shared = nullptr;
    bool alive = true;
    bool* alive_ptr = nullptr;
    bool nested = false;
};

// Everything of a signal that does not depend on its argument types. An element carries some thirty
// signals and most are never connected, so an unconnected signal is one pointer; its mutex and connection
// list come with the first connection. A signal can itself receive, so that one signal can be connected to
// another's operator().
class MIRELFRW7_API signal_base_t {
public:
    signal_base_t() = default;
    ~signal_base_t();
    signal_base_t(signal_base_t const&) = delete;
    signal_base_t& operator=(signal_base_t const&) = delete;

    void _insert(connection_t const& c);
    void _erase(connection_t const& c);
    void _erase_all();
    void on_subscriber_destroy(receiver_links_t* s);

    // The books of this signal as a receiver of another signal; makes the shared state.
    receiver_links_t* receiver_links() { return shared(); }

    bool is_emitting() const;
    // The live connections, blanked ones left out.
    std::size_t connection_count() const;
    // The entries of the list, blanked ones included; blanks exist only while an emission runs.
    std::size_t entry_count() const;

protected:
    // The steps of an emission, inline because every emission runs them.

    // Takes the mutex and sets the emission up; answers false (nothing held) when nothing is connected or
    // the signal is dying.
    bool pre_call(onstack_signal_state_t& state) const {
        state.shared = m_state.load(std::memory_order_acquire);
        if (!state.shared) return false;
        state.shared->mutex.acquire();
        state.alive = true;
        state.nested = state.shared->active != nullptr;
        if (!state.nested) state.shared->active = &state.alive;
        state.alive_ptr = state.shared->active;
        if (*state.alive_ptr) return true;
        state.shared->mutex.release();
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
    static void post_call(onstack_signal_state_t& state) {
        signal_state_t& shared = *state.shared;
        if (*state.alive_ptr && !state.nested) {
            shared.active = nullptr;
            if (shared.hasBlanks) sweep_blanks(shared);
        }
        shared.mutex.release();
    }
    // Ends an emission whose signal was destroyed by a slot: nothing of the signal may be touched any more.
    static void abandon_call(onstack_signal_state_t& state) {
        state.shared->mutex.release();
        if (!state.nested) delete state.shared;
    }

private:
    // The shared state, made on first use; two threads connecting at once keep the same one.
    signal_state_t* shared() const;
    static void sweep_blanks(signal_state_t& shared);
    // Removes, or blanks during an emission, the connections to `s`.
    static void forget_subscriber(signal_state_t& shared, receiver_links_t* s);
    // Removes the back-reference of one connection to `s` from the receiver's list.
    void unlink_from(receiver_links_t* s) const;

    mutable std::atomic<signal_state_t*> m_state{nullptr};
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
            std::list<connection_t> const& connections = state.shared->connections;
            for (auto it = connections.begin(); it != connections.end(); ++it) {
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
        static_assert(std::is_base_of_v<subscriber_base_t, R> || std::is_base_of_v<signal_base_t, R>,
                      "a receiver derives from subscriber_base_t or is a signal");
        static_assert(std::is_base_of_v<C, R>, "the method belongs to the receiver's class");
        using caster_of = typename bound_caster<C, M>::template for_args<A...>;
        caster_fn const caster = &caster_of::caster;
        receiver_links_t* links;
        if constexpr (std::is_base_of_v<subscriber_base_t, R>)
            links = static_cast<subscriber_base_t*>(receiver)->receiver_links();
        else
            links = static_cast<signal_base_t*>(receiver)->receiver_links();
        return {static_cast<C*>(receiver), links, erase_method_type(method),
                reinterpret_cast<connection_t::caster_t>(caster)};
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
