#pragma once

#include <mirelfrw7/export.h>

#include <mirel7/types.h>

namespace mirelfrw7 {

// Places a list of boxes that it reads from a site of its owner. Update recomputes every position and hands
// it to the site; GetSize then answers the extent they need.
class MIRELFRW7_API IElementLayout {
public:
    virtual ~IElementLayout();
    virtual void Update() = 0;
    virtual mirel7::size<int> GetSize() const = 0;
};

} // namespace mirelfrw7
