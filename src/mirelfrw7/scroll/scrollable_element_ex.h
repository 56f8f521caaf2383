#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/layout/layout_flavor.h>
#include <mirelfrw7/scroll/scrollable_element.h>

namespace mirelfrw7 {

// A strip that docks to any edge and tracks the scroll model running along it: the horizontal model on the
// top and bottom edges, the vertical one on the left and right. It draws in that model's logical units
// along itself, over exactly the stretch of the central pane, and in pixels across, growing away from the
// pane.
class MIRELFRW7_API CScrollableElementEx : public CScrollableElement, public CLayoutFlavor {
public:
    CScrollableElementEx(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    // The mapping of a top or bottom strip, and of a left or right one; nothing without a model.
    virtual void FillHorizontal(IPainter::CoordInfo* info, IScrollModel* model);
    virtual void FillVertical(IPainter::CoordInfo* info, IScrollModel* model);
    void SetAlignment(Alignment alignment) override;
    // Lays the logical coordinates of the model along the strip over the painter's mapping, which becomes
    // an element mapping.
    void SetCoordSystem(IPainter* painter) override;

    // Null when the strip lies on no edge.
    IScrollModel* GetScrollModel() const;
    // The strip's content rectangle cut along its length to the central pane, in control coordinates, and
    // through the painter's mapping when one is given.
    rectangle<double> GetAxisRect(IPainter* painter) const;
};

} // namespace mirelfrw7
