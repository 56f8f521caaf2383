#pragma once

#include <mirelfrw7/export.h>

#include <mirel7/gui_task.h>
#include <mirel7/locked_value.h>
#include <mirel7/runnable.h>

#include <atomic>

namespace mirel7 {
class IRunner;
class ISynchronizer;
} // namespace mirel7

namespace mirelfrw7 {

class CRunnableProxy;

// Repeated work on a runner's thread whose every round is reported to the GUI thread: the subclass does one
// round in InternalProcessData() and, in InitUpdater(), connects what the GUI thread should run to the
// proxy that carries the round there. Neither the runner nor the synchronizer is owned.
class MIRELFRW7_API CGUITask : public mirel7::IGUITask, public mirel7::IDataProcessor {
public:
    void SetRunner(mirel7::IRunner* runner) override { m_runner.store(runner); }
    void SetSynchronizer(mirel7::ISynchronizer* synchronizer) override { m_synchronizer.store(synchronizer); }
    // On the GUI thread: starts the runner on this task. Nothing without a runner.
    void Execute() override;
    // On the GUI thread: ends the worker after the round in progress and waits for it, except when called
    // on the worker itself. A round that was under way posts nothing afterwards.
    void Stop() override;
    // One round on the worker thread; answers whether the worker goes on.
    bool ProcessData() override;

    mirel7::IRunner* GetRunner() const { return m_runner.load(); }
    mirel7::ISynchronizer* GetSynchronizer() const { return m_synchronizer.load(); }

protected:
    // On the worker thread: the work of one round; false ends the worker after this round's post.
    virtual bool InternalProcessData() = 0;
    // On the worker thread: connect the GUI-side work to the proxy's signal.
    virtual void InitUpdater(CRunnableProxy* proxy) = 0;

private:
    // Read by the worker while the GUI thread may set them.
    std::atomic<mirel7::IRunner*> m_runner{nullptr};
    std::atomic<mirel7::ISynchronizer*> m_synchronizer{nullptr};
    mirel7::LockedValue<bool> m_stopped;
};

} // namespace mirelfrw7
