#pragma once

#include <mirel7/base.h>
#include <mirel7/export.h>
#include <mirel7/raster_picture.h>
#include <mirel7/types.h>

#include <string>

namespace mirel7 {

class XPMImage;

// The drawing surface of one system window or one raster picture.
//
// Pixel edges, once for all operations:
// - Fills, outlines, focus rectangles and SetClipRect take (left, top, right, bottom) in logical coordinates
//   and cover the device pixels left..right and top..bottom inclusive, after mapping.
// - SimpleSetClipRect, GetClipRect and the stored clip are device rectangles with right and bottom
//   exclusive.
// - Picture operations take (left, top, right, bottom) with right and bottom exclusive.
// - Coordinates are doubles; a pixel is addressed by its integer coordinate (its top-left corner).
//
// Coordinates pass through the current mapping (SetCoordSystem) to device pixels. Text and pictures are
// placed through the mapping but never mirrored by a flipped axis.
class MIREL7_API IPainter {
public:
    // Settings of BeginPaint.
    enum StdSettings { PaintPlain = 0, PaintWindow = 2, PaintMeasure = 3 };

    enum MapMode { MapDevice = 0, MapElement = 3 };

    // The mapping of MapElement: device = deviceOrigin + (logical - logicalOrigin) * deviceExtent /
    // logicalExtent, per axis. A negative extent flips the axis; a zero extent on either side means a scale
    // of 1 on that axis, never a division by zero.
    struct CoordInfo {
        bool flag1 = false;
        bool flag2 = false;
        double left = 0, top = 0;     // logical origin
        double width = 0, height = 0; // logical extent
        int x = 0, y = 0;             // device origin, in window pixels
        int cx = 0, cy = 0;           // device extent
        double scale = 1.0;
        bool flag3 = false;

        // The logical rectangle (left, top, width, height) onto the device one (x, y, cx, cy).
        static CoordInfo Mapping(double left, double top, double width, double height, int x, int y, int cx,
                                 int cy) {
            CoordInfo info;
            info.left = left;
            info.top = top;
            info.width = width;
            info.height = height;
            info.x = x;
            info.y = y;
            info.cx = cx;
            info.cy = cy;
            return info;
        }

        friend bool operator==(CoordInfo const&, CoordInfo const&) = default;
    };

    // Text flags. Horizontal: 1, 2, 4; vertical: 8, 16, 32 (with 8 and 16 both set, bottom wins).
    enum AlignmentFlags {
        AlignLeft = 1,
        AlignRight = 2,
        AlignHCenter = 4,
        AlignTop = 8,
        AlignBottom = 16,
        AlignVCenter = 32,
        // Clips the text to its rectangle and sets the element flag when the text did not fit.
        ClipToRect = 0x100,
        // Measures without drawing.
        MeasureOnly = 0x1000,
    };

    enum RasterOperation { RopCopy = 0 };

    // Native pieces of controls; the values are those the controls pass.
    enum ControlElement {
        ControlChecked = 1,
        ControlUnchecked = 2,
        ControlScrollArrowLeft = 10,
        ControlScrollArrowRight = 11,
        ControlScrollArrowUp = 12,
        ControlScrollArrowDown = 13,
        ControlScrollTrackHorz = 14,
        ControlScrollTrackVert = 15,
        ControlScrollThumbHorz = 16,
        ControlScrollThumbVert = 17,
    };

    // Bits of DrawControlElement's state word.
    enum ControlState {
        StateDisabled = 1,
        StateFocused = 2,
        StateHot = 4,
        StatePressed = 8,
        StateChecked = 16
    };

    // Takes part in DrawStringEx: called before the text is laid out and after it was drawn.
    class MIREL7_API ITextFormatter {
    public:
        virtual ~ITextFormatter();
        virtual void BeforeFormatting(IPainter* painter) = 0;
        virtual void AfterFormatting(IPainter* painter) = 0;
    };

    virtual ~IPainter();

