#include <mirel7/cairo/cairo_raster_picture.h>
#include <mirel7/png_picture.h>

namespace mirel7 {

mirel_ptr<IRasterPicture> LoadPngPicture(std::string const& path) {
    cairo_surface_t* const png = cairo_image_surface_create_from_png(path.c_str());
    if (cairo_surface_status(png) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(png);
        return nullptr;
    }
    // Cairo answers opaque files in a format without alpha, and pictures hold ARGB32: the file is copied
    // onto a surface of that format.
    int const width = cairo_image_surface_get_width(png), height = cairo_image_surface_get_height(png);
    cairo_surface_t* const argb = cairo::NewSurface({width, height});
    cairo_t* const cr = cairo_create(argb);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cr, png, 0, 0);
    cairo_paint(cr);
    cairo_destroy(cr);
    cairo_surface_destroy(png);

    auto* const picture = new cairo::CCairoRasterPicture(0, 0);
    picture->Painter().Adopt(argb);
    return mirel_ptr<IRasterPicture>(picture);
}

} // namespace mirel7
