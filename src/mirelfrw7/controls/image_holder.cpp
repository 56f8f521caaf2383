#include <mirelfrw7/controls/image_holder.h>

#include <mirel7/image_list.h>

namespace mirelfrw7 {

size<int> CImageHolder::GetSize(mirel7::IImageList* images) const {
    if (imageIndex >= 0 && images) return images->GetImageSize(imageIndex);
    if (picture) return picture->GetSize();
    return {xpm.GetWidth(), xpm.GetHeight()};
}

void CImageHolder::DrawImage(IPainter* painter, mirel7::IImageList* images, int x, int y) const {
    if (imageIndex >= 0 && images) {
        images->Draw(painter, imageIndex, x, y, 0, 0);
    } else if (picture) {
        size<int> const s = picture->GetSize();
        painter->DrawRasterPicture(picture.get(), x, y, x + s.cx, y + s.cy);
    } else if (xpm.GetWidth() > 0) {
        painter->DrawXPM(xpm, x, y, 0, 0, -1, -1);
    }
}

} // namespace mirelfrw7
