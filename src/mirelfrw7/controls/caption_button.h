#pragma once

#include <mirelfrw7/controls/picture_button.h>

namespace mirelfrw7 {

// A foreground that stays readable on background pictures, whatever the palette: title bars and their
// buttons use it over a background picture.
inline constexpr _color LightOnPictureColor{255, 255, 255};

// A small picture button for title bars: it takes no focus, and under the mouse or pressed it lays a light
// patch over its parent's background behind the picture.
class MIRELFRW7_API CCaptionButton : public CPictureButton {
public:
    CCaptionButton(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    void DrawHighlightedContent(IPainter* painter) override;
    void DrawPressedContent(IPainter* painter) override;
    // `alpha` 255 is the light colour alone, 0 the parent's background alone.
    void DrawBk(IPainter* painter, int alpha);
};

// The question mark of a title bar, yellow under the mouse.
class MIRELFRW7_API CHelpButton : public CCaptionButton {
public:
    CHelpButton(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);
};

} // namespace mirelfrw7
