#include <mirelfrw7/items/saturating_int.h>
#include <mirelfrw7/scroll/axis_mapping.h>
#include <mirelfrw7/scroll/scroll_converter.h>
#include <mirelfrw7/scroll/scroll_model.h>

#include <cmath>
#include <cstdint>

namespace mirelfrw7 {

void FillAlong(SAxis axis, IScrollModel const& model) {
    double const from = model.GetFrom(), to = model.GetTo();
    auto const [units, pixels] = UsableMeasure(model);
    axis.logicalOrigin = model.GetStart();
    axis.logicalExtent = std::abs(to - from);
    axis.origin = axis.low;
    axis.extent = SaturatingInt(pixels * axis.logicalExtent / units);
    if (from > to) {
        axis.extent = -axis.extent;
        axis.origin = SaturatingInt(std::int64_t(axis.origin) + axis.high - axis.low);
    }
}

mirel7::rectangle<int> Truncated(mirel7::rectangle<double> const& r) {
    return {SaturatingInt(r.left), SaturatingInt(r.top), SaturatingInt(r.right), SaturatingInt(r.bottom)};
}

} // namespace mirelfrw7
