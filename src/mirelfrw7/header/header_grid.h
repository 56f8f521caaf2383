#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/header/header.h>
#include <mirelfrw7/items/grid_viewer.h>

namespace mirelfrw7 {

// A grid whose columns scroll by pixels, so that a tree header's leaves can be its columns.
using CHeaderGrid = CGridViewer<IDiscreteItemViewModel, IContinuousItemViewModel>;

// Makes `header` the column view model of `grid`, scrolled through the grid's column scroll model: one set
// of columns, one offset, so that a resize, a drop or a collapse in the header, or a scroll of either, shows
// in both at once. The view's width is the grid's. Neither owns the other: while both live, the header must
// not die before the grid is given another column model.
MIRELFRW7_API void ServeAsColumns(CHeader* header, CHeaderGrid* grid);

} // namespace mirelfrw7
