#include <mirelfrw7/scroll/scroll_box.h>

namespace mirelfrw7 {

using mirel7::CScrollEvent;

double CScrollBox::CInternalScrollModel::GetFrom() const {
    return m_wrapped ? m_wrapped->GetFrom() : 0.0;
}

double CScrollBox::CInternalScrollModel::GetTo() const {
    return m_wrapped ? m_wrapped->GetTo() : 0.0;
}

double CScrollBox::CInternalScrollModel::GetStart() const {
    return m_wrapped ? m_wrapped->GetStart() : 0.0;
}

int CScrollBox::CInternalScrollModel::GetMinScrollDistance() const {
    return m_wrapped ? m_wrapped->GetMinScrollDistance() : 0;
}

bool CScrollBox::CInternalScrollModel::IsFixedStepSize() const {
    return !m_wrapped || m_wrapped->IsFixedStepSize();
}

double CScrollBox::CInternalScrollModel::GetStepSize(double step) const {
    return m_wrapped ? m_wrapped->GetStepSize(step) : 1.0;
}

void CScrollBox::CInternalScrollModel::SetStepSize(double, double) const {
    m_box->RefreshScroll();
}

void CScrollBox::CInternalScrollModel::SetMeasure(std::pair<double, int> measure) {
    if (m_wrapped) m_wrapped->SetMeasure(measure);
    m_box->RefreshScroll();
}

std::pair<double, int> CScrollBox::CInternalScrollModel::GetMeasure() const {
    return m_wrapped ? m_wrapped->GetMeasure() : std::pair<double, int>{1.0, 1};
}

bool CScrollBox::CInternalScrollModel::IsInseparableStep() const {
    return m_wrapped && m_wrapped->IsInseparableStep();
}

void CScrollBox::CInternalScrollModel::Update() {
    m_box->RefreshScroll();
}

void CScrollBox::CVertInternalScrollModel::SetStart(double start) {
    m_box->VertScroll(CScrollEvent::SetPosition, start);
    m_box->RefreshScroll();
}

void CScrollBox::CHorzInternalScrollModel::SetStart(double start) {
    m_box->HorzScroll(CScrollEvent::SetPosition, start);
    m_box->RefreshScroll();
}

} // namespace mirelfrw7
