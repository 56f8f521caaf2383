#include <mirel7/runnable.h>
#include <mirel7/thread_runner.h>

#include <chrono>

namespace mirel7 {

namespace {
// The state of the runner whose thread this is, so the runner can tell its own worker without reading its
// std::thread, which the GUI thread may be assigning at that moment.
thread_local void const* t_runnerState = nullptr;
} // namespace

bool CThreadRunner::IsOnWorker() const {
    return t_runnerState == m_state.get();
}

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
    if (IsOnWorker())
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
        t_runnerState = state.get();
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
    if (!IsOnWorker() && m_thread.joinable()) m_thread.join();
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
