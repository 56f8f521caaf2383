#pragma once

#include <mirelfrw7/export.h>

namespace mirelfrw7 {

// Tells models where their items went after a move, an insertion or a removal, so that what they keep by
// index (sizes, selection, the start) follows the items.
class MIRELFRW7_API IIndexTranslator {
public:
    virtual ~IIndexTranslator();
    // A translator answering false is ignored by every model.
    virtual bool TranslationIsPresented() const;
    // `removed`, which may be null, is set when the item is gone.
    virtual int TranslateIndex(int index, bool* removed) const = 0;
};

} // namespace mirelfrw7
