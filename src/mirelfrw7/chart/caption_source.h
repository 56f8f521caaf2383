#pragma once

#include <mirelfrw7/export.h>

#include <string>

namespace mirelfrw7 {

// The captions of a row of categories or sections, owned by the application.
class MIRELFRW7_API ICaptionSource {
public:
    virtual ~ICaptionSource() = default;
    virtual int GetCount() const = 0;
    // An empty caption leaves its category without tick or text.
    virtual std::string GetCaption(int index) const = 0;
};

} // namespace mirelfrw7
