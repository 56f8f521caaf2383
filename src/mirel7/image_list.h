#pragma once

#include <mirel7/base.h>
#include <mirel7/export.h>
#include <mirel7/raster_picture.h>
#include <mirel7/types.h>

#include <string>
#include <vector>

namespace mirel7 {

class IPainter;

// The images of a control, handed to the elements that draw them: a list of equally sized images, told
// apart by index. Held through mirel_ptr by whoever made it; a control only points at it.
class MIREL7_API IImageList : public CBase {
public:
    ~IImageList() override;

    // The size of image `index`; all zero for an index outside the list.
    virtual size<int> GetImageSize(int index) const = 0;
    // Draws image `index` with its top left at (x, y), at (cx, cy) or, where those are 0 or less, at its own
    // size. An index outside the list draws nothing.
    virtual void Draw(IPainter* painter, int index, int x, int y, int cx, int cy) = 0;
    // The same in the greyed look of a disabled element.
    virtual void DrawDisabled(IPainter* painter, int index, int x, int y, int cx, int cy) = 0;
    virtual int GetCount() const = 0;
};

// An image list filled from raster pictures or PNG files. A picture is cut into images of the list's size,
// row by row and left to right, so that one picture can hold a strip or a grid of them.
class MIREL7_API CImageList final : public IImageList {
public:
    explicit CImageList(size<int> const& imageSize);

    size<int> GetImageSize(int index) const override;
    void Draw(IPainter* painter, int index, int x, int y, int cx, int cy) override;
    void DrawDisabled(IPainter* painter, int index, int x, int y, int cx, int cy) override;
    int GetCount() const override { return static_cast<int>(m_images.size()); }

    // Adds the whole cells of `picture`; a remainder narrower or lower than one image is left out. Answers
    // how many images were added.
    int AddPicture(IRasterPicture* picture);
    // The same for a PNG file; 0 when it cannot be read.
    int AddPng(std::string const& path);

private:
    bool IsValid(int index) const { return index >= 0 && index < GetCount(); }

    size<int> m_imageSize;
    std::vector<mirel_ptr<IRasterPicture>> m_images;
};

} // namespace mirel7
