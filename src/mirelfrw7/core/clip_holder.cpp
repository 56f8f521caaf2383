#include <mirelfrw7/core/clip_holder.h>

#include <algorithm>

namespace mirelfrw7 {

using mirel7::rectangle;

CClipHolder::CClipHolder(mirel7::IPainter* painter, rectangle<double> const& rect,
                         rectangle<double> const& margins)
    : m_painter(painter) {
    if (!m_painter) return;
    m_savedClip = m_painter->GetClipRect();
    if (m_savedClip.IsAllZero()) {
        m_painter->SetClipRect(rect.left, rect.top, rect.right, rect.bottom, false);
        return;
    }
    // The saved clip is in device pixels with right and bottom exclusive: the wanted rectangle goes there
    // too, its inclusive far edges one further out at least.
    rectangle<double> wanted{rect.left + margins.left, rect.top + margins.top,
                             rect.right + std::max(margins.right, 1.0),
                             rect.bottom + std::max(margins.bottom, 1.0)};
    m_painter->ConvertCoord2(&wanted, false);
    rectangle<double> const clip = wanted.Intersect(m_savedClip);
    if (clip.Width() > 1.0 && clip.Height() > 1.0) {
        m_painter->ResetClip();
        m_painter->ClearStoredClip();
        m_painter->SimpleSetClipRect(clip, false);
    }
}

CClipHolder::~CClipHolder() {
    if (!m_painter) return;
    m_painter->ResetClip();
    m_painter->ClearStoredClip();
    if (!m_savedClip.IsAllZero()) m_painter->SimpleSetClipRect(m_savedClip, false);
}

} // namespace mirelfrw7
