#pragma once

#include <mirelfrw7/export.h>

#include <utility>
#include <vector>

namespace mirelfrw7 {

// Tells models where their items went after a move, an insertion or a removal, so that what they keep by
// index (sizes, selection, the start) follows the items.
class MIRELFRW7_API IIndexTranslator {
public:
    virtual ~IIndexTranslator();
    // A translator answering false is ignored by every model.
    virtual bool TranslationIsPresented() const;
    // `removed`, which may be null, is set when the item is gone.
    virtual int TranslateIndex(int index, bool* removed) const = 0;
    // Appends to `images` ranges whose union is where the indices from..to went, and answers whether any of
    // them moved. Index by index here; translators that know their shape answer a run in a few ranges, so
    // that models keeping runs follow a change at a cost independent of the run's length.
    virtual bool TranslateRun(int from, int to, std::vector<std::pair<int, int>>& images) const;
};

// The item at `from` went to `to`, and those between closed up behind it.
class MIRELFRW7_API CMoveTranslator : public IIndexTranslator {
public:
    CMoveTranslator(int from = -1, int to = -1) : m_from(from), m_to(to) {}
    // No move recorded yet: nothing to translate.
    bool TranslationIsPresented() const override { return m_from >= 0; }
    int TranslateIndex(int index, bool* removed) const override;
    int GetFrom() const { return m_from; }
    int GetTo() const { return m_to; }
    bool TranslateRun(int from, int to, std::vector<std::pair<int, int>>& images) const override;

private:
    int m_from, m_to;
};

// With `delta` above 0, that many items were added after `pos`; otherwise the items pos+1..pos-delta were
// removed, and their indices land on `pos`.
class MIRELFRW7_API CAddRemoveTranslator : public IIndexTranslator {
public:
    CAddRemoveTranslator(int pos, int delta) : m_pos(pos), m_delta(delta) {}
    int TranslateIndex(int index, bool* removed) const override;
    bool TranslateRun(int from, int to, std::vector<std::pair<int, int>>& images) const override;

private:
    int m_pos, m_delta;
};

} // namespace mirelfrw7
