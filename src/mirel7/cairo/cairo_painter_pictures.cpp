#include <mirel7/cairo/cairo_painter.h>
#include <mirel7/cairo/cairo_raster_picture.h>

#include <algorithm>

namespace mirel7::cairo {

namespace {

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
    if (IsDisabled()) GreyPixels(pixels);
    point<int> const origin = throughCopy ? point<int>{} : point<int>{from.left, from.top};

    PaintSurface(pixels, origin, from, destination, alpha);
    if (throughCopy) cairo_surface_destroy(pixels);
}

void CCairoPainter::PaintSurface(cairo_surface_t* pixels, point<int> const& origin,
                                 rectangle<int> const& from, rectangle<int> const& destination, int alpha) {
    cairo_t* const cr = m_surface.Context();
    cairo_save(cr);
    cairo_rectangle(cr, destination.left, destination.top, destination.Width(), destination.Height());
    cairo_clip(cr);
    cairo_translate(cr, destination.left, destination.top);
    double const sx = double(destination.Width()) / from.Width(),
                 sy = double(destination.Height()) / from.Height();
    cairo_scale(cr, sx, sy);
    // The filter reaches past the part's edges: padding the part alone keeps its neighbours' colours out.
    cairo_surface_t* const part =
        cairo_surface_create_for_rectangle(pixels, origin.x, origin.y, from.Width(), from.Height());
    cairo_set_source_surface(cr, part, 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cr),
                             sx == 1 && sy == 1 ? CAIRO_FILTER_NEAREST : CAIRO_FILTER_GOOD);
    cairo_pattern_set_extend(cairo_get_source(cr), CAIRO_EXTEND_PAD);
    if (alpha >= 255)
        cairo_paint(cr);
    else
        cairo_paint_with_alpha(cr, alpha / 255.0);
    cairo_restore(cr);
    cairo_surface_destroy(part);
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

} // namespace mirel7::cairo
