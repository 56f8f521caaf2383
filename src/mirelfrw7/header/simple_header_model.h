#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/header/sorting.h>
#include <mirelfrw7/items/index_translator.h>
#include <mirelfrw7/items/items_model.h>

#include <string>
#include <vector>

namespace mirelfrw7 {

class CSimpleHeader;

// The captions of a simple header's sections, and how a move of a section translates the indices of
// everything kept by column.
class MIRELFRW7_API ISimpleHeaderModel : public IItemsModelEx, public IIndexTranslator {
public:
    virtual std::string GetItemDescr(int index) const;
    // IPainter::AlignmentFlags of the caption.
    virtual int GetItemTextAlign(int index) const = 0;
    // A SortingDirection.
    virtual int GetSortingDirection(int index) const;
    // An index into the header's image list; -1 for none.
    virtual int GetItemImageIndex(int index) const;
    // The section's width when the header has no view model to ask.
    virtual int GetItemWidth(int index) const;
    virtual void ConnectHeader(CSimpleHeader* header) = 0;
    virtual void DisconnectHeader(CSimpleHeader* header) = 0;
};

// Keeps the order of the sections as the user drags them: position on the screen to the application's
// column number. The last move is the translation, so that a viewer's models can follow it with
// UpdateModelState(this).
class MIRELFRW7_API CSimpleHeaderModel : public ISimpleHeaderModel, public tarnkit2::subscriber_base_t {
public:
    int TranslateIndex(int index, bool* removed) const override {
        return m_lastMove.TranslateIndex(index, removed);
    }
    bool TranslationIsPresented() const override { return m_lastMove.TranslationIsPresented(); }
    void ConnectHeader(CSimpleHeader* header) override;
    void DisconnectHeader(CSimpleHeader* header) override;

    // Growing appends positions that show their own column number, whatever the order before: a number may
    // then stand twice, and InitStartOrder is the way to a fresh order.
    void SetCount(int count);
    void InitStartOrder(int count);
    void InsertSection(int index, int modelIndex);
    void RemoveSection(int index);
    void SetModelIndex(int index, int modelIndex);
    int GetModelIndex(int index) const;
    int VisibleIndex2ModelIndex(int index) const { return GetModelIndex(index); }
    // -1 when no position shows it.
    int ModelIndex2Index(int modelIndex) const;
    bool IndexIsValid(int index) const { return index >= 0 && index < int(m_order.size()); }
    // The slot of the header's sigSectionMoved: `to` is the position the section takes once moved (not the
    // gap it was dropped into), so a move to the same place records itself and changes nothing. Announces
    // the change of captions.
    void OnMoveSection(CSimpleHeader* header, int from, int to);

    std::vector<int> const& GetOrder() const { return m_order; }

protected:
    std::vector<int> m_order;
    CMoveTranslator m_lastMove;
};

} // namespace mirelfrw7
