#pragma once

#include <mirelfrw7/core/transparent_flavor.h>
#include <mirelfrw7/core/visual_element.h>
#include <mirelfrw7/export.h>

#include <mirel7/border.h>

namespace mirelfrw7 {

// A frame drawn by the base layer around the children, inset from the element's bounds; the children dock
// inside it, inset again by the content offset. The default shape draws nothing but keeps the insets.
class MIRELFRW7_API CBevel : public CVisualElement {
public:
    using BorderStyle = mirel7::BorderStyle;
    using BorderShape = mirel7::BorderShape;

    CBevel(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    // Fills the bounds with the painter's brush, which OnDraw set to the background colour.
    virtual void DrawBackground(IPainter* painter);
    rectangle<int> GetContentRect() const override;
    void DrawContent(IPainter* painter) override;

    void SetStyle(BorderStyle style);
    void SetShape(BorderShape shape);
    void SetOffset(rectangle<int> const& offset);
    void SetContentOffset(rectangle<int> offset);
    BorderStyle GetStyle() const { return m_style; }
    BorderShape GetShape() const { return m_shape; }
    rectangle<int> const& GetOffset() const { return m_offset; }
    rectangle<int> const& GetContentOffset() const { return m_contentOffset; }
    // The bounds less the offset, normalised first.
    rectangle<double> GetBevelRect() const;

protected:
    BorderStyle m_style = mirel7::BorderFlat;
    BorderShape m_shape = mirel7::BorderNone;
    rectangle<int> m_offset;
    rectangle<int> m_contentOffset{2, 2, 2, 2};
};

// A bevel that paints only its frame: the area of the children is left to them, and a transparent border
// paints nothing at all.
class MIRELFRW7_API CBorder : public CTransparentFlavor<CBevel> {
public:
    using CTransparentFlavor<CBevel>::CTransparentFlavor;
    void DrawContent(IPainter* painter) override;
    // Whatever the flag, the parent shows through wherever no child covers the inside: a repaint of the
    // border alone would leave there what was drawn before.
    bool IsTransparent() const override;
};

} // namespace mirelfrw7
