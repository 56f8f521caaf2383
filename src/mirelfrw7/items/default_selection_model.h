#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/items/selection_model_base.h>
#include <mirelfrw7/items/selection_tmpl.h>

namespace mirelfrw7 {

// A selection kept as runs: its size does not depend on how many items are selected, and every query is
// one map lookup.
class MIRELFRW7_API CDefaultSelectionModel : public CSelectionModelBase {
public:
    // Rebuilt run by run, so that a move or an insertion under a selection of everything costs a few map
    // operations; a removed selected item lands on the translator's position and stays selected there.
    void UpdateModelState(IIndexTranslator* translator) override;
    // Dragging one run repaints only what changed at its ends, and the items it gives up.
    void SetSelectionRange(int from, int to) override;

    bool IsItemSelected(int index) const override { return m_selection.IsSelected(index); }
    int GetSelectedCount() const override;
    bool GetNextSelectedItem(int& index) const override { return m_selection.GetNext(index); }

    CSelectionTmpl<int> const& GetSelection() const { return m_selection; }

protected:
    bool IsSelectionEmpty() const override { return m_selection.IsEmpty(); }
    void ClearSelectionImp() override { m_selection.Clear(); }
    void SetItemSelectionImp(int index, bool select) override;
    void SetItemsSelectionImp(int from, int to, bool select) override;

    CSelectionTmpl<int> m_selection;
};

} // namespace mirelfrw7
