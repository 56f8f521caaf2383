#pragma once

#include <mirelfrw7/core/visual_element.h>
#include <mirelfrw7/layout/layout.h>

namespace mirelfrw7 {

// Hands out the four shared orientation instances; they live for the whole process.
class MIRELFRW7_API CLayoutManager {
public:
    // AlignLeft, AlignTop and AlignRight give their own edge; every other value, in range or not, gives the
    // bottom layout, so an element without an edge is a horizontal strip with its text unconverted.
    // Safe from any thread.
    static ILayout* GetLayout(Alignment alignment);
};

} // namespace mirelfrw7
