#pragma once

#include <mirelfrw7/core/visual_element.h>
#include <mirelfrw7/export.h>

namespace mirelfrw7 {

// One link of a viewer's chain of input and painting handlers. The viewer offers each event to the links in
// order; a link sets `*stop` to keep it from those after it. By default a link takes nothing, and hands the
// painting on so that a link that draws nothing stays transparent.
class MIRELFRW7_API CEventHandler {
public:
    virtual ~CEventHandler();

    virtual bool ProcessMouseMove(int x, int y, int flags, MouseButton button, bool* stop);
    virtual bool ProcessButtonDown(int x, int y, int flags, MouseButton button, bool* stop);
    virtual bool ProcessButtonUp(int x, int y, int flags, MouseButton button, bool* stop);
    virtual bool ProcessClick(int x, int y, int flags, MouseButton button, bool* stop);
    virtual bool ProcessDoubleClick(int x, int y, int flags, MouseButton button, bool* stop);
    virtual bool ProcessMouseHover(bool* stop);
    virtual bool ProcessMouseLeave(bool* stop);
    virtual bool ProcessKeyDown(int flags, int key, bool* stop);
    virtual bool ProcessKeyUp(int flags, int key, bool* stop);
    virtual bool ProcessChar(char c, bool* stop);
    virtual bool ProcessOnTooltip(mirel7::CTooltipEvent* event, bool* stop);
    virtual bool ProcessOnTooltipTrack(mirel7::CTooltipEvent* event, bool* stop);
    virtual bool ProcessContextMenu(int x, int y, bool* stop);
    virtual bool ProcessDragOver(CVisualElement* dragged, bool* stop);
    virtual bool ProcessDragDrop(CVisualElement* dragged, bool* stop);
    virtual bool ProcessGetFocus(bool* stop);
    virtual bool ProcessLostFocus(bool* stop);
    virtual void ProcessDraw(IPainter* painter, rectangle<double> const& rect);
    virtual void ProcessResize(rectangle<int> const& oldRect, rectangle<int> const& newRect, bool force);
    virtual void ProcessScroll(int dx, int dy);

    // Not owned.
    void SetNext(CEventHandler* next) { m_next = next; }
    CEventHandler* GetNext() const { return m_next; }

protected:
    CEventHandler* m_next = nullptr;
};

} // namespace mirelfrw7
