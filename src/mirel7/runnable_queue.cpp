#include <mirel7/runnable.h>
#include <mirel7/runnable_queue.h>

namespace mirel7 {

CRunnableQueue::CRunnableQueue(std::function<void()> wake) : m_wake(std::move(wake)) {}

CRunnableQueue::~CRunnableQueue() {
    Close();
}

void CRunnableQueue::Dispose(IRunnable* runnable) {
    if (runnable->IsDynamicRunnable()) delete runnable;
}

void CRunnableQueue::Synchronize(IRunnable* runnable) {
    if (!runnable) return;
    {
        std::lock_guard lock(m_mutex);
        if (!m_closed) {
            m_pending.push_back(runnable);
            // Under the lock, so that a Close() on the GUI thread waits for the wake-up to be done.
            if (m_wake) m_wake();
            return;
        }
    }
    Dispose(runnable);
}

int CRunnableQueue::RunPending() {
    std::vector<IRunnable*> batch;
    {
        std::lock_guard lock(m_mutex);
        batch.swap(m_pending);
    }
    int ran = 0;
    for (std::size_t i = 0; i < batch.size(); ++i) {
        // A runnable may close the queue (its window is destroyed from it): the rest of the batch is
        // dropped as if it had still been pending.
        bool closed;
        {
            std::lock_guard lock(m_mutex);
            closed = m_closed;
        }
        if (!closed) {
            batch[i]->Run();
            ++ran;
        }
        Dispose(batch[i]);
    }
    return ran;
}

void CRunnableQueue::Close() {
    std::vector<IRunnable*> dropped;
    {
        std::lock_guard lock(m_mutex);
        m_closed = true;
        dropped.swap(m_pending);
    }
    for (IRunnable* runnable : dropped)
        Dispose(runnable);
}

} // namespace mirel7
