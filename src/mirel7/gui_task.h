#pragma once

#include <mirel7/export.h>

namespace mirel7 {

class IRunner;
class ISynchronizer;

// Repeated work on a runner's thread that reports each result to the GUI thread through a synchronizer.
class MIREL7_API IGUITask {
public:
    virtual ~IGUITask();
    virtual void SetRunner(IRunner* runner) = 0;
    virtual void SetSynchronizer(ISynchronizer* synchronizer) = 0;
    virtual void Execute() = 0;
    virtual void Stop() = 0;
};

} // namespace mirel7
