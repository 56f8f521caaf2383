#include <mirel7/image_list.h>
#include <mirel7/painter.h>
#include <mirel7/png_picture.h>
#include <mirel7/window_painter.h>

namespace mirel7 {

CImageList::CImageList(size<int> const& imageSize) : m_imageSize(imageSize) {}

size<int> CImageList::GetImageSize(int index) const {
    return IsValid(index) ? m_imageSize : size<int>{};
}

void CImageList::Draw(IPainter* painter, int index, int x, int y, int cx, int cy) {
    if (!painter || !IsValid(index)) return;
    int const width = cx > 0 ? cx : m_imageSize.cx, height = cy > 0 ? cy : m_imageSize.cy;
    // The far corner in double: an image may stand at the very end of int.
    painter->DrawRasterPicture(m_images[std::size_t(index)].get(), x, y, double(x) + width,
                               double(y) + height);
}

void CImageList::DrawDisabled(IPainter* painter, int index, int x, int y, int cx, int cy) {
    if (!painter) return;
    // The painter greys every picture while its disabled flag is set; the caller's flag comes back after.
    bool const wasDisabled = painter->IsDisabled();
    painter->SetDisabled(true);
    Draw(painter, index, x, y, cx, cy);
    painter->SetDisabled(wasDisabled);
}

int CImageList::AddPicture(IRasterPicture* picture) {
    if (!picture || m_imageSize.cx < 1 || m_imageSize.cy < 1) return 0;
    size<int> const whole = picture->GetSize();
    int added = 0;
    for (int top = 0; top + m_imageSize.cy <= whole.cy; top += m_imageSize.cy) {
        for (int left = 0; left + m_imageSize.cx <= whole.cx; left += m_imageSize.cx) {
            rectangle<int> const cell{left, top, left + m_imageSize.cx, top + m_imageSize.cy};
            mirel_ptr<IRasterPicture> image = NewRasterPicture(0, 0);
            if (!image || !image->CopyFrom(picture, &cell)) return added;
            m_images.push_back(std::move(image));
            ++added;
        }
    }
    return added;
}

int CImageList::AddPng(std::string const& path) {
    mirel_ptr<IRasterPicture> const picture = LoadPngPicture(path);
    return AddPicture(picture.get());
}

} // namespace mirel7
