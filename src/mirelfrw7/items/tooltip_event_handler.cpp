#include <mirelfrw7/items/tooltip_event_handler.h>

#include <mirel7/sys_window.h>

namespace mirelfrw7 {

bool CTooltipEventHandler::ProcessOnTooltip(mirel7::CTooltipEvent* event, bool*) {
    ShowTooltip(event);
    return true;
}

bool CTooltipEventHandler::ProcessKeyDown(int, int, bool*) {
    HideTooltip();
    return false;
}

bool CTooltipEventHandler::ProcessContextMenu(int, int, bool*) {
    HideTooltip();
    return false;
}

void CTooltipEventHandler::ProcessScroll(int, int) {
    HideTooltip();
}

void CTooltipEventHandler::HideTooltip() {
    if (m_window) m_window->HideTooltip();
}

} // namespace mirelfrw7
