#include <mirelfrw7/core/drag_drop.h>

namespace mirelfrw7 {

CDragSource::~CDragSource() = default;

bool CDragSource::CanStartDragging(CVisualElement* element, int x, int y, DragInfo& info) {
    bool accepted = false, handled = false;
    sigStartDragging(element, x, y, &info, &accepted, &handled);
    if (handled) return accepted;
    // The virtual runs even when a slot accepted: it may still fill the drag in.
    bool const virtualAccepted = HandleStartDragging(x, y, info);
    return accepted || virtualAccepted;
}

void CDragSource::DragFinished(CVisualElement* source, CVisualElement* target, DragInfo& info) {
    bool handled = false;
    sigDragFinished(source, target, &info, &handled);
    if (!handled) HandleDragFinished(target, info);
}

void CDragSource::DrawDragItem(CVisualElement* source, mirel7::IPainter* painter, DragInfo& info,
                               bool droppable, CVisualElement* target) {
    bool handled = false;
    sigDrawDragItem(source, target, painter, &info, droppable, &handled);
    if (!handled) HandleDrawDragItem(painter, info, droppable, target);
}

bool CDragSource::HandleStartDragging(int, int, DragInfo&) {
    return false;
}
void CDragSource::HandleDragFinished(CVisualElement*, DragInfo&) {}
void CDragSource::HandleDrawDragItem(mirel7::IPainter*, DragInfo&, bool, CVisualElement*) {}

CDropTarget::~CDropTarget() = default;

bool CDropTarget::DragOver(CVisualElement* source, CVisualElement* target, int x, int y, DragInfo& info) {
    bool accepted = false, handled = false;
    sigDragOver(source, target, &info, &accepted, &handled);
    if (handled) return accepted;
    bool const virtualAccepted = HandleDragOver(source, x, y, info);
    return accepted || virtualAccepted;
}

void CDropTarget::DropDone(CVisualElement* source, CVisualElement* target, int x, int y, DragInfo& info) {
    bool handled = false;
    sigDropDone(source, target, x, y, &info, &handled);
    if (!handled) HandleDropDone(source, x, y, info);
}

bool CDropTarget::HandleDragOver(CVisualElement*, int, int, DragInfo&) {
    return false;
}
void CDropTarget::HandleDropDone(CVisualElement*, int, int, DragInfo&) {}

} // namespace mirelfrw7
