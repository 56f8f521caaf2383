#include <mirelfrw7/header/position_processor.h>

#include <limits>

namespace mirelfrw7 {

CPositionProcessor::CPositionProcessor(CHeader const& header, double clipLeft, double clipRight)
    : m_lastExpanded(header.IsLastItemExpanded()), m_clipLeft(clipLeft), m_clipRight(clipRight),
      m_header(header) {
    int const levels = header.GetLevelCount();
    rectangle<double> const whole = header.GetHeaderRect();
    if (levels > 0) m_rowHeight = (whole.bottom - whole.top) / levels;
    m_levels.assign(levels, whole);
}

void CPositionProcessor::StartAt(double left) {
    if (!m_levels.empty()) m_levels[0].left = left;
}

bool CPositionProcessor::IsLastChild(IHeaderItem* item) const {
    if (IHeaderItem* const parent = item->GetParent()) {
        int const count = parent->GetChildCount();
        return count > 0 && parent->GetChild(count - 1) == item;
    }
    IHeaderModel* const model = m_header.GetModel();
    int const count = model ? model->GetItemCount() : 0;
    return count > 0 && model->GetItem(count - 1) == item;
}

bool CPositionProcessor::Visit(IHeaderItem* item, int level) {
    // A tree grown deeper than last counted waits for the model's notice before it shows its depth.
    if (level >= int(m_levels.size())) return false;
    bool const isLast = m_lastExpanded && IsLastChild(item);
    bool const isLeaf = IsVisibleLeaf(item);
    rectangle<double>& running = m_levels[level];
    rectangle<double> rect = running;
    if (!isLast) rect.right = rect.left + m_header.GetSectionWidth(item) - 1;
    running.left = rect.right + 1;
    if (!isLeaf) {
        rect.bottom = rect.top + m_rowHeight - 1;
        if (level + 1 < int(m_levels.size()))
            m_levels[level + 1] = rectangle<double>(rect.left, rect.bottom + 1, rect.right, running.bottom);
    }
    if (level == 0 && rect.left > m_clipRight) {
        m_finished = true;
        return false;
    }
    return ProcessSection(item, rect) && !isLeaf;
}

bool CDrawer::ProcessSection(IHeaderItem* item, rectangle<double> const& rect) {
    if (OutsideClip(rect)) return false;
    m_drawing->DrawSection(m_painter, item, rect);
    return true;
}

bool CHitTester::ProcessSection(IHeaderItem* item, rectangle<double> const& rect) {
    if (OutsideClip(rect)) return false;
    // The children lie within the group's span: a point beside it cannot hit them.
    if (m_x < rect.left || m_x > rect.right) return false;
    if (m_y < rect.top || m_y > rect.bottom) return true;
    m_result.item = item;
    m_result.rect = rectangle<int>(int(rect.left), int(rect.top), int(rect.right), int(rect.bottom));
    rectangle<double> const button = m_visualisation->GetExpandBtnRect(rect, item);
    double const bx = m_x + 4;
    bool const onButton = button.left <= bx && bx <= button.right && button.top <= m_y &&
                          m_y <= button.bottom && button.left <= button.right;
    if (onButton && m_visualisation->GetItemState(item) != 0)
        m_result.type = 2;
    else
        m_result.type = rect.right - 8 > m_x ? 1 : 3;
    m_finished = true;
    return false;
}

CRectCalculator::CRectCalculator(CHeader const& header, IHeaderItem const* item)
    : CPositionProcessor(header, std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max()),
      m_item(item) {}

bool CRectCalculator::ProcessSection(IHeaderItem* item, rectangle<double> const& rect) {
    if (item != m_item) return true;
    m_rect = rect;
    m_finished = true;
    return false;
}

} // namespace mirelfrw7
