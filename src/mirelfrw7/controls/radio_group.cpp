#include <mirelfrw7/controls/check_box.h>
#include <mirelfrw7/controls/radio_group.h>

#include <algorithm>

namespace mirelfrw7 {

int CRadioGroup::IndexOf(CVisualElement const* element) const {
    auto const it = std::find_if(m_buttons.begin(), m_buttons.end(),
                                 [element](SMember const& m) { return m.element == element; });
    return it == m_buttons.end() ? -1 : static_cast<int>(it - m_buttons.begin());
}

void CRadioGroup::Add(CRadioButton* button) {
    if (!button || IndexOf(button) >= 0) return;
    m_buttons.push_back({button, button});
    button->sigCheckChanged.connect(this, &CRadioGroup::HandleChecked);
    button->sigDestroy.connect(this, &CRadioGroup::HandleDestroy);
    if (m_current < 0 && button->IsChecked())
        SetCurrent(GetCount() - 1);
    else
        button->SetChecked(false);
}

void CRadioGroup::HandleChecked(CCheckBox* box) {
    if (!box || !box->IsChecked()) return;
    int const index = IndexOf(box);
    for (int i = 0; i < GetCount(); ++i)
        if (i != index) GetButton(i)->SetChecked(false);
    SetCurrent(index);
}

void CRadioGroup::SetCurrent(int index) {
    int const old = m_current;
    if (index >= 0 && index < GetCount()) {
        GetButton(index)->SetChecked(true);
        m_current = index;
    } else if (old >= 0 && old < GetCount()) {
        GetButton(old)->SetChecked(false);
        m_current = -1;
    }
    if (m_current != old) sigCurrentChanged(this, m_current);
}

// The check passes to the button that takes the place of a current one that goes, or to the new last one.
void CRadioGroup::HandleDestroy(CVisualElement* element) {
    int const index = IndexOf(element);
    if (index < 0) return;
    m_buttons.erase(m_buttons.begin() + index);
    if (index > m_current) return;
    if (index < m_current) {
        --m_current;
        return;
    }
    m_current = -1;
    if (m_buttons.empty()) {
        sigCurrentChanged(this, -1);
        return;
    }
    SetCurrent(std::min(index, GetCount() - 1));
}

} // namespace mirelfrw7
