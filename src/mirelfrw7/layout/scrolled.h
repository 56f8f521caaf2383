#pragma once

#include <mirelfrw7/core/transparent_flavor.h>
#include <mirelfrw7/core/visual_element.h>
#include <mirelfrw7/export.h>

namespace mirelfrw7 {

// An element larger than the parent it shows in, moved about inside it: the parent is the window onto it.
// Moving it emits the resize signal too, so that whoever holds it learns that it scrolled. While it clips
// to its parent, the navigation keys move it, always keeping the window covered.
class MIRELFRW7_API CScrolled : public CTransparentFlavor<CVisualElement> {
public:
    CScrolled(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    void SetPos(rectangle<int> const& newRect, bool force) override;
    // The parent's bounds in this element's coordinates while it clips to its parent; else all zero.
    rectangle<int> GetDrawBounds() const override;
    void DrawContent(IPainter* painter) override;
    bool HandleKeyDown(int flags, int key) override;

    // Both move by `d` pixels, then back as far as needed to keep the window covered.
    void JumpVert(int d);
    void JumpHorz(int d);
    void GotoEnd();
    void GotoEndLine();
    void GotoBegin();
    void GotoBeginLine();

    void SetClipToParent(bool clip) { m_clipToParent = clip; }
    bool GetClipToParent() const { return m_clipToParent; }

protected:
    bool m_clipToParent = true;
};

} // namespace mirelfrw7
