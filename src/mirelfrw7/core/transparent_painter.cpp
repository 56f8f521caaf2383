#include <mirelfrw7/core/transparent_painter.h>

#include <mirel7/system.h>

namespace mirelfrw7 {

CTransparentPainter::CTransparentPainter(mirel7::IPainter* target, mirel7::rectangle<int> const& rect,
                                         int transparency)
    : m_target(target), m_rect(rect.Normalized()), m_transparency(transparency) {
    mirel7::ISystem* const system = mirel7::GetCurrentSystem();
    if (!m_target || !system || m_rect.Width() < 1 || m_rect.Height() < 1) return;
    m_picture = system->CreateRasterPicture(m_rect.Width(), m_rect.Height());
    m_painter = m_picture ? m_picture->GetPainter() : nullptr;
    if (m_painter) m_painter->BeginPaint(mirel7::IPainter::PaintPlain);
}

CTransparentPainter::~CTransparentPainter() {
    if (!m_painter) return;
    m_painter->EndPaint();
    m_target->AlphaBlend(mirel7::rectangle<double>(m_rect), m_picture.get(), 255 - m_transparency);
}

} // namespace mirelfrw7
