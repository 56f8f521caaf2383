#pragma once

#include <mirel7/types.h>

namespace mirelfrw7 {

class IScrollModel;

// One axis of a CoordInfo, with the extent of the rectangle it maps onto along that axis.
struct SAxis {
    double& logicalOrigin;
    double& logicalExtent;
    int& origin;
    int& extent;
    int low, high;
};

// The model's units from the view's start over the rectangle; a backward range runs from the far end.
void FillAlong(SAxis axis, IScrollModel const& model);

// A drawing rectangle truncated to pixels, stopping at the ends of the int range.
mirel7::rectangle<int> Truncated(mirel7::rectangle<double> const& r);

} // namespace mirelfrw7
