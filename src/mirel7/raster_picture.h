#pragma once

#include <mirel7/base.h>
#include <mirel7/export.h>
#include <mirel7/types.h>

namespace mirel7 {

class IPainter;

// A picture in memory with a painter of its own. Made by the system object (CreateRasterPicture) and held
// through mirel_ptr.
class MIREL7_API IRasterPicture : public CBase {
public:
    ~IRasterPicture() override;

    virtual size<int> GetSize() const = 0;
    // Makes this picture a copy of `source`, or of its part `sourcePart` (exclusive right and bottom, in the
    // source's pixels) when one is given: this picture takes the size of what it copies. Answers false when
    // there is nothing to copy.
    virtual bool CopyFrom(IRasterPicture* source, rectangle<int> const* sourcePart = nullptr) = 0;
    // Scales the picture's content to `newSize`; a size below 1 in either direction empties it.
    virtual void Scale(size<int> const& newSize) = 0;
    // The painter that draws into the picture; it lives as long as the picture.
    virtual IPainter* GetPainter() = 0;
};

} // namespace mirel7
