#include <mirelfrw7/layout/flow_layout.h>

#include <algorithm>
#include <vector>

namespace mirelfrw7 {

IFlowLayoutSite::~IFlowLayoutSite() = default;

// A line is placed when the item after it does not fit, or at the last item. The line height grows only
// after that test, so the item that closes a line never counts towards it, and a last item that does not
// fit is put on a line of its own that the resulting height leaves out. Owners rely on these extents as
// they are.
void CFlowLayout::Update() {
    if (!m_site) return;
    IFlowLayoutSite& site = *m_site;
    int const left = site.GetLeft();
    int const limit = m_size.cx;
    int const last = site.GetItemCount() - 1;
    int x = left;
    int y = site.GetTop();
    int lineHeight = 0;
    int first = 0;
    std::vector<int> widths;
    for (int i = 0; i <= last; ++i) {
        mirel7::size<int> const s = site.GetItemSize(i);
        // The gap of the candidate itself is not part of the test.
        bool const fits = x + s.cx <= limit;
        if (!fits || i == last) {
            mirel7::rectangle<int> r{left, y, left, y + lineHeight};
            int end = i;
            if (fits) {
                widths.push_back(s.cx);
                end = i + 1;
            }
            // Items of a line abut; an item wider than the limit at the start of a line leaves an empty line
            // before it here, as `widths` is still empty.
            for (int k = first; k < end; ++k) {
                r.right = r.left + widths[std::size_t(k - first)];
                site.SetItemRect(k, r);
                r.left = r.right + site.GetItemSpace(k);
            }
            y += lineHeight + site.GetLineSpace() + 1;
            if (!fits && i == last) site.SetItemRect(i, {left, y, left + s.cx, y + s.cy});
            widths.clear();
            x = left;
            lineHeight = 0;
            first = i;
        }
        x += s.cx + site.GetItemSpace(i);
        widths.push_back(s.cx);
        lineHeight = std::max(lineHeight, s.cy);
    }
    m_size.cy = y + 1;
}

} // namespace mirelfrw7
