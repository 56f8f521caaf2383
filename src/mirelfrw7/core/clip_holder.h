#pragma once

#include <mirelfrw7/export.h>

#include <mirel7/painter.h>
#include <mirel7/types.h>

namespace mirelfrw7 {

// Narrows a painter's clip for the life of the holder and puts the former clip back after.
//
// `rect` is in the painter's logical coordinates with right and bottom inclusive, `margins` widen it on
// each side. Inside a clip the new one is their intersection; an intersection one pixel wide or high or less
// keeps the former clip in force instead, so that such a sliver draws with the wider clip rather than not
// at all. Without a former clip `rect` is taken alone and the margins play no part. A null painter makes the
// holder do nothing.
class MIRELFRW7_API CClipHolder {
public:
    CClipHolder(mirel7::IPainter* painter, mirel7::rectangle<double> const& rect,
                mirel7::rectangle<double> const& margins = {});
    ~CClipHolder();
    CClipHolder(CClipHolder const&) = delete;
    CClipHolder& operator=(CClipHolder const&) = delete;

private:
    mirel7::rectangle<double> m_savedClip;
    mirel7::IPainter* m_painter;
};

} // namespace mirelfrw7
