#pragma once

#include <mirelfrw7/core/signal.h>
#include <mirelfrw7/export.h>

#include <mirel7/types.h>

namespace mirel7 {
class IPainter;
}

namespace mirelfrw7 {

class CVisualElement;

// What a drag carries, read by its source and its target. `rect` and `limits` are in the source element's
// coordinates.
struct DragInfo {
    mirel7::rectangle<int> rect;   // follows the mouse
    mirel7::rectangle<int> limits; // the rectangle stays inside; all zero means no limit
    int data = 0;                  // free for source and target
    bool globalUpdate = true;      // the dragged element repaints with update type 1, else 2
    bool useBuffer = true;         // the control keeps a copy of the window under the drag item
};

// The source side of a drag inside one control. Each operation emits its signal first; a slot that sets
// `handled` takes over, otherwise the virtual runs. Only the control calls these.
class MIRELFRW7_API CDragSource {
public:
    virtual ~CDragSource();

    tarnkit2::signal_t<CVisualElement*, int, int, DragInfo*, bool*, bool*> sigStartDragging;
    tarnkit2::signal_t<CVisualElement*, CVisualElement*, DragInfo*, bool*> sigDragFinished;
    tarnkit2::signal_t<CVisualElement*, CVisualElement*, mirel7::IPainter*, DragInfo*, bool, bool*>
        sigDrawDragItem;

    // `x`, `y`: the button-down point in the element's coordinates. A source fills `info` in here.
    bool CanStartDragging(CVisualElement* element, int x, int y, DragInfo& info);
    void DragFinished(CVisualElement* source, CVisualElement* target, DragInfo& info);
    // The painter's coordinate system is set to the source element.
    void DrawDragItem(CVisualElement* source, mirel7::IPainter* painter, DragInfo& info, bool droppable,
                      CVisualElement* target);

    virtual bool HandleStartDragging(int x, int y, DragInfo& info);
    virtual void HandleDragFinished(CVisualElement* target, DragInfo& info);
    virtual void HandleDrawDragItem(mirel7::IPainter* painter, DragInfo& info, bool droppable,
                                    CVisualElement* target);
};

// The target side of a drag inside one control.
class MIRELFRW7_API CDropTarget {
public:
    virtual ~CDropTarget();

    tarnkit2::signal_t<CVisualElement*, CVisualElement*, DragInfo*, bool*, bool*> sigDragOver;
    tarnkit2::signal_t<CVisualElement*, CVisualElement*, int, int, DragInfo*, bool*> sigDropDone;

    // Whether the target accepts the drop at (x, y), in the target's coordinates.
    bool DragOver(CVisualElement* source, CVisualElement* target, int x, int y, DragInfo& info);
    void DropDone(CVisualElement* source, CVisualElement* target, int x, int y, DragInfo& info);

    virtual bool HandleDragOver(CVisualElement* source, int x, int y, DragInfo& info);
    virtual void HandleDropDone(CVisualElement* source, int x, int y, DragInfo& info);
};

} // namespace mirelfrw7
