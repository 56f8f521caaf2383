#include <mirel7/popup.h>

#include <algorithm>

namespace mirel7 {

namespace {

// The start of a span of `length` placed at `wanted`, kept inside [first, last) as far as it fits; a span
// longer than the room starts at the room's start.
int KeepInside(int wanted, int length, int first, int last) {
    return std::max(first, std::min(wanted, last - length));
}

} // namespace

point<int> PlacePopup(size<int> const& popup, screen_rectangle<int> const& anchor,
                      screen_rectangle<int> const& area) {
    screen_rectangle<int> const a = anchor.Normalized();
    int const below = area.bottom - a.bottom, above = a.top - area.top;
    int y = a.bottom;
    if (popup.cy > below && (popup.cy <= above || above > below)) y = a.top - popup.cy;
    return {KeepInside(a.left, popup.cx, area.left, area.right),
            KeepInside(y, popup.cy, area.top, area.bottom)};
}

void PositionPopup(mirel_ptr<IPopup> popup, screen_rectangle<int> const& anchor) {
    if (popup) popup->MovePopup(PlacePopup(popup->GetPopupSize(), anchor, popup->GetWorkArea()));
}

} // namespace mirel7
