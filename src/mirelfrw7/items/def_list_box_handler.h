#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/event_handler.h>

namespace mirelfrw7 {

// The link through which a list box picks with the button down and highlights the item under a free
// pointer; the list box fills in the four operations.
class MIRELFRW7_API CDefListBoxHandler : public CEventHandler {
public:
    bool ProcessButtonDown(int x, int y, int flags, MouseButton button, bool* stop) override;
    bool ProcessMouseMove(int x, int y, int flags, MouseButton button, bool* stop) override;
    bool ProcessMouseLeave(bool* stop) override;
    bool ProcessKeyDown(int flags, int key, bool* stop) override;

    virtual bool SetCurProcessButtonDown(int x, int y, int flags, MouseButton button, bool* stop) = 0;
    virtual bool HighlightingMouseMove(int x, int y, int flags, MouseButton button, bool* stop) = 0;
    virtual bool HighlightingMouseLeave(bool* stop) = 0;
    // True when the key was the list box's.
    virtual bool SetCurProcessKeyDown(int key) = 0;
};

} // namespace mirelfrw7
