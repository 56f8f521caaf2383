#pragma once

#include <mirel7/base.h>
#include <mirel7/export.h>
#include <mirel7/raster_picture.h>

#include <string>

namespace mirel7 {

// A raster picture of the PNG file at `path`, with its alpha; null when the file cannot be read. Reading
// belongs to the drawing backend, beside NewRasterPicture.
MIREL7_API mirel_ptr<IRasterPicture> LoadPngPicture(std::string const& path);

} // namespace mirel7
