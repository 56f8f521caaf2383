#include <mirelfrw7/scroll/scroll_corner.h>

namespace mirelfrw7 {

void CScrollCorner::DrawContent(IPainter* painter) {
    rectangle<int> const b = GetBounds();
    painter->FillRect(b.left, b.top, b.right, b.bottom);
}

} // namespace mirelfrw7
