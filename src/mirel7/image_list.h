#pragma once

#include <mirel7/export.h>

namespace mirel7 {

// The images of a control, handed to the elements that draw them.
class MIREL7_API IImageList {
public:
    virtual ~IImageList();
};

} // namespace mirel7
