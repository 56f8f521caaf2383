#pragma once

#include <mirel7/base.h>
#include <mirel7/export.h>
#include <mirel7/types.h>

namespace mirel7 {

// A window that shows for a moment beside something on the screen: a tooltip, a menu, a drop-down list.
// Rectangles are in screen pixels, right and bottom exclusive.
class MIREL7_API IPopup : public CBase {
public:
    virtual size<int> GetPopupSize() const = 0;
    virtual void MovePopup(point<int> const& topLeft) = 0;
    // The part of the screen the popup may cover.
    virtual screen_rectangle<int> GetWorkArea() const = 0;
};

// Where a popup of `popup` size goes by `anchor` inside `area`: below the anchor when it fits there, else
// above it when it fits there, else on the side with more room, then shifted along and across until it
// lies inside the area as far as its size allows. The left edges line up when they can.
MIREL7_API point<int> PlacePopup(size<int> const& popup, screen_rectangle<int> const& anchor,
                                 screen_rectangle<int> const& area);

// Moves the popup to its place by the anchor, on its work area.
MIREL7_API void PositionPopup(mirel_ptr<IPopup> popup, screen_rectangle<int> const& anchor);

} // namespace mirel7
