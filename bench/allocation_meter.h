#pragma once

#include <cstddef>

namespace bench {
// Bytes allocated through operator new by the whole program so far. Linking allocation_meter.cpp replaces
// the global operator new and delete.
std::size_t AllocatedBytes();
} // namespace bench
