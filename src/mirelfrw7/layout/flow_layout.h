#pragma once

#include <mirelfrw7/layout/element_layout.h>

namespace mirelfrw7 {

// Where a CFlowLayout takes its items from and puts their rectangles.
class MIRELFRW7_API IFlowLayoutSite {
public:
    virtual ~IFlowLayoutSite();
    virtual int GetItemCount() = 0;
    virtual mirel7::size<int> GetItemSize(int item) = 0;
    virtual void SetItemRect(int item, mirel7::rectangle<int> const& r) = 0;
    // The gap after the item, within its line.
    virtual int GetItemSpace(int item) = 0;
    // The gap below a line.
    virtual int GetLineSpace() = 0;
    virtual int GetTop() = 0;
    // Where every line starts.
    virtual int GetLeft() = 0;
};

// Wraps items into lines no wider than the width it is given; the height is what Update found.
class MIRELFRW7_API CFlowLayout : public IElementLayout {
public:
    // Without a site Update does nothing and leaves the size as it is.
    void Update() override;
    mirel7::size<int> GetSize() const override { return m_size; }

    void SetSite(IFlowLayoutSite* site) { m_site = site; }
    // The wrap limit, an x coordinate like those of the site.
    void SetWidth(int width) { m_size.cx = width; }

private:
    mirel7::size<int> m_size;
    IFlowLayoutSite* m_site = nullptr;
};

} // namespace mirelfrw7
