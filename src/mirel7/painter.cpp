#include <mirel7/painter.h>
#include <mirel7/popup_menu.h>

namespace mirel7 {

IPainter::~IPainter() = default;
IPainter::ITextFormatter::~ITextFormatter() = default;

bool IPainter::ITextFormatter::FormatText(IPainter* /*painter*/, rectangle<double> const& /*r*/,
                                          std::string_view /*text*/, int /*flags*/,
                                          char const* /*delimiters*/, size<double>* /*taken*/) {
    return false;
}
IRasterPicture::~IRasterPicture() = default;
IPopupMenu::~IPopupMenu() = default;

namespace {
template <class Convert>
void ThroughCorners(rectangle<double>* r, Convert convert) {
    point<double> corners[2] = {{r->left, r->top}, {r->right, r->bottom}};
    convert(corners);
    *r = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}
} // namespace

void IPainter::ConvertCoord2(rectangle<double>* r, bool distance) const {
    ThroughCorners(r, [&](point<double>* c) { ConvertCoord2(c, distance); });
}

void IPainter::DeconvertCoord2(rectangle<double>* r, bool distance) const {
    ThroughCorners(r, [&](point<double>* c) { DeconvertCoord2(c, distance); });
}

} // namespace mirel7
