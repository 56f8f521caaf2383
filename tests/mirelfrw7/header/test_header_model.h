#pragma once

#include <mirelfrw7/header/header.h>
#include <mirelfrw7/scroll/continuous_item_scroll_model.h>

#include <memory>
#include <string>
#include <vector>

namespace mirel_test {

// A header tree written as text: "A(a1:50 a2:60 B(b1:40 b2:30)) C:70 D-(d1:40 d2:40)". A name with
// children in brackets is a group, "-" after it closes it; ":n" gives a leaf's width (default 50). Model
// indices count the nodes in order from 0.
class CTestHeaderItem : public mirelfrw7::IHeaderItem {
public:
    IHeaderItem* GetParent() override { return parent; }
    int GetChildCount() const override { return int(children.size()); }
    IHeaderItem* GetChild(int i) override {
        return i >= 0 && i < GetChildCount() ? children[i].get() : nullptr;
    }
    IHeaderItem const* GetChild(int i) const override {
        return i >= 0 && i < GetChildCount() ? children[i].get() : nullptr;
    }
    int GetWidth() const override { return width; }
    void SetWidth(int w) override { width = w; }
    int GetModelIndex() const override { return modelIndex; }
    int GetExpandState() const override { return expandState; }
    void SetExpanded(bool expanded) override { expandState = expanded ? 1 : mirelfrw7::HeaderItemCollapsed; }
    std::string GetText() const override { return text; }
    int GetSortingDirection() const override { return sorting; }

    CTestHeaderItem* parent = nullptr;
    std::vector<std::unique_ptr<CTestHeaderItem>> children;
    int width = 50;
    int modelIndex = 0;
    int expandState = 1;
    int sorting = 0;
    std::string text;
};

class CTestHeaderModel : public mirelfrw7::IHeaderModel {
public:
    explicit CTestHeaderModel(std::string const& tree);
    int GetItemCount() const override { return int(top.size()); }
    mirelfrw7::IHeaderItem* GetItem(int i) override {
        return i >= 0 && i < GetItemCount() ? top[i].get() : nullptr;
    }
    // The node by its text; null when none has it.
    CTestHeaderItem* Find(std::string const& text) const;
    // Moves the sibling at `from` into the gap `to`, as the header's sigSectionMoved gives them.
    void Move(CTestHeaderItem* item, int from, int to);

    std::vector<std::unique_ptr<CTestHeaderItem>> top;
};

// A top header over its own model, scrolled through a continuous scroll model of itself.
class CTestHeader : public mirelfrw7::CHeader {
public:
    CTestHeader(mirelfrw7::CVisualElement* parent, std::string const& tree)
        : CHeader(parent, {0, 20}, mirelfrw7::AlignTop), model(tree), scroll(this) {
        SetHorzScroll(&scroll);
        SetModel(&model);
    }
    ~CTestHeader() override { SetModel(nullptr); }

    CTestHeaderModel model;
    mirelfrw7::CContinuousItemScrollModel scroll;
};

} // namespace mirel_test
