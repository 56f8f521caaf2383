#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/layout/central_part.h>

namespace mirelfrw7 {

class CEventHandler;

// An element that shows item models and owns none of their content: every input event, its painting, its
// resizes and scrolls go down a chain of handlers, one per axis, and those paint by calling back.
class MIRELFRW7_API CViewerBase : public CCentralPart {
public:
    CViewerBase(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);
    ~CViewerBase() override;

    // The head of the chain; the former head follows it.
    void SetDefEventHandler(CEventHandler* handler);
    // At the tail. None of the handlers is owned.
    void AddEventHandler(CEventHandler* handler);
    // An unknown handler is ignored.
    void RemoveEventHandler(CEventHandler* handler);
    CEventHandler* GetFirstHandler() const { return m_firstHandler; }

    bool HandleMouseMove(int x, int y, int flags, MouseButton button) override;
    bool HandleButtonDown(int x, int y, int flags, MouseButton button) override;
    bool HandleButtonUp(int x, int y, int flags, MouseButton button) override;
    bool HandleClick(int x, int y, int flags, MouseButton button) override;
    bool HandleDoubleClick(int x, int y, int flags, MouseButton button) override;
    void HandleMouseHover(CVisualElement* previous) override;
    void HandleMouseLeave(CVisualElement* next) override;
    bool HandleKeyDown(int flags, int key) override;
    bool HandleKeyUp(int flags, int key) override;
    bool HandleChar(char c) override;
    bool HandleOnTooltip(mirel7::CTooltipEvent* ev) override;
    bool HandleOnTooltipTrack(mirel7::CTooltipEvent* ev) override;
    bool HandleContextMenu(int x, int y) override;
    void HandleGetFocus(CVisualElement* previous, bool direct) override;
    void HandleLostFocus(CVisualElement* next) override;

    void SetPos(rectangle<int> const& newRect, bool force) override;
    // Items are drawn in the element's pixels, not in the scroll models' units.
    void SetCoordSystem(IPainter* painter) override;
    void DrawContent(IPainter* painter) override;
    // Whether anything moved.
    bool ScrollContent(int dx, int dy) override;
    void ProcessSetControl(IControl* control) override;

    // After the whole control has painted: the models forget what they had to repaint.
    void OnEndDraw();
    virtual void ProcessEndDraw() = 0;

protected:
    CEventHandler* m_firstHandler = nullptr;

private:
    // Offers an event to the chain until a link stops it.
    template <class F>
    bool Offer(F const& process);
    // The control whose after-paint signal the viewer hears, kept so that a move to another control
    // unsubscribes from this one and not from the new.
    void ListenEndDraw(IControl* control);

    IControl* m_endDrawControl = nullptr;
};

} // namespace mirelfrw7
