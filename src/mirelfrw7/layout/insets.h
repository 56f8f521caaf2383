#pragma once

#include <mirel7/types.h>

namespace mirelfrw7 {

// `r` moved inwards by the left, top, right and bottom of `insets`; negative insets move outwards.
template <class T>
mirel7::rectangle<T> Inset(mirel7::rectangle<T> const& r, mirel7::rectangle<int> const& insets) {
    return {r.left + insets.left, r.top + insets.top, r.right - insets.right, r.bottom - insets.bottom};
}

} // namespace mirelfrw7
