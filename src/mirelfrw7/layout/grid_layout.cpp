#include <mirelfrw7/layout/grid_layout.h>

#include <algorithm>
#include <vector>

namespace mirelfrw7 {

IGridLayoutSite::~IGridLayoutSite() = default;

// Column by column: every column scans all cells again, for its width and, in the first column, for the
// row heights. The size is rewritten after each column, so a site that throws leaves the size of the last
// column it finished.
void CGridLayout::Update() {
    if (!m_site) return;
    IGridLayoutSite& site = *m_site;
    int const columns = site.GetColumnCount();
    int const rows = site.GetRowCount();
    int x = site.GetLeft();
    m_size = {0, 0};
    std::vector<int> heights;
    for (int c = 0; c < columns; ++c) {
        int width = 0;
        for (int r = 0; r < rows; ++r) {
            int rowHeight = 0;
            for (int k = 0; k < columns; ++k) {
                mirel7::size<int> const s = site.GetCellSize(r, k);
                if (c == 0) rowHeight = std::max(rowHeight, s.cy);
                if (k == c) width = std::max(width, s.cx);
            }
            if (c == 0) heights.push_back(rowHeight);
        }
        int y = site.GetTop();
        mirel7::rectangle<int> cell{x, y, x + width, y};
        for (int r = 0; r < rows; ++r) {
            cell.top = y;
            cell.bottom = y + heights[std::size_t(r)];
            site.SetCellRect(r, c, cell);
            // A row of no height takes neither its gap nor the separating pixel.
            if (cell.top != cell.bottom) y = cell.bottom + site.GetRowSpace(r) + 1;
        }
        x += width + site.GetColumnSpace(c) + 1;
        m_size = {x, y};
    }
}

} // namespace mirelfrw7
