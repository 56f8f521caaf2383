#pragma once

#include <mirelfrw7/controls/arrow_button.h>
#include <mirelfrw7/controls/caption.h>
#include <mirelfrw7/controls/caption_button.h>
#include <mirelfrw7/layout/bevel.h>

namespace mirelfrw7 {

// A title bar: a caption along the bar's edge and a help button that shows while there is help to give.
// Active, it takes the highlight colours.
class MIRELFRW7_API CElementCaption : public CTransparentFlavor<CBevel> {
public:
    CElementCaption(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    virtual void SetActive(bool active);

    void SetHelpId(std::string const& id) override;
    void SetAlignment(Alignment alignment) override;
    void DrawBackground(IPainter* painter) override;
    void AttributeChanged() override;
    void AfterSetControl() override;

    bool IsActive() const;
    void Layout();
    void OnHelpButtonClick(CButton* button);

    CCaption& GetCaption() { return m_caption; }
    CHelpButton& GetHelpButton() { return m_helpButton; }

protected:
    CHelpButton m_helpButton;
    CCaption m_caption;
};

// A title bar with an arrow button and a click signal: a press on the bar or on its arrow, once.
class MIRELFRW7_API CControlCaption : public CElementCaption {
public:
    signal_t<CControlCaption*> sigCaptionClick;

    CControlCaption(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    void SetAlignment(Alignment alignment) override;
    void HandleChildrenMouseHover(CVisualElement* previous) override;
    void HandleChildrenMouseLeave(CVisualElement* next) override;
    void SetActive(bool active) override;

    void Layout();
    CArrowButton& GetArrowButton() { return m_arrowButton; }

private:
    void ProcessClick(CVisualElement* element, int x, int y, int flags, MouseButton button);

    CArrowButton m_arrowButton;
};

} // namespace mirelfrw7
