#include <mirel7/cairo/cairo_raster_picture.h>

namespace mirel7::cairo {

CCairoRasterPicture::CCairoRasterPicture(int width, int height) : m_painter({width, height}, 1.0) {}

CCairoRasterPicture* AsCairoPicture(IRasterPicture* picture) {
    return dynamic_cast<CCairoRasterPicture*>(picture);
}

bool CCairoRasterPicture::CopyFrom(IRasterPicture* source, rectangle<int> const* sourcePart) {
    CCairoRasterPicture* const from = AsCairoPicture(source);
    if (!from) return false;
    rectangle<int> const whole{0, 0, from->Surface().Width(), from->Surface().Height()};
    rectangle<int> const part = sourcePart ? sourcePart->Normalized().Intersect(whole) : whole;
    if (part.Width() <= 0 || part.Height() <= 0) return false;
    m_painter.Adopt(from->Surface().CopyPart(part));
    return true;
}

void CCairoRasterPicture::Scale(size<int> const& newSize) {
    if (newSize.cx < 1 || newSize.cy < 1) {
        m_painter.Adopt(NewSurface({}));
        return;
    }
    CImageSurface& old = Surface();
    cairo_surface_t* const scaled = NewSurface(newSize);
    if (old.Width() > 0 && old.Height() > 0) {
        cairo_t* const cr = cairo_create(scaled);
        cairo_scale(cr, double(newSize.cx) / old.Width(), double(newSize.cy) / old.Height());
        cairo_set_source_surface(cr, old.ForCairo(), 0, 0);
        cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_GOOD);
        // Padding keeps the edges as opaque as the picture instead of fading them into the void beyond.
        cairo_pattern_set_extend(cairo_get_source(cr), CAIRO_EXTEND_PAD);
        cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
        cairo_paint(cr);
        cairo_destroy(cr);
    }
    m_painter.Adopt(scaled);
}

} // namespace mirel7::cairo
