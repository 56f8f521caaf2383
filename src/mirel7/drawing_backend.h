#pragma once

#include <mirel7/window_painter.h>

namespace mirel7 {

// The drawing backend is an area of its own that a build may leave out. Its factories are then missing,
// and windows and pictures go without a painter, as they would if a factory answered null.
MIREL7_API std::unique_ptr<IWindowPainter> NewWindowPainter(size<int> const& bufferSize, double dpiScale)
    __attribute__((weak));
MIREL7_API mirel_ptr<IRasterPicture> NewRasterPicture(int width, int height) __attribute__((weak));

inline std::unique_ptr<IWindowPainter> MakeWindowPainter(size<int> const& bufferSize, double dpiScale) {
    if (!NewWindowPainter) return nullptr;
    return NewWindowPainter(bufferSize, dpiScale);
}

inline mirel_ptr<IRasterPicture> MakeRasterPicture(int width, int height) {
    if (!NewRasterPicture) return nullptr;
    return NewRasterPicture(width, height);
}

} // namespace mirel7
