#pragma once

#include <mirelfrw7/core/visual_element.h>
#include <mirelfrw7/export.h>

#include <mirel7/xpm.h>

namespace mirel7 {
class IImageList;
}

namespace mirelfrw7 {

// One image from wherever a client keeps it: an index into the control's image list, a raster picture or
// an XPM picture, tried in that order.
struct MIRELFRW7_API CImageHolder {
    int imageIndex = -1;
    mirel_ptr<IRasterPicture> picture;
    mirel7::XPMImage xpm;

    size<int> GetSize(mirel7::IImageList* images) const;
    void DrawImage(IPainter* painter, mirel7::IImageList* images, int x, int y) const;
};

} // namespace mirelfrw7
