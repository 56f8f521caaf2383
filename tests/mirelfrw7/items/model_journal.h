#pragma once

#include <mirelfrw7/items/index_translator.h>
#include <mirelfrw7/items/item_view_model.h>
#include <mirelfrw7/items/selection_model.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mirel_test {

// Writes down the signals of a view model in order: "changed", and "scrolled <position> <delta>", with
// " refused" when the shift flag is false after the listener's `answer` (none: the flag as it came in).
// `snapshot`, when set, is appended to every entry, to show what a listener could read at that moment.
struct CModelJournal : tarnkit2::subscriber_base_t {
    explicit CModelJournal(mirelfrw7::IBaseItemViewModel& model) {
        model.sigModelChanged.connect(this, &CModelJournal::OnChanged);
        model.sigItemsScrolled.connect(this, &CModelJournal::OnScrolled);
    }

    void OnChanged() { entries.push_back("changed" + Snapshot()); }
    void OnScrolled(int position, int delta, bool* canScroll) {
        if (answer) *canScroll = *answer;
        entries.push_back("scrolled " + std::to_string(position) + " " + std::to_string(delta) +
                          (*canScroll ? "" : " refused") + Snapshot());
    }
    std::string Snapshot() const { return snapshot ? " " + snapshot() : ""; }
    // The entries so far, leaving the journal empty.
    std::vector<std::string> Take() { return std::exchange(entries, {}); }

    std::optional<bool> answer;
    std::function<std::string()> snapshot;
    std::vector<std::string> entries;
};

// A translator given by a function of the index; `removed` stays false unless the function sets it.
struct CFunctionTranslator : mirelfrw7::IIndexTranslator {
    explicit CFunctionTranslator(std::function<int(int, bool*)> translate, bool presented = true)
        : translate(std::move(translate)), presented(presented) {}
    bool TranslationIsPresented() const override { return presented; }
    int TranslateIndex(int index, bool* removed) const override {
        bool gone = false;
        int const result = translate(index, &gone);
        if (removed) *removed = gone;
        return result;
    }
    std::function<int(int, bool*)> translate;
    bool presented;
};

// The items after `pos` moved by `delta`; with a negative delta, pos+1..pos-delta are gone and land on pos.
inline CFunctionTranslator AddRemove(int pos, int delta) {
    return CFunctionTranslator([pos, delta](int i, bool* removed) {
        if (i <= pos) return i;
        if (delta < 0 && i <= pos - delta) {
            *removed = true;
            return pos;
        }
        return i + delta;
    });
}

// A selection that only has a current item.
struct CCurrentOnly : mirelfrw7::ISelectionModel {
    void AddDirtyItems(int, int) override {}
    DirtyType GetItemType(int) const override { return NoDirtyItems; }
    void OnEndDraw() override {}
    void UpdateModelState(mirelfrw7::IIndexTranslator*) override {}
    void SetCurrent(int index) override { current = index; }
    int GetCurrent() const override { return current; }
    void SelectItem(int, bool) override {}
    void SetSelectionRange(int, int) override {}
    bool IsItemSelected(int) const override { return false; }
    void ClearSelection() override {}
    int GetSelectedCount() const override { return 0; }
    bool GetNextSelectedItem(int&) const override { return false; }
    int current = -1;
};

} // namespace mirel_test
