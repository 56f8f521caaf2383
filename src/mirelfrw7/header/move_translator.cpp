#include <mirelfrw7/header/move_translator.h>

namespace mirelfrw7 {

int CMoveTranslator::TranslateIndex(int index, bool* removed) const {
    if (removed) *removed = false;
    if (index == m_from) return m_to;
    if (m_from < m_to && index > m_from && index <= m_to) return index - 1;
    if (m_to < m_from && index >= m_to && index < m_from) return index + 1;
    return index;
}

} // namespace mirelfrw7
