#pragma once

#include <mirelfrw7/core/signal.h>
#include <mirelfrw7/export.h>

#include <mirel7/runnable.h>

namespace mirelfrw7 {

// A notice run on the next turn of the window's event loop, so that it never runs inside the event that
// caused it. Whoever it was connected to may die meanwhile: the connection goes with it, and the run is
// empty.
class MIRELFRW7_API CSelectionRunnable : public mirel7::IRunnable {
public:
    tarnkit2::signal_t<> sigRun;

    bool Run() override {
        sigRun();
        return true;
    }
};

} // namespace mirelfrw7
