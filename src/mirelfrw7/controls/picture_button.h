#pragma once

#include <mirelfrw7/controls/custom_button.h>

#include <mirel7/xpm.h>

namespace mirel7 {
class IImageList;
}

namespace mirelfrw7 {

// A custom button that shows a picture per look, centred in its bounds, and sizes itself to the normal one.
// Only the picture answers the mouse: its first row and column do not.
class MIRELFRW7_API CPictureButton : public CCustomButton {
public:
    // One picture from an image list, a raster picture or an XPM picture, tried in that order.
    struct MIRELFRW7_API ImageInfo {
        int imageIndex = -1;
        bool fillBackground = false;
        mirel7::XPMImage xpm;
        mirel_ptr<IRasterPicture> picture;

        int GetWidth(mirel7::IImageList* images) const;
        int GetHeight(mirel7::IImageList* images) const;
        void DrawImage(IPainter* painter, mirel7::IImageList* images, int x, int y) const;
        // Has a size to show.
        bool IsPresent(mirel7::IImageList* images) const {
            return GetWidth(images) >= 1 && GetHeight(images) >= 1;
        }
    };

    CPictureButton(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    rectangle<int> GetContentRect() const override;
    bool IsTransparent() const override;
    void RecalculateSize() override;
    bool IsMouseOverButton(int x, int y) const override;
    void DrawDisabledContent(IPainter* painter, bool& drawn) override;
    void DrawNormalContent(IPainter* painter) override;
    void DrawHighlightedContent(IPainter* painter) override;
    void DrawPressedContent(IPainter* painter) override;

    void DrawImage(IPainter* painter, ImageInfo const& info);
    // A greyed copy of the normal picture, as an XPM picture.
    ImageInfo BuidDisabledImage(mirel7::IImageList* images) const;

    enum Look { LookNormal = 0, LookDisabled = 1, LookHighlighted = 2, LookPressed = 3 };
    // A new normal picture sizes the button again.
    void SetImage(Look look, ImageInfo const& info);
    ImageInfo const& GetImage(Look look) const { return m_images[look]; }

protected:
    mirel7::IImageList* Images() const;
    // The look `info`, or the normal one when `info` has nothing to show.
    void DrawOrNormal(IPainter* painter, ImageInfo const& info);

    ImageInfo m_images[4];
};

} // namespace mirelfrw7
