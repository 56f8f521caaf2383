#pragma once

#include <mirel7/export.h>
#include <mirel7/types.h>

namespace mirel7 {

class ISysWindow;

// A context menu an element shows where the user asked for it.
class MIREL7_API IPopupMenu {
public:
    virtual ~IPopupMenu();
    // Shows the menu at `at`, in the window's client coordinates.
    virtual void Popup(ISysWindow* window, point<int> const& at) = 0;
};

} // namespace mirel7
