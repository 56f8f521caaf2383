#include <mirelfrw7/animation/image.h>
#include <mirelfrw7/core/clip_holder.h>
#include <mirelfrw7/core/control.h>

#include <mirel7/image_list.h>
#include <mirel7/painter.h>
#include <mirel7/raster_picture.h>
#include <mirel7/sys_window.h>

#include <cstdint>
#include <optional>

namespace mirelfrw7 {

namespace {
// Where a picture of `length` starts between `low` and `high` (inclusive) with margins: at the low end,
// at the high end, or centred, an odd difference rounding towards zero.
int StartAlong(int flags, int lowFlag, int highFlag, int low, int high, int lowMargin, int highMargin,
               int length) {
    if (flags & lowFlag) return low + lowMargin;
    if (flags & highFlag) return high - highMargin - length;
    return (lowMargin - highMargin + low + high - length) / 2;
}
} // namespace

CImage::CImage(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CVisualElement(parent, elementSize, alignment) {}

CImage::~CImage() {
    if (!m_process) return;
    m_process->StopAnimation();
    m_process->SetUpdater(nullptr);
    m_process->SetAnimation(nullptr);
}

void CImage::SetImageIndex(int index) {
    if (index == m_imageIndex) return;
    m_imageIndex = index;
    m_picture.reset();
    RecalculateSize();
}

void CImage::SetRasterPicture(mirel_ptr<IRasterPicture> picture) {
    if (picture == m_picture) return;
    m_picture = std::move(picture);
    m_imageIndex = -1;
    RecalculateSize();
}

void CImage::SetAnimation(mirel_ptr<IAnimation> animation) {
    // The process points at the animation without holding it: it must let go before the animation may.
    if (m_process) {
        m_startPending = m_startPending || IsAnimated();
        m_process->StopAnimation();
        m_process->SetAnimation(nullptr);
    }
    m_animation = std::move(animation);
    if (m_startPending) StartAnimation();
}

void CImage::StartAnimation() {
    if (IsAnimated()) return;
    if (m_animation && m_control) {
        if (m_process)
            m_process->StopAnimation();
        else
            m_process = CreateAnimationProcess();
    }
    if (!m_process || !m_animation || !m_control) {
        m_startPending = true;
        return;
    }
    m_startPending = false;
    mirel7::ISysWindow* const window = m_control->GetWindow();
    m_process->SetProcessSynchronizer(window ? window->GetSynchronizer() : nullptr);
    m_process->SetAnimation(m_animation.get());
    m_process->SetUpdater(this);
    m_process->StartAnimation();
    RecalculateSize();
}

void CImage::StopAnimation() {
    m_startPending = false;
    if (m_process) m_process->StopAnimation();
    RecalculateSize();
}

bool CImage::IsAnimated() const {
    return m_animation && m_process && m_process->IsAnimated();
}

void CImage::SetImageAlign(int align) {
    if (align == m_imageAlign) return;
    m_imageAlign = align;
    Update(UpdateLocal);
}

void CImage::SetAutoSize(bool autoSize) {
    if (autoSize == m_autoSize) return;
    m_autoSize = autoSize;
    RecalculateSize();
}

void CImage::SetOffset(rectangle<int> const& offset) {
    if (offset == m_offset) return;
    m_offset = offset;
    RecalculateSize();
}

void CImage::Clear() {
    if (IsAnimated()) StopAnimation();
    m_imageIndex = -1;
    m_picture.reset();
    SetAnimation(nullptr);
}

bool CImage::IsAssigned() const {
    return m_imageIndex != -1 || m_picture || m_animation;
}

mirel7::IImageList* CImage::GetImageList() const {
    return m_imageIndex >= 0 && m_control ? m_control->GetImageList() : nullptr;
}

size<int> CImage::GetImageSize() const {
    if (IsAnimated()) return m_animation->GetSize();
    if (m_picture) return m_picture->GetSize();
    if (mirel7::IImageList* const images = GetImageList()) return images->GetImageSize(m_imageIndex);
    return {};
}

point<int> CImage::GetDrawStartPos(size<int> const& imageSize) const {
    rectangle<int> const b = GetBounds();
    rectangle<int> const& o = m_offset;
    return {StartAlong(m_imageAlign, AlignImageLeft, AlignImageRight, b.left, b.right, o.left, o.right,
                       imageSize.cx),
            StartAlong(m_imageAlign, AlignImageTop, AlignImageBottom, b.top, b.bottom, o.top, o.bottom,
                       imageSize.cy)};
}

void CImage::RecalculateSize() {
    if (!m_control) return;
    mirel7::ISysWindow* const window = m_control->GetWindow();
    if (!window || window->IsClosing()) return;
    if (!m_autoSize) return Update(UpdateLocal);
    size<int> const s = GetImageSize();
    SetSize({s.cx + m_offset.left + m_offset.right, s.cy + m_offset.top + m_offset.bottom}, false);
}

void CImage::UpdateAnimation() {
    sigAnimationUpdated(this);
    Update(UpdateLocal);
}

void CImage::DrawContent(IPainter* painter) {
    size<int> const s = GetImageSize();
    point<int> const at = GetDrawStartPos(s);
    rectangle<int> const b = GetBounds();
    bool const animated = IsAnimated();
    if (animated) painter->FillRect(b.left, b.top, b.right, b.bottom);
    // A picture larger than the element is cut at its edges: the pixels beyond them belong to whatever lies
    // there, and a repaint of the element alone would never put them right. The clip cannot narrow below
    // two pixels, so a thinner element shows no picture at all rather than one spilling out.
    std::int64_t const right = std::int64_t(at.x) + s.cx - 1, bottom = std::int64_t(at.y) + s.cy - 1;
    bool const fits = at.x >= b.left && at.y >= b.top && right <= b.right && bottom <= b.bottom;
    if (!fits && (std::int64_t(b.right) - b.left < 1 || std::int64_t(b.bottom) - b.top < 1)) return;
    std::optional<CClipHolder> clip;
    if (!fits) clip.emplace(painter, rectangle<double>(b.left, b.top, b.right, b.bottom));
    if (animated) {
        m_animation->Draw(painter, at.x, at.y);
    } else if (m_picture) {
        painter->DrawRasterPicture(m_picture.get(), at.x, at.y, at.x + s.cx, at.y + s.cy, IPainter::RopCopy);
    } else if (mirel7::IImageList* const images = GetImageList()) {
        images->Draw(painter, m_imageIndex, at.x, at.y, 0, 0);
    }
}

void CImage::AfterSetControl() {
    RecalculateSize();
    if (m_startPending) StartAnimation();
}

void CImage::HandleControlDestroy() {
    if (m_process) m_process->StopAnimation();
}

} // namespace mirelfrw7
