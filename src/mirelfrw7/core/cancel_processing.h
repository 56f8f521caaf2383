#pragma once

#include <mirelfrw7/export.h>

#include <exception>

namespace mirelfrw7 {

// Thrown by a client's slot to end the handling of the current event; the control catches it.
class MIRELFRW7_API cancel_processing : public std::exception {
public:
    char const* what() const noexcept override;
};

} // namespace mirelfrw7
