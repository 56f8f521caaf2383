#pragma once

#include <mirel7/base.h>
#include <mirel7/export.h>

namespace mirel7 {

class IDataProcessor;

// A worker thread, made by the system object.
class MIREL7_API IRunner : public CBase {
public:
    // Starts a thread that calls the processor's Run() for as long as it answers true and Stop() was not
    // called. Answers false, starting nothing, while a thread still runs.
    virtual bool Run(IDataProcessor* processor) = 0;
    // Ends the loop after the round in progress and waits for the thread, except when called on the worker
    // thread itself, which then ends after its round. A Sleep in progress returns at once.
    virtual void Stop() = 0;
    // Sleeps on the worker thread for `ms` milliseconds, or until Stop(). Answers false when woken by Stop().
    virtual bool Sleep(int ms) = 0;
    virtual bool IsRunning() const = 0;
};

} // namespace mirel7