    // Frame. BeginPaint never clears what the surface shows.
    virtual void BeginPaint(int settings) = 0;
    virtual void EndPaint() = 0;
    // True when partial drawing is of no use: after the surface was created or resized, until the end of the
    // next paint pass.
    virtual bool NeedsFullRepaint() const = 0;

    // Attributes.
    virtual void SetFont(font const& f) = 0;
    virtual font GetFont() const = 0;
    virtual void GetFontMetrics(fontmetrics* metrics) = 0;
    virtual void SetPen(pen const& p) = 0;
    virtual pen GetPen() const = 0;
    virtual void SetBrush(brush const& b) = 0;
    virtual brush GetBrush() const = 0;
    virtual void SetBkColor(_color const& c) = 0;
    virtual void SetTextColor(_color const& c) = 0;
    virtual double GetDPIScale() const = 0;

    // Coordinates. "1" converts one point, "2" a rectangle given as two corners; `distance` true converts a
    // distance, leaving the origin out.
    virtual void SetCoordSystem(MapMode mode, CoordInfo const* info) = 0;
    virtual void GetCoordSystem(MapMode& mode, CoordInfo* info) const = 0;
    virtual void ConvertCoord1(point<double>* p, bool distance) const = 0;
    virtual void ConvertCoord2(point<double>* corners, bool distance) const = 0;
    virtual void DeconvertCoord1(point<double>* p, bool distance) const = 0;
    virtual void DeconvertCoord2(point<double>* corners, bool distance) const = 0;
    // The same for a rectangle. Implementations overriding the point forms bring these in with `using`.
    void ConvertCoord2(rectangle<double>* r, bool distance) const;
    void DeconvertCoord2(rectangle<double>* r, bool distance) const;

    // Clip. SetClipRect takes logical coordinates, `exclude` true removes the rectangle from the drawable
    // area; SimpleSetClipRect takes device coordinates. Both replace the clip in force (an exclusion cuts
    // it). The stored clip is the rectangle last set to include; ResetClip drops the clip but leaves the
    // stored rectangle, which its owner clears with ClearStoredClip.
    virtual void SetClipRect(double left, double top, double right, double bottom, bool exclude) = 0;
    virtual void SimpleSetClipRect(rectangle<double> const& deviceRect, bool exclude) = 0;
    rectangle<double> GetClipRect() const { return m_storedClip; }
    void ClearStoredClip() { m_storedClip = {}; }
    virtual void ResetClip() = 0;

    // Lines and shapes, with the pen for outlines and the brush for insides. A colour with the empty flag set
    // draws nothing.
    virtual void MoveTo(double x, double y) = 0;
    virtual void LineTo(double x, double y) = 0;
    virtual void Rectangle(double left, double top, double right, double bottom) = 0;
    virtual void RoundRect(double left, double top, double right, double bottom, double rx, double ry) = 0;
    virtual void FillRect(double left, double top, double right, double bottom) = 0;
    void FillRect(rectangle<double> const& r) { FillRect(r.left, r.top, r.right, r.bottom); }
    // A dotted outline in the text colour.
    virtual void FocusRect(double left, double top, double right, double bottom) = 0;
    virtual void Polygon(point<double> const* points, int count) = 0;
    // Direct access to the surface, cheap enough to be called per pixel. GetPixel outside the surface answers
    // the empty colour (colour word 0xFFFFFFFF); SetPixel writes an opaque pixel and ignores alpha.
    virtual _color GetPixel(double x, double y) = 0;
    virtual void SetPixel(double x, double y, _color c) = 0;

    // Text. Both draw forms answer the size taken. `length` -1 means up to the terminating zero. A line feed
    // always starts a line; DrawStringEx given delimiters also wraps at them to the rectangle's width.
    virtual size<double> DrawString(rectangle<double> const& r, char const* text, int flags, int length) = 0;
    size<double> DrawString(rectangle<double> const& r, std::string const& text, int flags) {
        return DrawString(r, text.c_str(), flags, static_cast<int>(text.size()));
    }
    virtual size<double> DrawStringEx(rectangle<double> const& r, char const* text, int flags, int length,
                                      char const* delimiters, ITextFormatter* formatter) = 0;
    // Where a text of `textSize` goes inside `r` under the alignment bits of `flags`.
    virtual rectangle<double> GetTextRect(rectangle<double> const& r, size<double> const& textSize,
                                          int flags) const = 0;
    // The size of `text` in the current font, unwrapped. `breakLines` false measures it as one line;
    // `logical` true answers in logical units of the current mapping, false in device pixels.
    virtual size<double> GetTextSize(std::string const& text, int flags = 0, int length = -1,
                                     bool breakLines = true, bool logical = true) = 0;

