#include <mirelfrw7/items/items_model.h>

namespace mirelfrw7 {

IItemsModel::~IItemsModel() = default;
IItem::~IItem() = default;

} // namespace mirelfrw7
