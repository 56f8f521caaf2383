#pragma once

#include <mirel7/mirel_control.h>

#include <string>
#include <vector>

namespace mirel_test {

// A bare control that writes one line per call of its handlers, then lets the base pass the event on.
class CJournalControl : public mirel7::CMirelControl {
public:
    explicit CJournalControl(mirel7::ISysWindow* window) : CMirelControl(window, false) {}

    std::vector<std::string> journal;
    // Takes the journal, leaving it empty.
    std::vector<std::string> Take();

    void OnDraw(mirel7::IPainter* painter) override;
    void OnResize(mirel7::CWindowEvent* event) override;
    void OnDestroy(mirel7::CWindowEvent* event) override;
    void OnGetFocus(mirel7::CFocusEvent* event) override;
    void OnLostFocus(mirel7::CFocusEvent* event) override;
    void OnTooltip(mirel7::CTooltipEvent* event) override;
    void OnTooltipTrack(mirel7::CTooltipEvent* event) override;
    void OnButtonDown(mirel7::CMouseEvent* event) override;
    void OnButtonUp(mirel7::CMouseEvent* event) override;
    void OnMouseMove(mirel7::CMouseEvent* event) override;
    void OnWheel(mirel7::CMouseWheelEvent* event) override;
    void OnDoubleClick(mirel7::CMouseEvent* event) override;
    void OnHover(mirel7::CMouseEvent* event) override;
    void OnLeave(mirel7::CMouseEvent* event) override;
    void OnKeyDown(mirel7::CKeyboardEvent* event) override;
    void OnKeyUp(mirel7::CKeyboardEvent* event) override;
    void OnChar(mirel7::CKeyboardEvent* event) override;
    void OnSysColorChanged(mirel7::CEvent* event) override;
    void OnContextMenu(mirel7::CContextMenuEvent* event) override;
    void OnCustomEvent(mirel7::CCustomEvent* event) override;

private:
    void Mouse(char const* name, mirel7::CMouseEvent const& e);
    void Key(char const* name, mirel7::CKeyboardEvent const& e);
};

} // namespace mirel_test
