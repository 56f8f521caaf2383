#pragma once

#include <mirelfrw7/antialiasing/color_info.h>
#include <mirelfrw7/antialiasing/double_map.h>
#include <mirelfrw7/antialiasing/pixel_map.h>
#include <mirelfrw7/antialiasing/tag_point.h>
#include <mirelfrw7/core/drawing_context.h>
#include <mirelfrw7/export.h>

#include <set>

namespace antialiasing {

using mirelfrw7::IDrawingContext;

// The accumulator of antialiased shapes. A shape arrives as real-valued samples; each is spread over the
// four whole pixels around it in inverse proportion to a distance law, and each touched pixel sums
// premultiplied colour and coverage. Normalize promotes full pixels to solid ones; the rest are blended
// over a background when drawn. Only touched pixels are kept, so the cost follows the shape, not the
// surface. Generate, the shape itself, is left to the subclasses.
class MIRELFRW7_API CContour {
public:
    using map = pixel_map<CColorInfo>;
    using solid_map = pixel_map<unsigned long>;
    using ambient_map = double_map<tagPOINT, tagPOINT, unsigned long, std::less<tagPOINT>,
                                   std::less<tagPOINT>, std::allocator<unsigned long>>;

    explicit CContour(unsigned long params) : m_params(params) {}
    virtual ~CContour();
    // Forgets every pixel and the bounds; the parameters stay.
    virtual void Clear();
    virtual void Generate(CContour* overlayFirst, CContour* overlaySecond) = 0;

    // Spreads one sample. The low two bits of the parameters choose the distance law: 0 the distance to
    // the power 1.5, 1 the distance, 2 its square, 3 nothing at all. A sample on whole coordinates counts in
    // full whatever the weight and flags. Flag 0x10 adds through AddLastPoint; flag 8 records the sample in
    // the last pass too.
    void AddPoint(double x, double y, CColorInfo& colour, unsigned long flags, double weight);
    // Adds a share to one pixel: each channel times the share, and 255 times it to the coverage, each
    // truncated to a whole number before it is summed.
    static void AddPoint(map& target, int x, int y, CColorInfo& colour, double share);
    // As the map form on the partial pixels, except that a pixel of the last pass takes no more than what
    // it lacks of 255.
    void AddLastPoint(int x, int y, CColorInfo& colour, double share);
    // Promotes each pixel whose coverage is above `threshold`, or that is forced, to a solid pixel of its
    // mean colour.
    void Normalize(unsigned long threshold);

    // Blends the partial pixels over their ambient colours when an ambient area exists, else over what the
    // context shows; then writes the solid ones.
    void Draw(IDrawingContext* context) const;
    void Draw(IDrawingContext* context, unsigned long background) const;
    // Blends over `first` on the inner side (and unclassified pixels), `second` on the outer one, and their
    // mean where a pixel is both.
    void Draw(IDrawingContext* context, unsigned long first, unsigned long second) const;
    void DrawSolidContour(IDrawingContext* context) const;
    // Makes every pixel solid by blending the partial ones over `background`.
    void MixWithBackground(unsigned long background);
    // The pixel's final colour, or 0xFFFFFFFF outside the shape.
    unsigned long GetColor(tagPOINT const& point, unsigned long background) const;
    void PaintContour(unsigned long colour);
    void ScaleAlpha(double factor);
    // Moves the pixels; the bounds, the forced pixels and the last pass stay.
    void Offset(int dx, int dy);
    // Gives each partial pixel that falls on a pixel of `first` (or failing that on a partial one of
    // `second`) to that contour: partial pixels there take its sums. Given pixels are kept in m_overlaid.
    void Overlay(CContour* first, CContour* second);

    // Coverage as a byte mask, 255 where nothing lies: 0 for solid pixels, 255 - coverage for partial ones.
    void FillAlphaMask(unsigned char* mask, long stride, long height, bool flip) const;
    void ClearAlphaMask(unsigned char* mask, long stride, long height, bool flip) const;

    // Sets the side of each pixel of `points` against the centre (cx, cy) from its occupied neighbours.
    void Classify(map& points, int cx, int cy);
    void RemoveContourPart(map& points, unsigned long mask, unsigned long exclude);
    // Consumes one row of an outline: its extreme x (leftmost if `toLeft`) plus `shift`, or x 0x7FFFFFFF
    // when that lies outside `rect`. Not to be called with all three maps empty.
    tagPOINT FindUtmostHorzPoint(solid_map& solid, map& first, map& second, bool toLeft, int shift,
                                 tagRECT const& rect);

    // The ambient area: the pixels just outside the shape, displaced from it, whose colours are captured
    // once and then stand in for the surface.
    void BuildAmbientArea(int dx, int dy, bool bothSides);
    // The same, each pixel displaced away from the centre (cx, cy).
    void BuildAmbientArea(int cx, int cy, int dx, int dy, bool bothSides);
    void AddAmbientPoints(map const& points);
    // Gives each partial pixel the colour of an ambient pixel near it, found by a bounded scan in the order
    // of the ambient table (not always the nearest one; the pixels depend on this very search).
    void IndexAmbientPoints();
    void ShareAmbientArea(CContour& other);
    void UpdateAmbientColors(IDrawingContext* context);
    unsigned long GetAmbientColorForPt(tagPOINT const& point) const;

    void Copy(CContour const& other);
    void SetParams(CContour const& other);

    // The blend of a partial pixel over a background colour word, channel by channel, wrapping at 8 bits.
    static unsigned long Blend(CColorInfo const& pixel, unsigned long background);

    unsigned long m_params;
    // The bounding box of the spread samples; it starts at the origin and so always holds it.
    tagRECT m_bounds;
    map m_contour;
    solid_map m_solid;
    map m_overlaid;
    ambient_map m_ambient;
    std::set<tagPOINT> m_forced;
    map m_lastPass;

private:
    // Walks the ambient index and the partial pixels together, calling `visit(pixel, ambient colour)` for
    // each pixel with an entry; a pixel without one stops the walk on it.
    template <class Visit>
    void WalkAmbient(Visit visit) const;
    void BuildAmbientArea(map shifted, map opposite, bool bothSides);

    // The distances of the last spread sample by the law: samples of lines along an axis repeat them
    // exactly, and the power is the dearest part of a sample.
    struct SLawMemo {
        unsigned long law = 4;
        double squared[4] = {};
        double distance[4] = {};
    };
    SLawMemo m_lawMemo;
};

} // namespace antialiasing
