#include <mirelfrw7/items/event_handler.h>

namespace mirelfrw7 {

CEventHandler::~CEventHandler() = default;

bool CEventHandler::ProcessMouseMove(int, int, int, MouseButton, bool*) {
    return false;
}
bool CEventHandler::ProcessButtonDown(int, int, int, MouseButton, bool*) {
    return false;
}
bool CEventHandler::ProcessButtonUp(int, int, int, MouseButton, bool*) {
    return false;
}
bool CEventHandler::ProcessClick(int, int, int, MouseButton, bool*) {
    return false;
}
bool CEventHandler::ProcessDoubleClick(int, int, int, MouseButton, bool*) {
    return false;
}
bool CEventHandler::ProcessMouseHover(bool*) {
    return false;
}
bool CEventHandler::ProcessMouseLeave(bool*) {
    return false;
}
bool CEventHandler::ProcessKeyDown(int, int, bool*) {
    return false;
}
bool CEventHandler::ProcessKeyUp(int, int, bool*) {
    return false;
}
bool CEventHandler::ProcessChar(char, bool*) {
    return false;
}
bool CEventHandler::ProcessOnTooltip(mirel7::CTooltipEvent*, bool*) {
    return false;
}
bool CEventHandler::ProcessOnTooltipTrack(mirel7::CTooltipEvent*, bool*) {
    return false;
}
bool CEventHandler::ProcessContextMenu(int, int, bool*) {
    return false;
}
bool CEventHandler::ProcessDragOver(CVisualElement*, bool*) {
    return false;
}
bool CEventHandler::ProcessDragDrop(CVisualElement*, bool*) {
    return false;
}
bool CEventHandler::ProcessGetFocus(bool*) {
    return false;
}
bool CEventHandler::ProcessLostFocus(bool*) {
    return false;
}
void CEventHandler::ProcessDraw(IPainter* painter, rectangle<double> const& rect) {
    if (m_next) m_next->ProcessDraw(painter, rect);
}
void CEventHandler::ProcessResize(rectangle<int> const&, rectangle<int> const&, bool) {}
void CEventHandler::ProcessScroll(int, int) {}

} // namespace mirelfrw7
