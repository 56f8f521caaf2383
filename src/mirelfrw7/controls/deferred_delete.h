#pragma once

#include <mirelfrw7/export.h>

namespace mirelfrw7 {

class CVisualElement;

// Deletes a dynamic element on the next turn of its window's event loop, after the event that is running
// now has let go of it: the way for a slot to delete the element that emitted it. Without a window to
// queue on, the element is deleted at once.
MIRELFRW7_API void DeleteLater(CVisualElement* element);

} // namespace mirelfrw7
