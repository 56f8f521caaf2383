#pragma once

#include <mutex>

namespace tarnkit2::threading {

// A recursive mutex: a signal takes its mutex again when a slot connects, disconnects or emits on the same
// signal during an emission. Header-only, so an emission pays no call across the library boundary for it.
class mutex_t {
public:
    mutex_t() = default;
    ~mutex_t() = default;
    mutex_t(mutex_t const&) = delete;
    mutex_t& operator=(mutex_t const&) = delete;

    void acquire() { m_mutex.lock(); }
    void release() { m_mutex.unlock(); }

private:
    std::recursive_mutex m_mutex;
};

// Holds a mutex_t for the lifetime of a scope.
class scoped_lock_t {
public:
    explicit scoped_lock_t(mutex_t& mutex) : m_mutex(mutex) { m_mutex.acquire(); }
    ~scoped_lock_t() { m_mutex.release(); }
    scoped_lock_t(scoped_lock_t const&) = delete;
    scoped_lock_t& operator=(scoped_lock_t const&) = delete;

private:
    mutex_t& m_mutex;
};

} // namespace tarnkit2::threading
