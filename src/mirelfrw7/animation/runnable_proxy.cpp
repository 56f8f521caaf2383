#include <mirelfrw7/animation/runnable_proxy.h>

namespace mirelfrw7 {

bool CRunnableProxy::Run() {
    sigRun();
    return true;
}

} // namespace mirelfrw7
