#pragma once

#include <mirel7/types.h>

#include <cairo.h>

#include <cstdint>

namespace mirel7::cairo {

// An ARGB32 image surface and its drawing context. Cairo and direct pixel access take turns on the same
// memory: Cairo's pending drawing is flushed when pixels are first touched after it, and Cairo is told the
// memory changed when it first draws after pixels were written, so a run of pixel calls costs one flush.
class CImageSurface {
public:
    explicit CImageSurface(size<int> const& s);
    ~CImageSurface();
    CImageSurface(CImageSurface const&) = delete;
    CImageSurface& operator=(CImageSurface const&) = delete;

    int Width() const { return m_width; }
    int Height() const { return m_height; }
    int Stride() const { return m_stride; }

    // The context to draw with, and the surface to draw from; both make Cairo's view of the memory current.
    cairo_t* Context() {
        ForCairo();
        return m_context;
    }
    cairo_surface_t* ForCairo() {
        if (m_turn == ETurn::PixelsWritten) cairo_surface_mark_dirty(m_surface);
        m_turn = ETurn::Cairo;
        return m_surface;
    }

    // The memory, for reading or for writing: premultiplied ARGB words, Stride() words a row.
    std::uint32_t const* PixelsToRead() {
        if (m_turn == ETurn::Cairo) Flush(ETurn::Synced);
        return m_pixels;
    }
    std::uint32_t* PixelsToWrite() {
        if (m_turn != ETurn::PixelsWritten) Flush(ETurn::PixelsWritten);
        return m_pixels;
    }
    bool Contains(int x, int y) const { return x >= 0 && y >= 0 && x < m_width && y < m_height; }

    // A new size keeps the old pixels at the top left; the new area is transparent.
    void Resize(size<int> const& s);
    // Takes `replacement` (an ARGB32 image surface) in place of the current one, with its size.
    void Adopt(cairo_surface_t* replacement);
    // A new surface holding `part` of this one (right and bottom exclusive); outside pixels are transparent.
    cairo_surface_t* CopyPart(rectangle<int> const& part);
    // Copies `part` of `source` so that its top left lands on `to`, replacing what was there.
    void CopyIn(cairo_surface_t* source, rectangle<int> const& part, point<int> const& to);
    // Moves the pixels of `source` (right and bottom exclusive) by (dx, dy) within the surface.
    void Scroll(int dx, int dy, rectangle<int> const& source);

private:
    enum class ETurn { Cairo, Synced, PixelsWritten };
    void Flush(ETurn next);
    void Bind(cairo_surface_t* surface);
    void Unbind();

    cairo_surface_t* m_surface = nullptr;
    cairo_t* m_context = nullptr;
    std::uint32_t* m_pixels = nullptr;
    int m_width = 0, m_height = 0, m_stride = 0;
    ETurn m_turn = ETurn::Synced;
};

// A new ARGB32 surface of `s`, transparent.
cairo_surface_t* NewSurface(size<int> const& s);

// Turns an ARGB32 surface into the greyed look of a disabled element.
void GreyPixels(cairo_surface_t* surface);

} // namespace mirel7::cairo
