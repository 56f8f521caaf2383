#pragma once

#include <mirel7/export.h>

#include <string>
#include <vector>

namespace mirel7 {

// Starts the program `argv[0]`, found on the path, with the arguments as they are: no shell reads them.
// The caller does not wait; the child is reaped when it ends, so none is left behind as a zombie. False
// when the program could not be started.
MIREL7_API bool SpawnDetached(std::vector<std::string> const& argv);

} // namespace mirel7
