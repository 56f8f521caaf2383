#pragma once

// Symbols of libmirelfrw7 are hidden unless marked. A marked class exports its vtable and typeinfo too,
// which exceptions and dynamic_cast across the library boundary depend on.
#define MIRELFRW7_API __attribute__((visibility("default")))
