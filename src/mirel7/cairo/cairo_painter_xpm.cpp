#include <mirel7/cairo/cairo_painter.h>
#include <mirel7/xpm.h>

#include <cstring>

namespace mirel7::cairo {

namespace {

// The pixels as a surface, made once for each look and kept with the picture, so that a button drawn at
// every paint decodes and greys its picture only the first time.
cairo_surface_t* Rendered(XPMImage::SPixels const& pixels, bool disabled) {
    std::shared_ptr<void>& slot = pixels.rendered[disabled ? 1 : 0];
    if (!slot) {
        cairo_surface_t* const surface = NewSurface({pixels.width, pixels.height});
        cairo_surface_flush(surface);
        unsigned char* const data = cairo_image_surface_get_data(surface);
        int const stride = cairo_image_surface_get_stride(surface);
        for (int y = 0; y < pixels.height; ++y)
            std::memcpy(data + std::ptrdiff_t(y) * stride,
                        pixels.words.data() + std::ptrdiff_t(y) * pixels.width,
                        std::size_t(pixels.width) * sizeof(std::uint32_t));
        cairo_surface_mark_dirty(surface);
        if (disabled) GreyPixels(surface);
        slot = std::shared_ptr<cairo_surface_t>(surface, cairo_surface_destroy);
    }
    return static_cast<cairo_surface_t*>(slot.get());
}

} // namespace

void CCairoPainter::DrawXPM(XPMImage const& image, double x, double y, int srcX, int srcY, int width,
                            int height) {
    std::optional<SXpmPlacement> const place =
        PlaceXPM(image, ToDevice(x, y), GetDPIScale(), srcX, srcY, width, height);
    if (!place) return;
    PaintSurface(Rendered(*image.GetPixels(), IsDisabled()), {place->part.left, place->part.top}, place->part,
                 place->destination, 255);
}

} // namespace mirel7::cairo
