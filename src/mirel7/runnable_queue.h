#pragma once

#include <mirel7/export.h>
#include <mirel7/synchronizer.h>

#include <functional>
#include <mutex>
#include <vector>

namespace mirel7 {

class IRunnable;

// The runnables waiting for the next turn of a window's event loop. Posting is safe from any thread;
// running happens on the GUI thread. A closed queue drops what is posted to it.
class MIREL7_API CRunnableQueue : public ISynchronizer {
public:
    // `wake` is called after each post, from the posting thread, to get the loop turning.
    explicit CRunnableQueue(std::function<void()> wake = {});
    CRunnableQueue(CRunnableQueue const&) = delete;
    CRunnableQueue& operator=(CRunnableQueue const&) = delete;
    ~CRunnableQueue() override;

    void Synchronize(IRunnable* runnable) override;
    // Runs what was posted before the call; what those post runs on the next call. Answers how many ran.
    int RunPending();
    // Drops the pending runnables and every later one.
    void Close();

private:
    static void Dispose(IRunnable* runnable);

    std::function<void()> m_wake;
    std::mutex m_mutex;
    std::vector<IRunnable*> m_pending;
    bool m_closed = false;
};

} // namespace mirel7
