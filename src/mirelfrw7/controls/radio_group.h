#pragma once

#include <mirelfrw7/core/signal.h>
#include <mirelfrw7/export.h>

#include <vector>

namespace mirelfrw7 {

class CCheckBox;
class CRadioButton;
class CVisualElement;

// Keeps a set of radio buttons mutually exclusive: after any clicks, keys and removals exactly one of them
// is checked, none when the group is empty. It owns no button; a destroyed button leaves the group.
class MIRELFRW7_API CRadioGroup : public tarnkit2::subscriber_base_t {
public:
    tarnkit2::signal_t<CRadioGroup*, int> sigCurrentChanged;

    // A button already in the group is ignored.
    void Add(CRadioButton* button);
    // Out of range unchecks the current button.
    void SetCurrent(int index);
    void HandleChecked(CCheckBox* box);

    int GetCurrent() const { return m_current; }
    int GetCount() const { return static_cast<int>(m_buttons.size()); }
    CRadioButton* GetButton(int index) const { return m_buttons[static_cast<std::size_t>(index)].button; }

private:
    // The element is kept beside the button: when it reports its death, the button is no more, and only
    // the element's address is left to compare.
    struct SMember {
        CRadioButton* button;
        CVisualElement* element;
    };

    int IndexOf(CVisualElement const* element) const;
    void HandleDestroy(CVisualElement* element);

    std::vector<SMember> m_buttons;
    int m_current = -1;
};

} // namespace mirelfrw7
