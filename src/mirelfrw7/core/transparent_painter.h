#pragma once

#include <mirelfrw7/export.h>

#include <mirel7/base.h>
#include <mirel7/painter.h>
#include <mirel7/raster_picture.h>
#include <mirel7/types.h>

namespace mirelfrw7 {

// Drawing that shows through: the caller draws on a picture of the rectangle's size (GetPainter, picture
// pixels from (0, 0)), and the holder lays it over the target when it dies, with `transparency` from 0
// (opaque) to 255 (invisible).
//
// `rect` is in the target's logical coordinates with right and bottom exclusive, as for pictures. Without a
// current system, or for an empty rectangle, there is no picture: GetPainter answers null and nothing is
// blended.
class MIRELFRW7_API CTransparentPainter {
public:
    CTransparentPainter(mirel7::IPainter* target, mirel7::rectangle<int> const& rect, int transparency);
    ~CTransparentPainter();
    CTransparentPainter(CTransparentPainter const&) = delete;
    CTransparentPainter& operator=(CTransparentPainter const&) = delete;

    mirel7::IPainter* GetPainter() const { return m_painter; }

private:
    mirel7::IPainter* m_target;
    mirel7::rectangle<int> m_rect;
    int m_transparency;
    mirel7::mirel_ptr<mirel7::IRasterPicture> m_picture;
    mirel7::IPainter* m_painter = nullptr;
};

} // namespace mirelfrw7
