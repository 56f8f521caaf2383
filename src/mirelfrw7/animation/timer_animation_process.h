#pragma once

#include <mirelfrw7/animation/animation_process.h>
#include <mirelfrw7/export.h>
#include <mirelfrw7/scroll/repeatable_operation.h>

namespace mirelfrw7 {

// An animation process on a repeat timer of the GUI thread: each frame sets the wait for the next.
class MIRELFRW7_API CTimerAnimationProcess : public CAnimationProcess, public CRepeatableOperation {
public:
    CTimerAnimationProcess() : CRepeatableOperation(100) {}

    // The first frame comes at once.
    void StartAnimation() override;
    void StopAnimation() override;
    bool IsAnimated() const override;
    // A timer needs no way back to the GUI thread.
    void SetProcessSynchronizer(mirel7::ISynchronizer*) override {}

    void ProcessRepeatOperation() override;
};

} // namespace mirelfrw7