    // Pictures; rectangles with right and bottom exclusive.
    virtual void DrawRasterPicture(IRasterPicture* picture, double left, double top, double right,
                                   double bottom, RasterOperation op = RopCopy) = 0;
    // Draws the part `source` (picture pixels) of `picture` into (left, top, right, bottom).
    virtual void DrawRasterPictureEx(IRasterPicture* picture, double left, double top, double right,
                                     double bottom, rectangle<int> const& source,
                                     RasterOperation op = RopCopy) = 0;
    // Copies what the surface shows in the rectangle into `picture`, which takes its size.
    virtual void ExtractRasterPicture(IRasterPicture* picture, double left, double top, double right,
                                      double bottom) = 0;
    // Copies the rectangle of the surface into `picture` at `destination` (picture pixels), keeping the rest.
    virtual void ExtractRasterPictureEx(IRasterPicture* picture, double left, double top, double right,
                                        double bottom, point<int> const& destination) = 0;
    // Lays `picture` over the rectangle with one constant alpha, 0 transparent to 255 opaque.
    virtual void AlphaBlend(double left, double top, double right, double bottom, IRasterPicture* picture,
                            int alpha) = 0;
    void AlphaBlend(rectangle<double> const& r, IRasterPicture* picture, int alpha) {
        AlphaBlend(r.left, r.top, r.right, r.bottom, picture, alpha);
    }
    // Draws the part (srcX, srcY, width, height) of an XPM image with its top left at (x, y).
    virtual void DrawXPM(XPMImage const& image, double x, double y, int srcX, int srcY, int width,
                         int height) = 0;
    // Draws a native piece of a control in `state` (the control's native state word).
    virtual void DrawControlElement(ControlElement element, double left, double top, double right,
                                    double bottom, int state) = 0;

    // State the framework reads and writes directly.

    // While set, pictures and native control pieces are drawn greyed.
    bool IsDisabled() const { return m_disabled; }
    void SetDisabled(bool disabled) { m_disabled = disabled; }
    // While `active`, every colour drawn is replaced by `color`.
    void SetColorSubstitution(_color const& color, bool active) {
        m_substitute = color;
        m_substituting = active;
    }
    _color GetSubstituteColor() const { return m_substitute; }
    bool IsSubstitutingColor() const { return m_substituting; }
    // One byte that elements clear before their paint signal; ClipToRect text sets it when the text did not
    // fit.
    unsigned char GetElementFlag() const { return m_elementFlag; }
    void SetElementFlag(unsigned char flag) { m_elementFlag = flag; }
    bool IsInPaint() const { return m_inPaint; }
    // The control's background picture, the colour around it and its place.
    void SetBackground(mirel_ptr<IRasterPicture> picture, _color const& color, rectangle<int> const& place) {
        m_bkPicture = std::move(picture);
        m_bkPictureColor = color;
        m_bkPicturePlace = place;
    }
    mirel_ptr<IRasterPicture> GetBackgroundPicture() const { return m_bkPicture; }
    _color GetBackgroundColor() const { return m_bkPictureColor; }
    rectangle<int> GetBackgroundPlace() const { return m_bkPicturePlace; }

protected:
    rectangle<double> m_storedClip;
    bool m_inPaint = false;
    bool m_disabled = false;
    _color m_substitute;
    bool m_substituting = false;
    unsigned char m_elementFlag = 0;
    mirel_ptr<IRasterPicture> m_bkPicture;
    _color m_bkPictureColor;
    rectangle<int> m_bkPicturePlace;
};

} // namespace mirel7
