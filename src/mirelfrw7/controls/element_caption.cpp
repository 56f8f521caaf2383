#include <mirelfrw7/controls/element_caption.h>
#include <mirelfrw7/core/control.h>

namespace mirelfrw7 {

namespace {

// The element, its children and theirs.
template <class F>
void ForThreeLevels(CVisualElement* element, F const& apply) {
    apply(element);
    IChildren* const children = element->GetChildren();
    for (int i = 0; i < children->GetCount(); ++i) {
        CVisualElement* const child = children->GetItem(i);
        apply(child);
        IChildren* const grandChildren = child->GetChildren();
        for (int k = 0; k < grandChildren->GetCount(); ++k)
            apply(grandChildren->GetItem(k));
    }
}

} // namespace

// --- CElementCaption --------------------------------------------------------------------------------------

CElementCaption::CElementCaption(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CTransparentFlavor<CBevel>(parent, elementSize, alignment), m_helpButton(this, {14, 14}, AlignRight),
      m_caption(this, {420, 420}, AlignLeft) {
    m_transparent = true;
    m_helpButton.SetDynamic(false);
    m_helpButton.SetVisible(false);
    m_helpButton.sigButtonClick.connect(this, &CElementCaption::OnHelpButtonClick);
    m_caption.SetDynamic(false);
    m_caption.SetTransparent(true);
    m_caption.SetTextAlign(33);
    m_caption.SetTextLayout(true);
    for (CVisualElement* e : {static_cast<CVisualElement*>(this), static_cast<CVisualElement*>(&m_caption)}) {
        e->SetBkColor(ISysPalette::ColorShadow);
        e->SetFgColor(ISysPalette::ColorElementBackground);
    }
    // Text along the bar's own edge: plain on a bar docked on top, turned on one docked at the side.
    Layout();
}

bool CElementCaption::IsActive() const {
    return GetBkSysColor() == ISysPalette::ColorHighlight;
}

void CElementCaption::SetActive(bool active) {
    if (active == IsActive()) return;
    bool const image = IsBkImagePresented();
    ForThreeLevels(this, [&](CVisualElement* e) {
        e->SetBkColor(active ? ISysPalette::ColorHighlight : ISysPalette::ColorShadow);
        if (active)
            e->SetFgColor(ISysPalette::ColorHighlightText);
        else if (image)
            e->SetFgColor(LightOnPictureColor);
        else
            e->SetFgColor(ISysPalette::ColorElementBackground);
    });
}

void CElementCaption::SetHelpId(std::string const& id) {
    CTransparentFlavor<CBevel>::SetHelpId(id);
    m_helpButton.SetVisible(!id.empty());
}

void CElementCaption::Layout() {
    if (m_alignment >= AlignLeft && m_alignment <= AlignBottom) m_caption.SetAlignment(m_alignment);
}

void CElementCaption::SetAlignment(Alignment alignment) {
    CTransparentFlavor<CBevel>::SetAlignment(alignment);
    Layout();
}

void CElementCaption::DrawBackground(IPainter* painter) {
    rectangle<int> const b = GetBounds();
    brush fill;
    if (IsTransparent() && DrawBkImage(painter, b, {})) {
        fill.color = GetBkColor();
        DrawBlendBk(painter, b, fill, 100);
        return;
    }
    fill.color = mirel7::MixColors(GetBkColor(), m_caption.GetFgColor(), 0.4);
    painter->SetBrush(fill);
    painter->FillRect(b.left, b.top, b.right, b.bottom);
}

void CElementCaption::AttributeChanged() {
    CTransparentFlavor<CBevel>::AttributeChanged();
    if (!m_control) return;
    int const height = GetTextLineHeight() + static_cast<int>(3.0 * GetSizeScale());
    if (height != m_size.cy) SetHeight(height, false);
    int const s = static_cast<int>(GetSizeScale());
    SetContentOffset({3 * s, 0, s, 0});
}

void CElementCaption::AfterSetControl() {
    CTransparentFlavor<CBevel>::AfterSetControl();
    if (IsBkImagePresented())
        m_caption.SetFgColor(LightOnPictureColor);
    else
        m_caption.SetFgColor(ISysPalette::ColorElementBackground);
}

void CElementCaption::OnHelpButtonClick(CButton*) {
    if (m_control) m_control->ActivateHelp(m_helpId);
}

// --- CControlCaption --------------------------------------------------------------------------------------

CControlCaption::CControlCaption(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CElementCaption(parent, elementSize, alignment), m_arrowButton(this, {18, 18}, AlignTop) {
    m_children->MoveItem(m_children->GetIndex(&m_arrowButton), 0);
    m_arrowButton.SetDynamic(false);
    m_arrowButton.SetStyle(mirel7::BorderFlat);
    m_arrowButton.SetBkColor(ISysPalette::ColorShadow);
    m_arrowButton.SetFgColor(ISysPalette::ColorElementBackground);
    m_arrowButton.sigButtonDown.connect(this, &CControlCaption::ProcessClick);
    sigButtonDown.connect(this, &CControlCaption::ProcessClick);
    Layout();
}

// The caption hears a press on its arrow too, after the arrow: that one is the arrow's alone.
void CControlCaption::ProcessClick(CVisualElement* element, int, int, int, MouseButton button) {
    if (button != mirel7::ButtonLeft) return;
    if (element == this && m_control && IsAncestor(m_control->GetMouseElement(), &m_arrowButton)) return;
    sigCaptionClick(this);
}

void CControlCaption::Layout() {
    struct SPlace {
        Alignment button;
        CArrowButton::ArrowType arrow;
    };
    SPlace place;
    switch (m_alignment) {
    case AlignLeft:
        place = {AlignTop, CArrowButton::ArrowRight};
        break;
    case AlignRight:
        place = {AlignTop, CArrowButton::ArrowLeft};
        break;
    case AlignTop:
        place = {AlignRight, CArrowButton::ArrowTop};
        break;
    case AlignBottom:
        place = {AlignRight, CArrowButton::ArrowBottom};
        break;
    default:
        return;
    }
    m_arrowButton.SetAlignment(place.button);
    m_arrowButton.SetArrowType(place.arrow);
}

// The alignment is stored before the arrow is laid out by it.
void CControlCaption::SetAlignment(Alignment alignment) {
    CElementCaption::SetAlignment(alignment);
    Layout();
}

void CControlCaption::HandleChildrenMouseHover(CVisualElement* previous) {
    if (!IsAncestor(previous, this)) SetActive(true);
}

void CControlCaption::HandleChildrenMouseLeave(CVisualElement* next) {
    if (!IsAncestor(next, this)) SetActive(false);
}

void CControlCaption::SetActive(bool active) {
    CElementCaption::SetActive(active);
    m_arrowButton.SetStyle(active ? mirel7::BorderRaised : mirel7::BorderFlat);
}

} // namespace mirelfrw7
