#pragma once

// Symbols of libmirel7 are hidden unless marked. A marked class exports its vtable and typeinfo too,
// which exceptions and dynamic_cast across the library boundary depend on.
#define MIREL7_API __attribute__((visibility("default")))
