#include <mirelfrw7/header/simple_header.h>
#include <mirelfrw7/header/simple_header_model.h>

#include <algorithm>

namespace mirelfrw7 {

std::string ISimpleHeaderModel::GetItemDescr(int) const {
    return {};
}

int ISimpleHeaderModel::GetSortingDirection(int) const {
    return SortNone;
}

int ISimpleHeaderModel::GetItemImageIndex(int) const {
    return -1;
}

int ISimpleHeaderModel::GetItemWidth(int) const {
    return 0;
}

void CSimpleHeaderModel::ConnectHeader(CSimpleHeader* header) {
    if (header) header->sigSectionMoved.connect(this, &CSimpleHeaderModel::OnMoveSection);
}

void CSimpleHeaderModel::DisconnectHeader(CSimpleHeader* header) {
    if (header) header->sigSectionMoved.disconnect(this, &CSimpleHeaderModel::OnMoveSection);
}

void CSimpleHeaderModel::SetCount(int count) {
    int const old = int(m_order.size());
    count = std::max(count, 0);
    m_order.resize(count);
    for (int i = old; i < count; ++i)
        m_order[i] = i;
}

void CSimpleHeaderModel::InitStartOrder(int count) {
    m_order.clear();
    SetCount(count);
}

void CSimpleHeaderModel::InsertSection(int index, int modelIndex) {
    if (index < 0 || index > int(m_order.size())) return;
    m_order.insert(m_order.begin() + index, modelIndex);
}

void CSimpleHeaderModel::RemoveSection(int index) {
    if (IndexIsValid(index)) m_order.erase(m_order.begin() + index);
}

void CSimpleHeaderModel::SetModelIndex(int index, int modelIndex) {
    if (IndexIsValid(index)) m_order[index] = modelIndex;
}

int CSimpleHeaderModel::GetModelIndex(int index) const {
    return IndexIsValid(index) ? m_order[index] : -1;
}

int CSimpleHeaderModel::ModelIndex2Index(int modelIndex) const {
    auto const it = std::find(m_order.begin(), m_order.end(), modelIndex);
    return it == m_order.end() ? -1 : int(it - m_order.begin());
}

void CSimpleHeaderModel::OnMoveSection(CSimpleHeader*, int from, int to) {
    if (!IndexIsValid(from) || !IndexIsValid(to)) return;
    auto const first = m_order.begin();
    if (from < to)
        std::rotate(first + from, first + from + 1, first + to + 1);
    else
        std::rotate(first + to, first + from, first + from + 1);
    m_lastMove = CMoveTranslator(from, to);
    // The captions of the positions between changed.
    sigItemsChanged();
}

} // namespace mirelfrw7
