#pragma once

#include <mirelfrw7/animation/animation_process.h>
#include <mirelfrw7/animation/gui_task.h>
#include <mirelfrw7/core/signal.h>
#include <mirelfrw7/export.h>

#include <mirel7/locked_value.h>
#include <mirel7/runner.h>

namespace mirelfrw7 {

// An animation process on a worker thread that only sleeps out each interval and posts back: the frames
// advance and draw on the GUI thread, in the slot of the proxy the worker posted. An interval that changes
// takes effect one frame later.
class MIRELFRW7_API CThreadAnimationProcess : public tarnkit2::subscriber_base_t,
                                              public CAnimationProcess,
                                              public CGUITask {
public:
    // Waits for the worker: nothing of the process runs after it is gone.
    ~CThreadAnimationProcess() override;

    // Waits for the synchronizer as for the animation.
    void StartAnimation() override;
    void StopAnimation() override { DoStopAnimation(); }
    bool IsAnimated() const override;
    void SetProcessSynchronizer(mirel7::ISynchronizer* synchronizer) override;

    // Starts or stops as the animation, the synchronizer and a start asked for now allow.
    void Refresh();
    // On the GUI thread: one frame.
    void UpdateData();
    void DoStopAnimation();

protected:
    bool InternalProcessData() override;
    void InitUpdater(CRunnableProxy* proxy) override;

private:
    mirel7::ISynchronizer* m_processSynchronizer = nullptr;
    // The one value both threads use.
    mirel7::LockedValue<int> m_interval;
    // The runner made for this process, if it made one; the task only points at it.
    mirel7::mirel_ptr<mirel7::IRunner> m_ownRunner;
};

} // namespace mirelfrw7
