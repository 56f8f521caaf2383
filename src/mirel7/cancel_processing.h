#pragma once

#include <mirel7/export.h>

#include <exception>

namespace mirel7 {

// Thrown by client code to stop the handling of an event or a task; the library only catches it.
class MIREL7_API cancel_processing : public std::exception {
public:
    char const* what() const noexcept override;
};

} // namespace mirel7
