#pragma once

#include <mirelfrw7/core/signal.h>
#include <mirelfrw7/export.h>
#include <mirelfrw7/header/sorting.h>

#include <string>

namespace mirelfrw7 {

// A node of a header tree, supplied by the application: a section, and the group of the sections below it.
class MIRELFRW7_API IHeaderItem {
public:
    virtual ~IHeaderItem();
    // Null for a top-level section.
    virtual IHeaderItem* GetParent() = 0;
    virtual int GetChildCount() const = 0;
    virtual IHeaderItem* GetChild(int index) = 0;
    virtual IHeaderItem const* GetChild(int index) const = 0;
    // Read only for visible leaves: a group is as wide as its visible leaves together. A width changed
    // other than through the header's SetItemSize is announced with the model's sigChanged, like any change
    // of the tree.
    virtual int GetWidth() const = 0;
    virtual void SetWidth(int width) = 0;
    // The item's column in the data.
    virtual int GetModelIndex() const = 0;
    // 2: shown as one column whatever children it has; anything else opens a group into its children.
    virtual int GetExpandState() const = 0;
    virtual void SetExpanded(bool expanded) = 0;
    virtual std::string GetText() const = 0;
    // An index into the header's image list; -1 for none.
    virtual int GetImageIndex() const;
    // A SortingDirection.
    virtual int GetSortingDirection() const;
};

// The collapsed state of GetExpandState.
constexpr int HeaderItemCollapsed = 2;

// A visible leaf: a column of its own.
inline bool IsVisibleLeaf(IHeaderItem const* item) {
    return item->GetExpandState() == HeaderItemCollapsed || item->GetChildCount() == 0;
}

// The top-level sections of a header tree, supplied by the application.
class MIRELFRW7_API IHeaderModel {
public:
    // The tree changed: sections came, went, moved, opened or closed.
    tarnkit2::signal_t<> sigChanged;

    virtual ~IHeaderModel();
    virtual int GetItemCount() const = 0;
    virtual IHeaderItem* GetItem(int index) = 0;
};

} // namespace mirelfrw7
