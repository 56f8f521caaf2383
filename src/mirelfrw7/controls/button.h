#pragma once

#include <mirelfrw7/controls/caption.h>
#include <mirelfrw7/controls/click_handler.h>
#include <mirelfrw7/core/native_drawing_flavor.h>
#include <mirelfrw7/scroll/repeatable_operation.h>

#include <mirel7/border.h>

namespace mirelfrw7 {

// A caption that presses: mouse and keys drive its click handler, and it may keep clicking while held. It
// looks like the system's push button, or, with the native flag clear, like the framework's own frame.
//
// A button may be deleted from its own click slot: the click path touches nothing of it afterwards. A slot
// that still has work for the button's event chain asks for DeleteLater instead.
class MIRELFRW7_API CButton : public CCaption,
                              public CNativeDrawingFlavor,
                              public CClickHandler,
                              public CRepeatableOperation {
public:
    using BorderStyle = mirel7::BorderStyle;
    using BorderShape = mirel7::BorderShape;

    // Also at each repeat.
    signal_t<CButton*> sigButtonClick;

    CButton(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    virtual bool IsMouseOverButton(int x, int y) const;
    void ProcessStageChange(ClickStage stage) override;
    void ProcessClick() override;
    void ProcessRepeatOperation() override;

    void SetEnabled(bool enabled) override;
    void DrawContent(IPainter* painter) override;
    void ProcessSetVisible(bool visible) override;
    bool HandleButtonDown(int x, int y, int flags, MouseButton button) override;
    bool HandleButtonUp(int x, int y, int flags, MouseButton button) override;
    void HandleMouseHover(CVisualElement* previous) override;
    void HandleMouseLeave(CVisualElement* next) override;
    bool HandleKeyDown(int flags, int key) override;
    bool HandleKeyUp(int flags, int key) override;
    void DrawBackground(IPainter* painter) override;
    rectangle<int> GetInternalRect() const override;
    size<int> GetAutoSizeAdditionalExtent() const override;

    void SetStyle(BorderStyle style);
    void SetShape(BorderShape shape);
    void SetAutoRepeat(bool on) { m_autoRepeat = on; }
    // The StateDisabled, StateFocused, StatePressed and StateHot bits of the painter's native pieces.
    int GetNativeState() const;

    BorderStyle GetStyle() const { return m_style; }
    BorderShape GetShape() const { return m_shape; }
    bool GetAutoRepeat() const { return m_autoRepeat; }

protected:
    bool IsMouseElement() const;
    bool IsStagePressed() const { return m_stage == StagePressed; }

    BorderStyle m_style = mirel7::BorderRaised;
    BorderShape m_shape = mirel7::BorderBox;
    bool m_autoRepeat = false;

private:
    void DrawFlatBackground(IPainter* painter);
};

} // namespace mirelfrw7
