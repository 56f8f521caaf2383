#include <mirelfrw7/controls/picture_button.h>
#include <mirelfrw7/core/control.h>

#include <mirel7/image_list.h>

namespace mirelfrw7 {

namespace {

int Sign(int v) {
    return (v > 0) - (v < 0);
}

} // namespace

// --- ImageInfo --------------------------------------------------------------------------------------------

int CPictureButton::ImageInfo::GetWidth(mirel7::IImageList* images) const {
    if (imageIndex >= 0 && images) return images->GetImageSize(imageIndex).cx;
    if (picture) return picture->GetSize().cx;
    int w = xpm.GetWidth();
    ApplyDPIScale(w);
    return w;
}

int CPictureButton::ImageInfo::GetHeight(mirel7::IImageList* images) const {
    if (imageIndex >= 0 && images) return images->GetImageSize(imageIndex).cy;
    if (picture) return picture->GetSize().cy;
    int h = xpm.GetHeight();
    ApplyDPIScale(h);
    return h;
}

void CPictureButton::ImageInfo::DrawImage(IPainter* painter, mirel7::IImageList* images, int x, int y) const {
    if (imageIndex >= 0 && images) {
        if (fillBackground) painter->FillRect(x, y, x + GetWidth(images) - 1, y + GetHeight(images) - 1);
        images->Draw(painter, imageIndex, x, y, 0, 0);
    } else if (picture) {
        painter->DrawRasterPicture(picture.get(), x, y, x + GetWidth(images), y + GetHeight(images));
    } else {
        painter->DrawXPM(xpm, x, y, 0, 0, -1, -1);
    }
}

// --- CPictureButton ---------------------------------------------------------------------------------------

CPictureButton::CPictureButton(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CCustomButton(parent, elementSize, alignment) {
    SetAutoSize(true);
}

mirel7::IImageList* CPictureButton::Images() const {
    return m_control ? m_control->GetImageList() : nullptr;
}

void CPictureButton::SetImage(Look look, ImageInfo const& info) {
    m_images[look] = info;
    if (look == LookNormal) RecalculateSize();
    Update(UpdateLocal);
}

rectangle<int> CPictureButton::GetContentRect() const {
    ImageInfo const& normal = m_images[LookNormal];
    int const w = normal.GetWidth(Images()), h = normal.GetHeight(Images());
    int const left = (m_bounds.Width() - w) / 2, top = (m_bounds.Height() - h) / 2;
    return {left, top, left + w - 1, top + h - 1};
}

bool CPictureButton::IsTransparent() const {
    ImageInfo const& normal = m_images[LookNormal];
    return m_transparent || normal.GetWidth(Images()) < m_bounds.Width() ||
           normal.GetHeight(Images()) < m_bounds.Height();
}

void CPictureButton::RecalculateSize() {
    ImageInfo const& normal = m_images[LookNormal];
    SetSize({normal.GetWidth(Images()), normal.GetHeight(Images())}, false);
}

bool CPictureButton::IsMouseOverButton(int x, int y) const {
    if (x < 0 && y < 0) {
        point<int> const at = GetMousePos();
        x = at.x;
        y = at.y;
    }
    rectangle<int> const r = GetContentRect();
    return Sign(x - (r.left + 1)) != Sign(x - r.right) && Sign(y - (r.top + 1)) != Sign(y - r.bottom);
}

void CPictureButton::DrawImage(IPainter* painter, ImageInfo const& info) {
    if (!painter) return;
    mirel7::IImageList* const images = Images();
    info.DrawImage(painter, images, (m_bounds.Width() - info.GetWidth(images)) / 2,
                   (m_bounds.Height() - info.GetHeight(images)) / 2);
}

void CPictureButton::DrawOrNormal(IPainter* painter, ImageInfo const& info) {
    DrawImage(painter, info.IsPresent(Images()) ? info : m_images[LookNormal]);
}

void CPictureButton::DrawNormalContent(IPainter* painter) {
    DrawImage(painter, m_images[LookNormal]);
}
void CPictureButton::DrawHighlightedContent(IPainter* painter) {
    DrawOrNormal(painter, m_images[LookHighlighted]);
}
void CPictureButton::DrawPressedContent(IPainter* painter) {
    DrawOrNormal(painter, m_images[LookPressed]);
}

void CPictureButton::DrawDisabledContent(IPainter* painter, bool& drawn) {
    ImageInfo const& disabled = m_images[LookDisabled];
    if (disabled.IsPresent(Images()))
        DrawImage(painter, disabled);
    else
        DrawImage(painter, BuidDisabledImage(Images()));
    drawn = true;
}

// A picture of an image list is greyed by the list's own disabled drawing instead.
CPictureButton::ImageInfo CPictureButton::BuidDisabledImage(mirel7::IImageList*) const {
    ImageInfo greyed = m_images[LookNormal];
    greyed.xpm = greyed.xpm.GetDisabled(nullptr);
    return greyed;
}

} // namespace mirelfrw7
