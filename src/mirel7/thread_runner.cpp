#include <mirel7/runnable.h>
#include <mirel7/thread_runner.h>

#include <chrono>

namespace mirel7 {

CThreadRunner::CThreadRunner() : m_state(std::make_shared<SState>()) {}

CThreadRunner::~CThreadRunner() {
    SignalStop();
    ReleaseThread();
}

void CThreadRunner::SignalStop() {
    {
        std::lock_guard lock(m_state->mutex);
        m_state->stopping = true;
    }
    m_state->wake.notify_all();
}

void CThreadRunner::ReleaseThread() {
    if (!m_thread.joinable()) return;
    if (m_thread.get_id() == std::this_thread::get_id())
        m_thread.detach();
    else
        m_thread.join();
}

bool CThreadRunner::Run(IDataProcessor* processor) {
    if (!processor) return false;
    {
        std::lock_guard lock(m_state->mutex);
        if (m_state->running) return false;
        m_state->running = true;
        m_state->stopping = false;
    }
    // A thread of an earlier run has left its loop and only remains to be joined.
    ReleaseThread();
    m_thread = std::thread([state = m_state, processor] {
        for (;;) {
            {
                std::lock_guard lock(state->mutex);
                if (state->stopping) break;
            }
            if (!processor->Run()) break;
        }
        std::lock_guard lock(state->mutex);
        state->running = false;
    });
    return true;
}

void CThreadRunner::Stop() {
    SignalStop();
    if (m_thread.joinable() && m_thread.get_id() != std::this_thread::get_id()) m_thread.join();
}

bool CThreadRunner::Sleep(int ms) {
    std::unique_lock lock(m_state->mutex);
    return !m_state->wake.wait_for(lock, std::chrono::milliseconds(ms < 0 ? 0 : ms),
                                   [this] { return m_state->stopping; });
}

bool CThreadRunner::IsRunning() const {
    std::lock_guard lock(m_state->mutex);
    return m_state->running && !m_state->stopping;
}

} // namespace mirel7
