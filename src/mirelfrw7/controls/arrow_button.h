#pragma once

#include <mirelfrw7/controls/button.h>

namespace mirelfrw7 {

// A button showing a double chevron that points to one side.
class MIRELFRW7_API CArrowButton : public CButton {
public:
    enum ArrowType { ArrowLeft = 0, ArrowTop = 1, ArrowRight = 2, ArrowBottom = 3 };

    CArrowButton(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    void DrawContent(IPainter* painter) override;
    void DrawLeftArrow(IPainter* painter, rectangle<int> const& r);
    void DrawTopArrow(IPainter* painter, rectangle<int> const& r);
    void DrawRightArrow(IPainter* painter, rectangle<int> const& r);
    void DrawBottomArrow(IPainter* painter, rectangle<int> const& r);

    void SetArrowType(ArrowType type);
    // Scaled for the display.
    void SetArrowSize(int size);
    ArrowType GetArrowType() const { return m_arrowType; }
    int GetArrowSize() const { return m_arrowSize; }

private:
    // The two chevrons, the second a gap further on, with their tips along x (`horizontal`) or y, towards
    // growing coordinates when `forward`; centred in `r`.
    void DrawChevrons(IPainter* painter, rectangle<int> const& r, bool horizontal, bool forward);

    ArrowType m_arrowType = ArrowLeft;
    int m_arrowSize;
};

} // namespace mirelfrw7
