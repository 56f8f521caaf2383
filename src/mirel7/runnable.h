#pragma once

#include <mirel7/export.h>

namespace mirel7 {

// A piece of work handed to another place to run: the GUI thread's queue, a runner's thread.
class MIREL7_API IRunnable {
public:
    virtual ~IRunnable();
    // True when whoever runs the object also deletes it afterwards, which is what a runnable made with new
    // and handed over wants. An object owned elsewhere answers false.
    virtual bool IsDynamicRunnable() const { return true; }
    // Answers whether there is more to do, where the caller runs it repeatedly.
    virtual bool Run() = 0;
};

// The work of a runner's thread: Run() does one round, and the runner calls it again while it answers true.
// The runner does not own it.
class MIREL7_API IDataProcessor : public IRunnable {
public:
    bool IsDynamicRunnable() const override { return false; }
    bool Run() override { return ProcessData(); }
    virtual bool ProcessData() = 0;
};

} // namespace mirel7
