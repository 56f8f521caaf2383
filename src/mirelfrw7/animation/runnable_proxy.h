#pragma once

#include <mirelfrw7/core/signal.h>
#include <mirelfrw7/export.h>

#include <mirel7/runnable.h>

namespace mirelfrw7 {

// What a worker hands to the GUI thread: running it there emits its signal, so the receiver's slot runs on
// the GUI thread, and a receiver that died meanwhile has cut its connection and is not called.
class MIRELFRW7_API CRunnableProxy : public mirel7::IRunnable {
public:
    tarnkit2::signal_t<> sigRun;

    bool Run() override;
};

} // namespace mirelfrw7
