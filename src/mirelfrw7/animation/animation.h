#pragma once

#include <mirelfrw7/export.h>

#include <mirel7/base.h>
#include <mirel7/types.h>

namespace mirel7 {
class IPainter;
}

namespace mirelfrw7 {

// A sequence of frames that an animation process moves along and an element draws. Reference counted:
// whoever shows it holds it through mirel_ptr.
class MIRELFRW7_API IAnimation : public mirel7::CBase {
public:
    // The time in milliseconds until the next frame should come; read after each Advance().
    virtual int GetInterval() const = 0;
    virtual void Advance() = 0;
    // Draws the current frame with its top left at (x, y).
    virtual void Draw(mirel7::IPainter* painter, int x, int y) = 0;
    virtual mirel7::size<int> GetSize() const = 0;
};

} // namespace mirelfrw7
