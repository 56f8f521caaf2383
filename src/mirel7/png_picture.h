#pragma once

#include <mirel7/base.h>
#include <mirel7/export.h>
#include <mirel7/raster_picture.h>

#include <string>

namespace mirel7 {

// Reading PNG files belongs to the drawing backend, which a build may leave out (see drawing_backend.h).
MIREL7_API mirel_ptr<IRasterPicture> NewPngPicture(std::string const& path) __attribute__((weak));

// A raster picture of the PNG file at `path`, with its alpha; null when the file cannot be read or there is
// no drawing backend.
inline mirel_ptr<IRasterPicture> LoadPngPicture(std::string const& path) {
    if (!NewPngPicture) return nullptr;
    return NewPngPicture(path);
}

} // namespace mirel7
