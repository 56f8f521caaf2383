#include <mirelfrw7/core/signal.h>

#include <mirel7/assert.h>

#include <algorithm>

namespace tarnkit2::_internal {

namespace {
using threading::scoped_lock_t;

void report(char const* condition, int line, char const* function) {
    QUILL_2_18::debug::_private::____________________ASSERT____________________(condition, "functor/signal",
                                                                                line, function);
}

// Tells every signal connected to a dying receiver to forget it.
void cut_receiver(receiver_links_t& links) {
    scoped_lock_t lock(links.mutex);
    for (signal_base_t* signal : links.signals)
        signal->on_subscriber_destroy(&links);
    links.signals.clear();
}
} // namespace

subscriber_base_t::subscriber_base_t() = default;

subscriber_base_t::~subscriber_base_t() {
    cut_receiver(m_links);
}

signal_base_t::~signal_base_t() {
    signal_state_t* const state = m_state.load(std::memory_order_acquire);
    if (!state) return;
    bool const emitting = state->active != nullptr;
    if (emitting) *state->active = false;
    state->mutex.acquire();
    for (connection_t const& c : state->connections)
        if (c.subscriber) unlink_from(c.subscriber);
    // The emission does not touch the list again once it learns of the death.
    state->connections.clear();
    state->mutex.release();
    cut_receiver(*state);
    // During an emission the outermost emitting frame frees the state once it learns of the death.
    if (!emitting) delete state;
}

signal_state_t* signal_base_t::shared() const {
    signal_state_t* state = m_state.load(std::memory_order_acquire);
    if (state) return state;
    auto* const made = new signal_state_t;
    if (m_state.compare_exchange_strong(state, made, std::memory_order_acq_rel)) return made;
    delete made;
    return state;
}

void signal_base_t::_insert(connection_t const& c) {
    signal_state_t& state = *shared();
    scoped_lock_t lock(state.mutex);
    if (std::find(state.connections.begin(), state.connections.end(), c) != state.connections.end()) {
        report("signal_t::_insert: this connection is already exists.", 263, __PRETTY_FUNCTION__);
        return;
    }
    {
        scoped_lock_t subscriberLock(c.subscriber->mutex);
        c.subscriber->signals.push_back(this);
    }
    state.connections.push_back(c);
}

void signal_base_t::_erase(connection_t const& c) {
    signal_state_t* const state = m_state.load(std::memory_order_acquire);
    auto const unknown = [] {
        report("subscriber_found && \"signal_t::disconnect: attempt to disconnect unknown connection\"",
               __LINE__, __PRETTY_FUNCTION__);
    };
    if (!state) return unknown();
    scoped_lock_t lock(state->mutex);
    auto const found = std::find(state->connections.begin(), state->connections.end(), c);
    if (found == state->connections.end()) return unknown();
    receiver_links_t* const subscriber = found->subscriber;
    // While an emission walks the list the entry stays, blanked, so the walking iterator remains valid.
    if (state->active) {
        *found = connection_t{};
        state->hasBlanks = true;
    } else
        state->connections.erase(found);
    if (subscriber) unlink_from(subscriber);
}

void signal_base_t::_erase_all() {
    signal_state_t* const state = m_state.load(std::memory_order_acquire);
    if (!state) return;
    scoped_lock_t lock(state->mutex);
    for (connection_t& c : state->connections) {
        if (c.subscriber) unlink_from(c.subscriber);
        if (state->active) c = connection_t{};
    }
    if (state->active)
        state->hasBlanks = true;
    else
        state->connections.clear();
}

void signal_base_t::on_subscriber_destroy(receiver_links_t* s) {
    signal_state_t* const state = m_state.load(std::memory_order_acquire);
    if (!state) return;
    scoped_lock_t lock(state->mutex);
    forget_subscriber(*state, s);
}

void signal_base_t::forget_subscriber(signal_state_t& state, receiver_links_t* s) {
    if (state.active) {
        for (connection_t& c : state.connections) {
            if (c.subscriber == s) {
                c = connection_t{};
                state.hasBlanks = true;
            }
        }
    } else {
        state.connections.remove_if([s](connection_t const& c) { return c.subscriber == s; });
    }
}

// One back-reference per connection: were all of them dropped with one connection, a receiver holding a
// second connection here would die without this signal learning of it, and the signal would call it dead.
void signal_base_t::unlink_from(receiver_links_t* s) const {
    scoped_lock_t lock(s->mutex);
    auto const found = std::find(s->signals.begin(), s->signals.end(), this);
    if (found != s->signals.end()) s->signals.erase(found);
}

bool signal_base_t::is_emitting() const {
    signal_state_t const* const state = m_state.load(std::memory_order_acquire);
    return state && state->active;
}

std::size_t signal_base_t::entry_count() const {
    signal_state_t* const state = m_state.load(std::memory_order_acquire);
    if (!state) return 0;
    scoped_lock_t lock(state->mutex);
    return state->connections.size();
}

std::size_t signal_base_t::connection_count() const {
    signal_state_t* const state = m_state.load(std::memory_order_acquire);
    if (!state) return 0;
    scoped_lock_t lock(state->mutex);
    return static_cast<std::size_t>(std::count_if(state->connections.begin(), state->connections.end(),
                                                  [](connection_t const& c) { return c.subscriber; }));
}

void signal_base_t::sweep_blanks(signal_state_t& state) {
    state.connections.remove_if([](connection_t const& c) { return c.subscriber == nullptr; });
    state.hasBlanks = false;
}

} // namespace tarnkit2::_internal
