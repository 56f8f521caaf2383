#include <mirel7/cairo/image_surface.h>

#include <algorithm>
#include <cstring>

namespace mirel7::cairo {

cairo_surface_t* NewSurface(size<int> const& s) {
    return cairo_image_surface_create(CAIRO_FORMAT_ARGB32, std::max(s.cx, 0), std::max(s.cy, 0));
}

CImageSurface::CImageSurface(size<int> const& s) {
    Bind(NewSurface(s));
}

CImageSurface::~CImageSurface() {
    Unbind();
}

void CImageSurface::Bind(cairo_surface_t* surface) {
    m_surface = surface;
    m_context = cairo_create(surface);
    m_pixels = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface));
    m_width = cairo_image_surface_get_width(surface);
    m_height = cairo_image_surface_get_height(surface);
    m_stride = cairo_image_surface_get_stride(surface) / 4;
    m_turn = ETurn::Synced;
}

void CImageSurface::Unbind() {
    cairo_destroy(m_context);
    cairo_surface_destroy(m_surface);
}

void CImageSurface::Flush(ETurn next) {
    if (m_turn == ETurn::Cairo) cairo_surface_flush(m_surface);
    m_turn = next;
}

void CImageSurface::Adopt(cairo_surface_t* replacement) {
    Unbind();
    Bind(replacement);
}

void CImageSurface::Resize(size<int> const& s) {
    cairo_surface_t* const resized = NewSurface(s);
    cairo_t* const cr = cairo_create(resized);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cr, ForCairo(), 0, 0);
    cairo_rectangle(cr, 0, 0, std::min(s.cx, m_width), std::min(s.cy, m_height));
    cairo_fill(cr);
    cairo_destroy(cr);
    Adopt(resized);
}

cairo_surface_t* CImageSurface::CopyPart(rectangle<int> const& part) {
    cairo_surface_t* const copy = NewSurface({part.Width(), part.Height()});
    cairo_t* const cr = cairo_create(copy);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cr, ForCairo(), -part.left, -part.top);
    cairo_paint(cr);
    cairo_destroy(cr);
    return copy;
}

void CImageSurface::CopyIn(cairo_surface_t* source, rectangle<int> const& part, point<int> const& to) {
    // A context of its own: the painter's clip and attributes must not touch a plain copy.
    cairo_t* const cr = cairo_create(ForCairo());
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cr, source, to.x - part.left, to.y - part.top);
    cairo_rectangle(cr, to.x, to.y, part.Width(), part.Height());
    cairo_fill(cr);
    cairo_destroy(cr);
}

void CImageSurface::Scroll(int dx, int dy, rectangle<int> const& source) {
    // What lands inside the surface, and where it comes from; both within the surface.
    rectangle<int> const bounds{0, 0, m_width, m_height};
    rectangle<int> const from = source.Intersect(bounds);
    rectangle<int> const to =
        rectangle<int>{from.left + dx, from.top + dy, from.right + dx, from.bottom + dy}.Intersect(bounds);
    int const width = to.Width(), height = to.Height();
    if (width <= 0 || height <= 0 || (dx == 0 && dy == 0)) return;
    std::uint32_t* const pixels = PixelsToWrite();
    auto row = [&](int y) {
        std::memmove(pixels + std::ptrdiff_t(y) * m_stride + to.left,
                     pixels + std::ptrdiff_t(y - dy) * m_stride + (to.left - dx), std::size_t(width) * 4);
    };
    // Rows in the order that never reads a row already overwritten.
    if (dy > 0)
        for (int y = to.bottom - 1; y >= to.top; --y)
            row(y);
    else
        for (int y = to.top; y < to.bottom; ++y)
            row(y);
}

// The disabled look of a picture: each pixel halfway between its own brightness and a light grey, keeping
// its alpha. The words are premultiplied, and so is the grey.
void GreyPixels(cairo_surface_t* surface) {
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

} // namespace mirel7::cairo
