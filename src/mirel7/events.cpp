#include <mirel7/events.h>
#include <mirel7/gui_task.h>
#include <mirel7/image_list.h>
#include <mirel7/runnable.h>
#include <mirel7/synchronizer.h>

namespace mirel7 {

// The interfaces' destructors live here once, with their vtables.
CEvent::~CEvent() = default;
IRunnable::~IRunnable() = default;
ISynchronizer::~ISynchronizer() = default;
IGUITask::~IGUITask() = default;
IImageList::~IImageList() = default;

} // namespace mirel7
