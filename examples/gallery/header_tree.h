// A header tree for the pages that show a tree header: nodes the page adds, with widths given at the
// display scale 1, and the application's side of a drop and of a double click on an edge.
#pragma once

#include <mirelfrw7/header/header.h>
#include <mirelfrw7/items/display_scale.h>

#include <memory>
#include <string>
#include <vector>

namespace gallery {

class CNode : public mirelfrw7::IHeaderItem {
public:
    CNode(CNode* parent, std::string text, int width)
        : m_parent(parent), m_text(std::move(text)), m_width(mirelfrw7::DisplayScaled(width)) {}
    CNode* Add(std::string text, int width = 70) {
        m_children.push_back(std::make_unique<CNode>(this, std::move(text), width));
        return m_children.back().get();
    }
    IHeaderItem* GetParent() override { return m_parent; }
    int GetChildCount() const override { return int(m_children.size()); }
    IHeaderItem* GetChild(int i) override { return m_children[i].get(); }
    IHeaderItem const* GetChild(int i) const override { return m_children[i].get(); }
    int GetWidth() const override { return m_width; }
    void SetWidth(int width) override { m_width = width; }
    int GetModelIndex() const override { return m_index; }
    int GetExpandState() const override { return m_expanded ? 1 : mirelfrw7::HeaderItemCollapsed; }
    void SetExpanded(bool expanded) override { m_expanded = expanded; }
    std::string GetText() const override { return m_text; }
    int GetSortingDirection() const override { return m_sorting; }

    std::vector<std::unique_ptr<CNode>> m_children;
    CNode* m_parent;
    std::string m_text;
    int m_width;
    int m_index = 0;
    int m_sorting = mirelfrw7::SortNone;
    bool m_expanded = true;
};

class CTree : public mirelfrw7::IHeaderModel, public tarnkit2::subscriber_base_t {
public:
    CNode* Add(std::string text, int width = 0) {
        m_top.push_back(std::make_unique<CNode>(nullptr, std::move(text), width));
        return m_top.back().get();
    }
    // Model indices in the order built, so that a column keeps its figures wherever it moves: called once
    // the tree is whole.
    void Number() {
        int next = 0;
        auto number = [&next](auto& self, CNode* node) -> void {
            node->m_index = next++;
            for (auto& child : node->m_children)
                self(self, child.get());
        };
        for (auto& node : m_top)
            number(number, node.get());
    }
    int GetItemCount() const override { return int(m_top.size()); }
    mirelfrw7::IHeaderItem* GetItem(int i) override { return m_top[i].get(); }

    // Wires the drop and the fit to `header`, which shows this tree.
    void Serve(mirelfrw7::CHeader* header) {
        header->SetModel(this);
        header->sigSectionMoved.connect(this, &CTree::OnMoved);
        header->sigSectionEdgeDoubleClicked.connect(this, &CTree::OnFit);
    }
    void OnMoved(mirelfrw7::CHeader*, mirelfrw7::IHeaderItem* item, int from, int to) {
        CNode* const parent = static_cast<CNode*>(item)->m_parent;
        auto& siblings = parent ? parent->m_children : m_top;
        if (to == from || to == from + 1) return;
        auto moved = std::move(siblings[from]);
        siblings.erase(siblings.begin() + from);
        siblings.insert(siblings.begin() + (to > from ? to - 1 : to), std::move(moved));
        sigChanged();
    }
    void OnFit(mirelfrw7::CHeader* header, mirelfrw7::IHeaderItem* item) {
        header->SetItemSize(header->GetVisibleIndex(item), header->GetItemOptimalWidth(item));
    }

private:
    std::vector<std::unique_ptr<CNode>> m_top;
};

} // namespace gallery
