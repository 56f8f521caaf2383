#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/scroll/scrollable_element_ex.h>

#include <string>
#include <vector>

namespace mirelfrw7 {

class CScrollConverter;
class IUnitConverter;

// A ruler along any edge: ticks and numeric labels over the visible part of the scroll model running along
// it. The step between labels follows the model's scale, so zooming or scrolling the model redraws it with
// a step and a number of decimals that suit; nothing of the range is kept here.
class MIRELFRW7_API CAxis : public CScrollableElementEx {
public:
    CAxis(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    // The thickness that a label as wide as `sample` ("9999" when empty) needs; 0 without a painter.
    virtual int CalcMinHeight(std::string const& sample) const;
    // Not owned; null shows logical values. No repaint is asked for.
    virtual void SetUnitConverter(IUnitConverter* converter);
    virtual void DrawBackground(IPainter* painter);
    // One tick from `at` across the strip; `at` ends at the tick's far end.
    virtual void DrawLine(IPainter* painter, point<double>* at, bool major);
    // Called before each label, for a subclass to set colours or a font.
    virtual void PrepareAttr(point<double> const& at, double value);
    virtual std::string GetLabelText(double value, double step) const;

    void DrawContent(IPainter* painter) override;
    bool ScrollContent(int dx, int dy) override;
    void ProcessSetControl(IControl* control) override;

    void SetAxisOffset(int offset);
    void SetLabelOffset(int offset);
    void SetTickMarksSize(int major, int minor);
    // The step and subdivisions for the model's present scale, measuring labels with the painter's font and
    // mapping; nothing without a model.
    void CalcLogicStep(IPainter* painter);
    // Draws the label of the tick at `at` unless it would run into the previous one; answers where the
    // label ends along the axis.
    double DrawLabel(IPainter* painter, point<double> const& at, double value, double previousEnd,
                     double axisEnd);
    // The room a label of `value` takes along the axis with the least gap after it, in logical units.
    double GetLabelTextSize(CScrollConverter const& converter, IPainter* painter, double value,
                            double step) const;

    double GetStep() const { return m_step; }
    int GetSubdivisions() const { return m_subdivisions; }
    std::vector<double> const& GetMajorValues() const { return m_majorValues; }
    std::vector<double> const& GetMinorValues() const { return m_minorValues; }

protected:
    double m_step = 1.0;
    int m_subdivisions = 10;
    bool m_convertFont = true;
    int m_axisOffset = 0;
    int m_labelOffset = 2;
    int m_majorTick = 5;
    int m_minorTick = 2;
    int m_labelGap = 10;
    // Measuring is const, yet it refreshes the gap for the scale it measured at.
    mutable double m_labelGapLogic = 0;
    std::vector<double> m_majorValues;
    std::vector<double> m_minorValues;
    IUnitConverter* m_unitConverter = nullptr;

    // Whether `p` lies in `r`, borders included, whichever way round `r` is.
    static bool IsInside(point<double> const& p, rectangle<double> const& r);
    // The strip's thickness in pixels.
    int Thickness() const;
    // The painter's font turned for the edge when the axis converts fonts, set for the painter's life.
    class CFontHolder {
    public:
        CFontHolder(IPainter* painter, CAxis const& axis);
        ~CFontHolder();
        CFontHolder(CFontHolder const&) = delete;
        CFontHolder& operator=(CFontHolder const&) = delete;

    private:
        IPainter* m_painter;
        mirel7::font m_saved;
    };
};

} // namespace mirelfrw7
