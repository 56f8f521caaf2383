#pragma once

namespace mirelfrw7 {

// What a section's sorting marker shows.
enum SortingDirection { SortNone = 0, SortAscending = 1, SortDescending = 2 };

} // namespace mirelfrw7
