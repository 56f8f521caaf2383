#pragma once

#include <mirelfrw7/core/signal.h>
#include <mirelfrw7/export.h>

#include <string>

namespace mirelfrw7 {

// The content of a run of items, apart from how they are shown.
class MIRELFRW7_API IItemsModel {
public:
    virtual ~IItemsModel();
    virtual int GetItemCount() = 0;
    virtual std::string GetItemText(int index) const = 0;
};

// A content model that says when its items changed.
class MIRELFRW7_API IItemsModelEx : public IItemsModel {
public:
    tarnkit2::signal_t<> sigItemsChanged;
};

// The root of objects that stand in a model.
class MIRELFRW7_API IItem {
public:
    virtual ~IItem();
};

} // namespace mirelfrw7
