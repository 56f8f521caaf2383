#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/event_handler.h>

namespace mirel7 {
class ISysWindow;
}

namespace mirelfrw7 {

// Shows a viewer's tooltips, and takes them down when the view scrolls or a key or a menu comes.
class MIRELFRW7_API CTooltipEventHandler : public CEventHandler {
public:
    bool ProcessOnTooltip(mirel7::CTooltipEvent* event, bool* stop) override;
    bool ProcessKeyDown(int flags, int key, bool* stop) override;
    bool ProcessContextMenu(int x, int y, bool* stop) override;
    void ProcessScroll(int dx, int dy) override;

    virtual void ShowTooltip(mirel7::CTooltipEvent* event) = 0;

    // Not owned.
    void SetWindow(mirel7::ISysWindow* window) { m_window = window; }
    void HideTooltip();

protected:
    mirel7::ISysWindow* m_window = nullptr;
};

} // namespace mirelfrw7
