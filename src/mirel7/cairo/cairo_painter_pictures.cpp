#include <mirel7/cairo/cairo_painter.h>
#include <mirel7/cairo/cairo_raster_picture.h>

#include <algorithm>

namespace mirel7::cairo {

namespace {

// The disabled look of a picture: each pixel halfway between its own brightness and a light grey, keeping
// its alpha. The words are premultiplied, and so is the grey.
void Grey(cairo_surface_t* surface) {
    cairo_surface_flush(surface);
    auto* const data = cairo_image_surface_get_data(surface);
    int const stride = cairo_image_surface_get_stride(surface),
              width = cairo_image_surface_get_width(surface);
    for (int y = 0, height = cairo_image_surface_get_height(surface); y < height; ++y) {
        auto* const row = reinterpret_cast<std::uint32_t*>(data + std::ptrdiff_t(y) * stride);
        for (int x = 0; x < width; ++x) {
            std::uint32_t const p = row[x], a = p >> 24;
            std::uint32_t const luminance =
                (((p >> 16) & 255) * 77 + ((p >> 8) & 255) * 150 + (p & 255) * 29) >> 8;
            std::uint32_t const grey = (luminance + a * 192 / 255) / 2;
            row[x] = a << 24 | grey << 16 | grey << 8 | grey;
        }
    }
    cairo_surface_mark_dirty(surface);
}

rectangle<int> Whole(CCairoRasterPicture* picture) {
    return picture ? rectangle<int>{0, 0, picture->Surface().Width(), picture->Surface().Height()}
                   : rectangle<int>{};
}

} // namespace

void CCairoPainter::DrawPicture(CCairoRasterPicture* picture, rectangle<int> const& destination,
                                rectangle<int> const& part, int alpha) {
    rectangle<int> const from = part.Normalized();
    if (!picture || alpha <= 0 || from.Width() <= 0 || from.Height() <= 0 || destination.Width() <= 0 ||
        destination.Height() <= 0)
        return;
    CImageSurface& source = picture->Surface();
    // A picture drawn on itself or greyed goes through a copy of the part drawn.
    bool const throughCopy = &source == &m_surface || IsDisabled();
    cairo_surface_t* const pixels = throughCopy ? source.CopyPart(from) : source.ForCairo();
    if (IsDisabled()) Grey(pixels);
    point<int> const origin = throughCopy ? point<int>{} : point<int>{from.left, from.top};

    cairo_t* const cr = m_surface.Context();
    cairo_save(cr);
    cairo_rectangle(cr, destination.left, destination.top, destination.Width(), destination.Height());
    cairo_clip(cr);
    cairo_translate(cr, destination.left, destination.top);
    double const sx = double(destination.Width()) / from.Width(),
                 sy = double(destination.Height()) / from.Height();
    cairo_scale(cr, sx, sy);
    cairo_set_source_surface(cr, pixels, -origin.x, -origin.y);
    cairo_pattern_set_filter(cairo_get_source(cr),
                             sx == 1 && sy == 1 ? CAIRO_FILTER_NEAREST : CAIRO_FILTER_GOOD);
    cairo_pattern_set_extend(cairo_get_source(cr), CAIRO_EXTEND_PAD);
    if (alpha >= 255)
        cairo_paint(cr);
    else
        cairo_paint_with_alpha(cr, alpha / 255.0);
    cairo_restore(cr);
    if (throughCopy) cairo_surface_destroy(pixels);
}

void CCairoPainter::DrawRasterPicture(IRasterPicture* picture, double left, double top, double right,
                                      double bottom, RasterOperation /*op*/) {
    CCairoRasterPicture* const p = AsCairoPicture(picture);
    DrawPicture(p, DevicePixels(left, top, right, bottom), Whole(p), 255);
}

void CCairoPainter::DrawRasterPictureEx(IRasterPicture* picture, double left, double top, double right,
                                        double bottom, rectangle<int> const& source, RasterOperation /*op*/) {
    DrawPicture(AsCairoPicture(picture), DevicePixels(left, top, right, bottom), source, 255);
}

void CCairoPainter::AlphaBlend(double left, double top, double right, double bottom, IRasterPicture* picture,
                               int alpha) {
    CCairoRasterPicture* const p = AsCairoPicture(picture);
    DrawPicture(p, DevicePixels(left, top, right, bottom), Whole(p), std::min(alpha, 255));
}

void CCairoPainter::ExtractRasterPicture(IRasterPicture* picture, double left, double top, double right,
                                         double bottom) {
    if (CCairoRasterPicture* const p = AsCairoPicture(picture))
        p->Painter().Adopt(m_surface.CopyPart(DevicePixels(left, top, right, bottom)));
}

void CCairoPainter::ExtractRasterPictureEx(IRasterPicture* picture, double left, double top, double right,
                                           double bottom, point<int> const& destination) {
    CCairoRasterPicture* const p = AsCairoPicture(picture);
    if (!p) return;
    rectangle<int> const area = DevicePixels(left, top, right, bottom);
    // Through a copy, which also serves a picture extracting from its own painter.
    cairo_surface_t* const copy = m_surface.CopyPart(area);
    p->Surface().CopyIn(copy, {0, 0, area.Width(), area.Height()}, destination);
    cairo_surface_destroy(copy);
}

void CCairoPainter::DrawXPM(XPMImage const& /*image*/, double /*x*/, double /*y*/, int /*srcX*/, int /*srcY*/,
                            int /*width*/, int /*height*/) {
    // XPM images are not decoded yet; drawing one leaves the surface as it was.
}

} // namespace mirel7::cairo
