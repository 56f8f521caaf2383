#pragma once

#include <mirelfrw7/chart/axis.h>
#include <mirelfrw7/export.h>

#include <string>

namespace mirelfrw7 {

class ICaptionSource;

// A ruler of whole categories: a tick and a caption for each index, as wide as the scroll model makes its
// step, so categories may differ in width. There is no step to compute.
class MIRELFRW7_API CCategoricalAxis : public CAxis {
public:
    using CAxis::CAxis;

    // A hook for a subclass to move a caption's rectangle before it is drawn.
    virtual void updateCategoryLabelRect(rectangle<double>& rect, double value, double span);
    virtual void drawOneCategoryLabel(IPainter* painter, rectangle<double> const& rect,
                                      std::string const& text);

    void DrawContent(IPainter* painter) override;

    // Not owned; without one each category reads as its index.
    void SetCaptionSource(ICaptionSource* source) { m_captionSource = source; }
    ICaptionSource* GetCaptionSource() const { return m_captionSource; }

    void DrawLabel(IPainter* painter, point<double> const& at, double value, double span);
    rectangle<double> getCategoryLabelRect(IPainter* painter, point<double> const& at, double value,
                                           double span);
    std::string getCaption(double value) const;
    rectangle<double> const& GetLastLabelRect() const { return m_lastLabelRect; }

protected:
    ICaptionSource* m_captionSource = nullptr;
    rectangle<double> m_lastLabelRect;
};

} // namespace mirelfrw7
