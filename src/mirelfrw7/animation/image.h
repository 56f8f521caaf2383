#pragma once

#include <mirelfrw7/animation/animation.h>
#include <mirelfrw7/animation/animation_process.h>
#include <mirelfrw7/core/visual_element.h>
#include <mirelfrw7/export.h>

namespace mirel7 {
class IImageList;
}

namespace mirelfrw7 {

// An element that shows one picture: an entry of the control's image list, a raster picture or an
// animation, placed inside its bounds by alignment flags and margins, and optionally sizing itself to it.
class MIRELFRW7_API CImage : public CVisualElement, public IAnimationProcess::IUpdater {
public:
    // Alignment flags; with neither flag of an axis the picture is centred on it.
    enum ImageAlign { AlignImageLeft = 1, AlignImageRight = 2, AlignImageTop = 8, AlignImageBottom = 16 };

    signal_t<CImage*> sigAnimationUpdated;

    CImage(CVisualElement* parent, size<int> const& elementSize = {}, Alignment alignment = AlignNone);
    // Stops the process and takes this element away from it before anything of the element is freed.
    ~CImage() override;

    void SetImageIndex(int index);
    void SetRasterPicture(mirel_ptr<IRasterPicture> picture);
    // Replacing a running animation stops it first and starts the new one in its place.
    void SetAnimation(mirel_ptr<IAnimation> animation);
    // Without an animation or a control, the start waits for them.
    void StartAnimation();
    void StopAnimation();
    bool IsAnimated() const;
    void SetImageAlign(int align);
    void SetAutoSize(bool autoSize);
    void SetOffset(rectangle<int> const& offset);
    void Clear();
    bool IsAssigned() const;
    size<int> GetImageSize() const;
    point<int> GetDrawStartPos(size<int> const& imageSize) const;

    virtual void RecalculateSize();
    void UpdateAnimation() override;
    // An image out of sight does not move its frames.
    bool IsUpdatable() const override { return IsDisplayable(); }

    void DrawContent(IPainter* painter) override;
    void AfterSetControl() override;
    // A running animation never outlives its window.
    void HandleControlDestroy() override;

private:
    mirel7::IImageList* GetImageList() const;

    int m_imageIndex = -1;
    mirel_ptr<IRasterPicture> m_picture;
    mirel_ptr<IAnimation> m_animation;
    mirel_ptr<IAnimationProcess> m_process;
    bool m_startPending = false;
    bool m_autoSize = false;
    rectangle<int> m_offset;
    int m_imageAlign = 36;
};

} // namespace mirelfrw7
