#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/selection_model.h>
#include <mirelfrw7/items/update_storage.h>

namespace mirelfrw7 {

// The signalling and repaint bookkeeping of a selection model over a storage that subclasses provide.
class MIRELFRW7_API CSelectionModelBase : public ISelectionModel {
public:
    void AddDirtyItems(int from, int to) override { m_updates.Add(from, to); }
    DirtyType GetItemType(int index) const override { return m_updates.GetItemType(index); }
    void OnEndDraw() override { m_updates.Clear(); }
    void UpdateModelState(IIndexTranslator*) override {}

    void SetCurrent(int index) override;
    int GetCurrent() const override { return m_current; }
    // Negative indices and calls that change nothing are ignored.
    void SelectItem(int index, bool select) override;
    void SetSelectionRange(int from, int to) override;
    // Marks everything dirty but says so only through sigModelChanged.
    void ClearSelection() override;

    CUpdateStorage const& GetUpdates() const { return m_updates; }

protected:
    virtual bool IsSelectionEmpty() const = 0;
    virtual void ClearSelectionImp() = 0;
    virtual void SetItemSelectionImp(int index, bool select) = 0;
    virtual void SetItemsSelectionImp(int from, int to, bool select) = 0;

    int m_current = -1;
    CUpdateStorage m_updates{true};
};

} // namespace mirelfrw7
