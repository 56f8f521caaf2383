#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/scroll/scrollable_element.h>

namespace mirelfrw7 {

// The base of what shows scrolled content in the client area of a scroll box: its own central pane, drawn
// in the logical coordinates of its two scroll models, and scrolled by moving the window's pixels, with the
// valid rectangle keeping track of what is still right on the screen.
class MIRELFRW7_API CCentralPart : public CScrollableElement {
public:
    CCentralPart(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    // Both axes of the painter's mapping from the scroll models over the element's drawing rectangle.
    virtual void FillCoordInfo(IPainter::CoordInfo* info);
    void SetPos(rectangle<int> const& newRect, bool force) override;
    bool IsFullRepainted() const override;
    bool ScrollContent(int dx, int dy) override;
    void ProcessSetControl(IControl* control) override;
    void SetCoordSystem(IPainter* painter) override;
    // A central part is always its own central pane.
    void SetCentralPane(CVisualElement* pane) override;

    // Notes where the element is in the window before a rearrangement moves it.
    void StartRearrange();
    rectangle<int> const& GetRearrangeRect() const { return m_rearrangeRect; }

protected:
    rectangle<int> m_rearrangeRect;

private:
    void Listen(IControl* control, bool listen);
};

} // namespace mirelfrw7
