#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/index_translator.h>

namespace mirelfrw7 {

// Where the items went after one item moved from position `from` to position `to`, the items between
// closing up behind it.
class MIRELFRW7_API CMoveTranslator : public IIndexTranslator {
public:
    CMoveTranslator(int from = -1, int to = -1) : m_from(from), m_to(to) {}

    // No move recorded yet: nothing to translate.
    bool TranslationIsPresented() const override { return m_from >= 0; }
    // Nothing is ever removed by a move.
    int TranslateIndex(int index, bool* removed) const override;

    int GetFrom() const { return m_from; }
    int GetTo() const { return m_to; }

private:
    int m_from;
    int m_to;
};

} // namespace mirelfrw7
