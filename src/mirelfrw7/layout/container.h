#pragma once

#include <mirelfrw7/core/visual_element.h>
#include <mirelfrw7/export.h>

#include <mirel7/custom_control.h>
#include <mirel7/notify.h>

#include <string>

namespace mirelfrw7 {

// Hosts a native control of the base layer in the tree: the control covers the container's content
// rectangle, follows it about, is hidden whenever the container cannot be seen, and is shown only once the
// container behind it has painted. Focus goes both ways between the element and the native control.
class MIRELFRW7_API CContainer : public CVisualElement,
                                 public mirel7::CSubscriber<mirel7::ICustomControlNotify> {
public:
    CContainer(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);
    ~CContainer() override;

    // A hook for subclasses, told the native control's place in control coordinates after each move.
    virtual void FitControlPos(rectangle<int> const& position);
    void SetPos(rectangle<int> const& newRect, bool force) override;
    rectangle<int> GetContentRect() const override;
    void SetEnabled(bool enabled) override;
    void DrawContent(IPainter* painter) override;
    void AttributeChanged() override;
    void ProcessSetVisible(bool visible) override;
    void ProcessSetParentVisible(bool visible) override;
    void HandleGetFocus(CVisualElement* previous, bool direct) override;
    void HandleLostFocus(CVisualElement* next) override;
    void HandleControlDestroy() override;
    void HandleRefreshPos() override;
    std::string HandleAsString() const override;
    void CustomControlOnFocusIn(mirel7::ICustomControl* control) override;

    // Shares the ownership of `control` (null for none) and places it.
    void SetNativeControl(mirel7::ICustomControl* control);
    mirel7::ICustomControl* GetNativeControl() const { return m_native.get(); }
    void UpdateControlPos();
    void SetOffset(rectangle<int> const& offset);
    rectangle<int> const& GetOffset() const { return m_offset; }
    void SetManualControlPositioning(bool manual) { m_manualPositioning = manual; }
    bool GetManualControlPositioning() const { return m_manualPositioning; }
    // The native control's natural size, with the insets, as the stored size.
    void FitHeight();
    void FitWidth();
    // Shows the native control when a move or a show left it waiting for the container to paint.
    void ProcessNeedToShow();
    bool GetNeedToShow() const { return m_needToShow; }
    // Hides at once when the container cannot be seen; otherwise leaves the showing to the next paint.
    void CheckVisible();
    // The native control took the focus: the element follows without handing it back.
    void ControlFocusIn(mirel7::ICustomControl* control);
    rectangle<int> const& GetControlPosition() const { return m_controlPosition; }

protected:
    bool m_manualPositioning = false;
    bool m_needToShow = false;
    mirel_ptr<mirel7::ICustomControl> m_native;
    rectangle<int> m_offset;
    rectangle<int> m_controlPosition;

private:
    void Attach(bool attach);
    // Set while the native control's focus passes to the element, which must not pass it back.
    bool m_takingFocus = false;
};

} // namespace mirelfrw7
