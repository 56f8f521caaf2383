#pragma once

#include <mirelfrw7/export.h>
#include <mirelfrw7/header/header_item.h>

namespace mirelfrw7 {

// One step of a walk over a header tree.
class MIRELFRW7_API IHeaderVisitor {
public:
    virtual ~IHeaderVisitor();
    // Answers whether to walk the item's children, at `level + 1`.
    virtual bool Visit(IHeaderItem* item, int level) = 0;
    // Ends the walk at once.
    virtual bool IsFinished() const = 0;
};

class MIRELFRW7_API BaseVisitor : public IHeaderVisitor {
public:
    bool IsFinished() const override { return false; }
};

// The item, then its children, depth first, as long as the visitor wants.
MIRELFRW7_API void WalkHeaderItem(IHeaderItem* item, IHeaderVisitor& visitor, int level);
// The top-level items from `start` on at level 0; a start outside the model walks nothing.
MIRELFRW7_API void WalkHeaderModel(IHeaderModel* model, IHeaderVisitor& visitor, int start);

// The width of the visible leaves below the items walked.
class MIRELFRW7_API CWidthCalc : public BaseVisitor {
public:
    bool Visit(IHeaderItem* item, int level) override;
    int m_width = 0;
};

// The deepest level of the tree, collapsed groups included, so that a header keeps its height when a group
// closes.
class MIRELFRW7_API CLevelCounter : public BaseVisitor {
public:
    bool Visit(IHeaderItem* item, int level) override;
    int m_maxLevel = -1;
    int m_level = 0;
};

// The first item for which CheckItem holds.
class MIRELFRW7_API FindVisitor : public BaseVisitor {
public:
    bool Visit(IHeaderItem* item, int level) override;
    bool IsFinished() const override { return m_found != nullptr; }
    virtual bool CheckItem(IHeaderItem* item) const = 0;
    IHeaderItem* m_found = nullptr;
};

class MIRELFRW7_API FindByModelIndex : public FindVisitor {
public:
    explicit FindByModelIndex(int modelIndex) : m_modelIndex(modelIndex) {}
    bool CheckItem(IHeaderItem* item) const override { return item->GetModelIndex() == m_modelIndex; }

private:
    int m_modelIndex;
};

} // namespace mirelfrw7
