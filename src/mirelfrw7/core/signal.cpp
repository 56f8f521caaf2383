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
} // namespace

subscriber_base_t::subscriber_base_t() = default;

subscriber_base_t::~subscriber_base_t() {
    scoped_lock_t lock(m_mutex);
    for (signal_base_t* signal : m_signals)
        signal->on_subscriber_destroy(this);
    m_signals.clear();
}

signal_base_t::signal_base_t() : m_mutex(new mutex_t) {}

signal_base_t::~signal_base_t() {
    bool const emitting = m_active != nullptr;
    if (emitting) *m_active = false;
    m_mutex->acquire();
    for (connection_t const& c : m_connections)
        if (c.subscriber) unlink_from(c.subscriber);
    m_mutex->release();
    // During an emission the outermost emitting frame frees the mutex once it learns of the death; the
    // emission does not touch the list again, so the list's own destructor may free the entries.
    if (!emitting) delete m_mutex;
    m_mutex = nullptr;
}

void signal_base_t::_insert(connection_t const& c) {
    scoped_lock_t lock(*m_mutex);
    if (std::find(m_connections.begin(), m_connections.end(), c) != m_connections.end()) {
        report("signal_t::_insert: this connection is already exists.", 263, __PRETTY_FUNCTION__);
        return;
    }
    {
        scoped_lock_t subscriberLock(c.subscriber->m_mutex);
        c.subscriber->m_signals.push_back(this);
    }
    m_connections.push_back(c);
}

void signal_base_t::_erase(connection_t const& c) {
    scoped_lock_t lock(*m_mutex);
    auto const found = std::find(m_connections.begin(), m_connections.end(), c);
    if (found == m_connections.end()) {
        report("subscriber_found && \"signal_t::disconnect: attempt to disconnect unknown connection\"",
               __LINE__, __PRETTY_FUNCTION__);
        return;
    }
    subscriber_base_t* const subscriber = found->subscriber;
    // While an emission walks the list the entry stays, blanked, so the walking iterator remains valid.
    if (m_active) {
        *found = connection_t{};
        m_hasBlanks = true;
    } else
        m_connections.erase(found);
    if (subscriber) unlink_from(subscriber);
}

void signal_base_t::_erase_all() {
    scoped_lock_t lock(*m_mutex);
    for (connection_t& c : m_connections) {
        if (c.subscriber) unlink_from(c.subscriber);
        if (m_active) c = connection_t{};
    }
    if (m_active)
        m_hasBlanks = true;
    else
        m_connections.clear();
}

void signal_base_t::on_subscriber_destroy(subscriber_base_t* s) {
    scoped_lock_t lock(*m_mutex);
    forget_subscriber(s);
}

void signal_base_t::forget_subscriber(subscriber_base_t* s) const {
    if (m_active) {
        for (connection_t& c : m_connections) {
            if (c.subscriber == s) {
                c = connection_t{};
                m_hasBlanks = true;
            }
        }
    } else {
        m_connections.remove_if([s](connection_t const& c) { return c.subscriber == s; });
    }
}

// One back-reference per connection: were all of them dropped with one connection, a receiver holding a
// second connection here would die without this signal learning of it, and the signal would call it dead.
void signal_base_t::unlink_from(subscriber_base_t* s) const {
    scoped_lock_t lock(s->m_mutex);
    auto const found = std::find(s->m_signals.begin(), s->m_signals.end(), this);
    if (found != s->m_signals.end()) s->m_signals.erase(found);
}

std::size_t signal_base_t::entry_count() const {
    scoped_lock_t lock(*m_mutex);
    return m_connections.size();
}

std::size_t signal_base_t::connection_count() const {
    scoped_lock_t lock(*m_mutex);
    return static_cast<std::size_t>(std::count_if(m_connections.begin(), m_connections.end(),
                                                  [](connection_t const& c) { return c.subscriber; }));
}

void signal_base_t::sweep_blanks() const {
    m_connections.remove_if([](connection_t const& c) { return c.subscriber == nullptr; });
    m_hasBlanks = false;
}

} // namespace tarnkit2::_internal
