#pragma once

#include <mirel7/runner.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace mirel7 {

// A runner on one std::thread at a time.
class CThreadRunner : public IRunner {
public:
    CThreadRunner();
    // Stops and waits for the thread. When the last reference goes on the worker itself, the thread is let go
    // to end its round by itself.
    ~CThreadRunner() override;

    bool Run(IDataProcessor* processor) override;
    void Stop() override;
    bool Sleep(int ms) override;
    bool IsRunning() const override;

private:
    // Shared with the thread, which may outlive the runner.
    struct SState {
        std::mutex mutex;
        std::condition_variable wake;
        bool running = false;
        bool stopping = false;
    };

    bool IsOnWorker() const;
    void SignalStop();
    // Joins the thread of an earlier run, or lets it go when called on it.
    void ReleaseThread();

    std::shared_ptr<SState> m_state;
    std::thread m_thread;
};

} // namespace mirel7
