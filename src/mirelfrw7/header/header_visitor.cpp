#include <mirelfrw7/header/header_visitor.h>
#include <mirelfrw7/items/saturating_int.h>

#include <algorithm>
#include <cstdint>

namespace mirelfrw7 {

IHeaderItem::~IHeaderItem() = default;
IHeaderModel::~IHeaderModel() = default;
IHeaderVisitor::~IHeaderVisitor() = default;

int IHeaderItem::GetImageIndex() const {
    return -1;
}

int IHeaderItem::GetSortingDirection() const {
    return SortNone;
}

void WalkHeaderItem(IHeaderItem* item, IHeaderVisitor& visitor, int level) {
    if (!item || !visitor.Visit(item, level)) return;
    int const count = item->GetChildCount();
    for (int i = 0; i < count && !visitor.IsFinished(); ++i)
        WalkHeaderItem(item->GetChild(i), visitor, level + 1);
}

void WalkHeaderModel(IHeaderModel* model, IHeaderVisitor& visitor, int start) {
    if (!model || start < 0) return;
    int const count = model->GetItemCount();
    for (int i = start; i < count && !visitor.IsFinished(); ++i)
        WalkHeaderItem(model->GetItem(i), visitor, 0);
}

bool CWidthCalc::Visit(IHeaderItem* item, int) {
    if (!IsVisibleLeaf(item)) return true;
    m_width = SaturatingInt(std::int64_t(m_width) + item->GetWidth());
    return false;
}

bool CLevelCounter::Visit(IHeaderItem*, int level) {
    m_level = level;
    m_maxLevel = std::max(m_maxLevel, level);
    return true;
}

bool FindVisitor::Visit(IHeaderItem* item, int) {
    if (CheckItem(item)) m_found = item;
    return m_found == nullptr;
}

} // namespace mirelfrw7
