#pragma once

#include <mirelfrw7/layout/element_layout.h>

namespace mirelfrw7 {

// Where a CGridLayout takes its cells from and puts their rectangles. Each cell size is asked once per
// column in every Update, so the answer must come cheaply and stay the same throughout.
class MIRELFRW7_API IGridLayoutSite {
public:
    virtual ~IGridLayoutSite();
    virtual int GetColumnCount() = 0;
    virtual int GetRowCount() = 0;
    virtual mirel7::size<int> GetCellSize(int row, int column) = 0;
    virtual void SetCellRect(int row, int column, mirel7::rectangle<int> const& r) = 0;
    // The gaps after a column and after a row.
    virtual int GetColumnSpace(int column) = 0;
    virtual int GetRowSpace(int row) = 0;
    virtual int GetTop() = 0;
    virtual int GetLeft() = 0;
};

// Aligns cells in rows and columns: each column as wide as its widest cell, each row as high as its highest.
class MIRELFRW7_API CGridLayout : public IElementLayout {
public:
    // Without a site Update does nothing and leaves the size as it is.
    void Update() override;
    mirel7::size<int> GetSize() const override { return m_size; }

    void SetSite(IGridLayoutSite* site) { m_site = site; }

private:
    mirel7::size<int> m_size;
    IGridLayoutSite* m_site = nullptr;
};

} // namespace mirelfrw7
