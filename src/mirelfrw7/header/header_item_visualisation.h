#pragma once

#include <mirelfrw7/export.h>

#include <mirel7/painter.h>
#include <mirel7/types.h>

namespace mirelfrw7 {

class IHeaderItem;

// Paints one section of a tree header.
class MIRELFRW7_API IHeaderItemDrawing {
public:
    virtual ~IHeaderItemDrawing();
    virtual void DrawSection(mirel7::IPainter* painter, IHeaderItem* item,
                             mirel7::rectangle<double> const& rect) = 0;
};

// The look of a tree header's sections. Rectangles are the section's, both ends inclusive, in the header's
// coordinates.
class MIRELFRW7_API IHeaderItemVisualisation {
public:
    // Visual states: HeaderSectionHot and HeaderButtonHot follow the pointer, HeaderSectionPressed draws
    // the content one pixel down and to the right.
    enum { HeaderSectionNormal = 0, HeaderSectionHot = 1, HeaderButtonHot = 2, HeaderSectionPressed = 3 };

    virtual ~IHeaderItemVisualisation();
    virtual int GetVisualisationState(IHeaderItem const* item) const = 0;
    // Empty when the section has no button or is too narrow or low for one.
    virtual mirel7::rectangle<double> GetExpandBtnRect(mirel7::rectangle<double> const& rect,
                                                       IHeaderItem const* item) const = 0;
    virtual mirel7::rectangle<double> GetSectionContentRect(mirel7::rectangle<double> const& rect,
                                                            IHeaderItem const* item) const = 0;
    // A null item paints the empty stretch behind the last section.
    virtual void DrawSectionBackground(mirel7::IPainter* painter, mirel7::rectangle<double> const& rect,
                                       IHeaderItem const* item) = 0;
    virtual void DrawSectionContent(mirel7::IPainter* painter, mirel7::rectangle<double> const& rect,
                                    IHeaderItem const* item) = 0;
    virtual void DrawExpandButton(mirel7::IPainter* painter, mirel7::rectangle<double> const& rect,
                                  IHeaderItem const* item) = 0;
    // `at` is the centre of the marker.
    virtual void DrawSortingMarker(mirel7::IPainter* painter, bool ascending,
                                   mirel7::point<double> const& at) = 0;
    // 0: no expand button; 1: a button that closes the group; 2: one that opens it.
    virtual int GetItemState(IHeaderItem const* item) const;
};

} // namespace mirelfrw7
