#pragma once

#include <mirelfrw7/items/saturating_int.h>

#include <mirel7/system.h>

namespace mirelfrw7 {

// `pixels` times the display's scale factor, truncated: the default sizes of the item models.
inline int DisplayScaled(int pixels) {
    mirel7::ISystem* const system = mirel7::GetCurrentSystem();
    return SaturatingInt(pixels * (system ? system->GetDPIScale() : 1.0));
}

} // namespace mirelfrw7
