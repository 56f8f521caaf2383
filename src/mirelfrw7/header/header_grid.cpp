#include <mirelfrw7/header/header_grid.h>

namespace mirelfrw7 {

void ServeAsColumns(CHeader* header, CHeaderGrid* grid) {
    grid->SetColumnViewModel(header);
    header->SetHorzScroll(&grid->GetColumnScrollModel());
}

} // namespace mirelfrw7
