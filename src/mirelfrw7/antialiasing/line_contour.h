#pragma once

#include <mirelfrw7/antialiasing/cap_style.h>
#include <mirelfrw7/antialiasing/contour.h>

namespace antialiasing {

// What a line is: its ends, width, dash pattern, caps, opacity, gradient and the parts cut away at its ends.
struct LINE_CONTOUR_PARAMS {
    double m_x1, m_y1;
    double m_x2, m_y2;
    // Samples across the line.
    unsigned int m_width;
    // Samples per 100 units of length.
    int m_density;
    // 1 solid, 2 dash, 3 dot, 4 dash-dot, 5 dash-dot-dot; any other value draws no body.
    int m_dash;
    CapStyle m_startCap;
    CapStyle m_endCap;
    // The total share of one sample, in 255ths.
    int m_opacity;
    CColorInfo m_startColor;
    CColorInfo m_endColor;
    double m_startTrim;
    double m_endTrim;
};

// The defaults: a solid black line of width 1 from the origin to itself, without caps.
struct LineContourParams : LINE_CONTOUR_PARAMS {
    LineContourParams()
        : LINE_CONTOUR_PARAMS{
              0, 0, 0, 0, 1, 100, 1, CAP_NONE, CAP_NONE, 255, {0, 0, 0, 255, 0}, {0, 0, 0, 255, 0}, 0, 0} {}
};

// A straight line walked sample by sample along its axis: at each step a run of samples across the line,
// which widens and narrows for arrowheads and round caps.
class MIRELFRW7_API CLineContour : public CContour, public LineContourParams {
public:
    // One end's cap as it fits the line.
    struct CapParams {
        CapStyle m_style = CAP_NONE;
        double m_length = 0;
        double m_trim = 0;
        double m_radius = 0;
        double m_halfWidth = 0;
        // The margin in pixels that a box around the line needs at that end.
        int m_extra = 0;

        // No cap takes more than 40% of the untrimmed line.
        void Set(CapStyle style, unsigned int width, double length, double ownTrim, double otherTrim);
    };

    explicit CLineContour(unsigned long params) : CContour(params) {}
    ~CLineContour() override;

    // Adds the whole line; with a first contour given, hands the overlapping pixels to it.
    void Generate(CContour* overlayFirst, CContour* overlaySecond) override;
    // Only the caps, at the places they have with the body.
    void GenerateCaptionsOnly();
    static int GetExtraArea(CapStyle style, unsigned int width);

    // A run of `count` samples across the line, centred on (x, y).
    void AddPoint(double x, double y, CColorInfo& colour, unsigned int count);
    void DrawCaption(CapParams cap, bool atStart, double& x, double& y, double stepX, double stepY,
                     CColorInfo& colour, CColorInfoR& colourStep, bool gradient);

    bool m_captionsOnly = false;
    double m_sampleWeight = 0;
    double m_crossStepX = 0, m_crossStepY = 0;
    double m_crossHalfX = 0, m_crossHalfY = 0;

private:
    // The body after the start cap: `count` steps in the dash pattern.
    void DrawBody(double& x, double& y, double stepX, double stepY, unsigned count, CColorInfo& colour,
                  CColorInfoR& colourStep, bool gradient);
};

} // namespace antialiasing
