#pragma once

#include <mirelfrw7/controls/button.h>
#include <mirelfrw7/controls/image_holder.h>

#include <map>

namespace mirelfrw7 {

// A button that toggles a flag at each click and draws a check image with its text to the right.
class MIRELFRW7_API CCheckBox : public CButton {
public:
    // Emitted when the flag changes, by a click or by code.
    signal_t<CCheckBox*> sigCheckChanged;

    CCheckBox(CVisualElement* parent, size<int> const& elementSize, Alignment alignment);

    // Draws the check image at the left and answers the width it took.
    virtual int DrawCheckImage(IPainter* painter);
    virtual bool ChangeAllowed() const { return true; }

    std::string HandleAsString() const override;
    size<int> GetAutoSizeAdditionalExtent() const override;
    size<int> GetImageSize() const override;
    void DrawContent(IPainter* painter) override;

    void SetChecked(bool checked);
    void ChangeCheck(CButton* button);
    bool IsChecked() const { return m_checked; }

protected:
    bool m_checked = false;
};

// A check box whose images come from a client, one per state word, each asked for once and kept.
class MIRELFRW7_API CCustomCheckBox : public CCheckBox {
public:
    // Asks for the image of a state word (GetNativeState, with StateChecked when checked).
    signal_t<CCustomCheckBox*, int, CImageHolder&> sigGetImage;

    using CCheckBox::CCheckBox;

    int DrawCheckImage(IPainter* painter) override;
    size<int> GetImageSize() const override;

protected:
    std::map<int, CImageHolder> m_images;
};

// A custom check box that a click turns on and never off; a CRadioGroup turns the others off.
class MIRELFRW7_API CRadioButton : public CCustomCheckBox {
public:
    using CCustomCheckBox::CCustomCheckBox;

    bool ChangeAllowed() const override { return !m_checked; }
    std::string HandleAsString() const override;
};

} // namespace mirelfrw7
