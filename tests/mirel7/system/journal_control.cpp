#include "mirel7/system/journal_control.h"

#include <mirel7/events.h>

namespace mirel_test {

using namespace mirel7;

std::vector<std::string> CJournalControl::Take() {
    std::vector<std::string> taken;
    taken.swap(journal);
    return taken;
}

void CJournalControl::Mouse(char const* name, CMouseEvent const& e) {
    journal.push_back(std::string(name) + " " + std::to_string(e.x) + "," + std::to_string(e.y) +
                      " flags=" + std::to_string(e.flags) + " button=" + std::to_string(e.button));
}

void CJournalControl::Key(char const* name, CKeyboardEvent const& e) {
    journal.push_back(std::string(name) + " key=" + std::to_string(e.GetVirtualKey()) +
                      " char=" + std::to_string(e.GetCharacterCode()) + " flags=" + std::to_string(e.flags));
}

void CJournalControl::OnDraw(IPainter* painter) {
    journal.push_back("Draw");
    CMirelControl::OnDraw(painter);
}
void CJournalControl::OnResize(CWindowEvent* event) {
    journal.push_back("Resize");
    CMirelControl::OnResize(event);
}
void CJournalControl::OnDestroy(CWindowEvent* event) {
    journal.push_back("Destroy");
    CMirelControl::OnDestroy(event);
}
void CJournalControl::OnGetFocus(CFocusEvent* event) {
    journal.push_back("GetFocus");
    CMirelControl::OnGetFocus(event);
}
void CJournalControl::OnLostFocus(CFocusEvent* event) {
    journal.push_back("LostFocus");
    CMirelControl::OnLostFocus(event);
}
void CJournalControl::OnTooltip(CTooltipEvent* event) {
    journal.push_back("Tooltip " + std::to_string(event->x) + "," + std::to_string(event->y));
    event->text = "tip";
    event->rect = {1, 2, 3, 4};
    CMirelControl::OnTooltip(event);
}
void CJournalControl::OnTooltipTrack(CTooltipEvent* event) {
    journal.push_back("TooltipTrack " + std::to_string(event->x) + "," + std::to_string(event->y));
    CMirelControl::OnTooltipTrack(event);
}
void CJournalControl::OnButtonDown(CMouseEvent* event) {
    Mouse("ButtonDown", *event);
    CMirelControl::OnButtonDown(event);
}
void CJournalControl::OnButtonUp(CMouseEvent* event) {
    Mouse("ButtonUp", *event);
    CMirelControl::OnButtonUp(event);
}
void CJournalControl::OnMouseMove(CMouseEvent* event) {
    Mouse("Move", *event);
    CMirelControl::OnMouseMove(event);
}
void CJournalControl::OnWheel(CMouseWheelEvent* event) {
    Mouse("Wheel", *event);
    journal.back() += " delta=" + std::to_string(event->delta);
    CMirelControl::OnWheel(event);
}
void CJournalControl::OnDoubleClick(CMouseEvent* event) {
    Mouse("DoubleClick", *event);
    CMirelControl::OnDoubleClick(event);
}
void CJournalControl::OnHover(CMouseEvent* event) {
    Mouse("Hover", *event);
    CMirelControl::OnHover(event);
}
void CJournalControl::OnLeave(CMouseEvent* event) {
    journal.push_back("Leave");
    CMirelControl::OnLeave(event);
}
void CJournalControl::OnKeyDown(CKeyboardEvent* event) {
    Key("KeyDown", *event);
    CMirelControl::OnKeyDown(event);
}
void CJournalControl::OnKeyUp(CKeyboardEvent* event) {
    Key("KeyUp", *event);
    CMirelControl::OnKeyUp(event);
}
void CJournalControl::OnChar(CKeyboardEvent* event) {
    Key("Char", *event);
    CMirelControl::OnChar(event);
}
void CJournalControl::OnSysColorChanged(CEvent* event) {
    journal.push_back("SysColorChanged");
    CMirelControl::OnSysColorChanged(event);
}
void CJournalControl::OnContextMenu(CContextMenuEvent* event) {
    journal.push_back("ContextMenu " + std::to_string(event->x) + "," + std::to_string(event->y));
    CMirelControl::OnContextMenu(event);
}
void CJournalControl::OnCustomEvent(CCustomEvent* event) {
    journal.push_back("Custom " + std::to_string(event->data));
    CMirelControl::OnCustomEvent(event);
}

} // namespace mirel_test
