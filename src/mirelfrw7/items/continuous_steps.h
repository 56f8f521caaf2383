#pragma once

#include <mirelfrw7/items/item_view_model.h>

// The steps that the continuous models share, on virtual calls only, so that the header's model (which keeps
// its sizes elsewhere) and the column model behave alike.
namespace mirelfrw7::ContinuousSteps {

// Moves the offset, stored in `offset`, to `value`: clamped so that the view stays on the items once laid
// out, and at 0 always. Marks what comes into view, offers the shift, and announces the change.
void ScrollTo(IContinuousItemViewModel& model, int& offset, int value);
// After the view size went from `previous` to `size`: keeps the offset legal and marks what was uncovered.
void ResizeView(IContinuousItemViewModel& model, int previous, int size, bool force);
// Before item `index` goes from `oldSize` to `newSize`: offers the shift of what follows it and marks what
// must be repainted. The caller stores the size and announces the change.
void AnnounceItemResize(IContinuousItemViewModel& model, int index, int oldSize, int newSize);

} // namespace mirelfrw7::ContinuousSteps
