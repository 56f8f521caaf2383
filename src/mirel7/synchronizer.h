#pragma once

#include <mirel7/export.h>

namespace mirel7 {

class IRunnable;

// The way from any thread into the GUI thread: the runnable runs there on the next turn of the event loop,
// and is deleted afterwards if it is dynamic. When the GUI side is gone, the runnable is dropped without
// running (and deleted if dynamic).
class MIREL7_API ISynchronizer {
public:
    virtual ~ISynchronizer();
    virtual void Synchronize(IRunnable* runnable) = 0;
};

} // namespace mirel7
