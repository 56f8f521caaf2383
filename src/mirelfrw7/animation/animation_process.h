#pragma once

#include <mirelfrw7/export.h>

#include <mirel7/base.h>

namespace mirel7 {
class ISynchronizer;
}

namespace mirelfrw7 {

class IAnimation;

// Moves an animation along on a clock and has an updater show each new frame on the GUI thread.
class MIRELFRW7_API IAnimationProcess : public mirel7::CBase {
public:
    // The receiver of frames.
    class MIRELFRW7_API IUpdater {
    public:
        virtual ~IUpdater();
        // Shows the frame the animation has just moved to.
        virtual void UpdateAnimation() = 0;
        // False holds the animation where it is, as for an element out of sight.
        virtual bool IsUpdatable() const { return true; }
    };

    virtual void SetAnimation(IAnimation* animation) = 0;
    // Asked for before the process has all it needs, the start waits for it and happens by itself.
    virtual void StartAnimation() = 0;
    // Also forgets a start still waiting.
    virtual void StopAnimation() = 0;
    virtual bool IsAnimated() const = 0;
    virtual void SetUpdater(IUpdater* updater) = 0;
    // The way back to the GUI thread, for processes that work on another one.
    virtual void SetProcessSynchronizer(mirel7::ISynchronizer* synchronizer) = 0;
};

// What both kinds of process share: the animation and the updater, neither of them owned.
class MIRELFRW7_API CAnimationProcess : public IAnimationProcess {
public:
    void SetAnimation(IAnimation* animation) override;
    void SetUpdater(IUpdater* updater) override { m_updater = updater; }

protected:
    // Whether a frame may be made now: there is something to move and someone who wants to show it.
    bool CanAdvance() const;

    IUpdater* m_updater = nullptr;
    IAnimation* m_animation = nullptr;
    // A start was asked for and not stopped since: kept while running, so that the process can start
    // again by itself once it has what it lacked.
    bool m_startPending = false;
};

// Any other value may be set and makes no process.
enum AnimationProcessType : int { AnimationProcessThread = 0, AnimationProcessTimer = 1 };

// A new process of the default type; empty for a default that names no type.
MIRELFRW7_API mirel7::mirel_ptr<IAnimationProcess> CreateAnimationProcess();
// The type of the processes made from now on, for the whole program; initially the timer.
MIRELFRW7_API void SetDefAnimationProcess(AnimationProcessType type);

} // namespace mirelfrw7
