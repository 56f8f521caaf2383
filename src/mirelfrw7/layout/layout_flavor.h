#pragma once

#include <mirelfrw7/core/visual_element.h>
#include <mirelfrw7/layout/layout.h>

namespace mirelfrw7 {

// The mix-in through which an element holds its orientation: inherited as a second base, it makes GetAlong,
// MakeRect and the rest the element's own operations, forwarded to the shared layout of its edge.
//
// A class that inherits it calls ChangeLayout in its constructor, and an element that follows its docking
// edge overrides SetAlignment with ChangeLayout(value) and then CVisualElement::SetAlignment(value).
//
// Text conversion is off by default: the geometry then turns with the edge while text stays horizontal.
class MIRELFRW7_API CLayoutFlavor : public ILayout {
public:
    // Always true, even when the layout stays the same.
    bool ChangeLayout(Alignment alignment);
    void SetTextConversion(bool on) { m_textConversion = on; }
    bool IsTextConverted() const { return m_textConversion; }

    mirel7::point<double>* IncAlong(mirel7::point<double>* p, double d) const override;
    mirel7::point<double>* IncAcross(mirel7::point<double>* p, double d) const override;
    double GetAlong(double x, double y) const override;
    double& GetAlongRef(double& x, double& y) const override;
    int& GetAlongRef(int& x, int& y) const override;
    double GetAcross(double x, double y) const override;
    double& GetAcrossRef(double& x, double& y) const override;
    int& GetAcrossRef(int& x, int& y) const override;
    mirel7::rectangle<int>* CutRect(mirel7::rectangle<int>* r,
                                    mirel7::rectangle<int> const& limit) const override;
    mirel7::point<double> MakePoint(double along, double across) const override;
    mirel7::rectangle<double> MakeRect(double along0, double across0, double along1,
                                       double across1) const override;
    // With text conversion off these leave the font alone and answer the flags unchanged.
    void ConvFont(mirel7::font* f) const override;
    int ConvTextAlign(int flags) const override;

private:
    // The layout in force; one that never called ChangeLayout is reported and served as the bottom edge.
    ILayout const& Layout() const;

    ILayout* m_layout = nullptr;
    bool m_textConversion = false;
};

} // namespace mirelfrw7
