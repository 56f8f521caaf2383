// The scroll box: free content, a drawing much larger than the window, in a scroll container with native
// bars. The bars, the wheel and the focus all move the same position; the line at the bottom follows it.
#include "gallery.h"
#include "swatch.h"

#include <mirelfrw7/scroll/scroll_container.h>

#include <cstdint>
#include <string>

namespace gallery {

using mirel7::_color;
using mirel7::IPainter;
using mirel7::rectangle;
using mirelfrw7::AlignClient;
using mirelfrw7::AlignNone;
using mirelfrw7::CScrollContainer;
using mirelfrw7::CVisualElement;

namespace {
constexpr int Cell = 80;
constexpr int Columns = 30;
constexpr int Rows = 40;

// A map of cells, each named by its column and row, shaded so that the eye sees where the view is.
class CMap : public CVisualElement {
public:
    explicit CMap(CVisualElement* parent)
        : CVisualElement(parent, {Columns * Cell, Rows * Cell}, AlignNone) {}

    void DrawContent(IPainter* painter) override {
        rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        for (int row = 0; row < Rows; ++row) {
            for (int column = 0; column < Columns; ++column) {
                int const x = column * Cell, y = row * Cell;
                auto const shade = static_cast<std::uint8_t>(150 + (column * 3 + row * 2) % 100);
                painter->SetBrush({_color(shade, static_cast<std::uint8_t>(255 - row * 3), 200), 1});
                painter->FillRect(x + 2, y + 2, x + Cell - 2, y + Cell - 2);
                painter->DrawString(rectangle<double>(x, y, x + Cell, y + Cell),
                                    std::to_string(column) + ", " + std::to_string(row),
                                    IPainter::AlignHCenter | IPainter::AlignVCenter);
            }
        }
    }
};

// The line at the bottom, telling where the view is whenever the map moves.
class CPositionReport : public CReport {
public:
    explicit CPositionReport(CVisualElement* parent)
        : CReport(parent, "drag the bars, turn the wheel, or resize the window") {}

    void Moved(CVisualElement*) {
        if (!m_box) return;
        auto const& part = m_box->GetPart();
        Say("view at x " + std::to_string(int(part.GetHorzStart())) + ", y " +
            std::to_string(int(part.GetVertStart())) + " of " + std::to_string(int(part.GetHorzTo())) +
            " by " + std::to_string(int(part.GetVertTo())));
    }
    void SetBox(CScrollContainer* box) { m_box = box; }

private:
    CScrollContainer* m_box = nullptr;
};
} // namespace

void BuildScrollBoxPage(CVisualElement* host) {
    auto* report = new CPositionReport(host);
    auto* box = new CScrollContainer(host, {}, AlignClient);
    box->SetCornerAlways(true);
    auto* map = new CMap(box);
    map->SetBkColor(_color(40, 40, 60));
    box->SetScrolled(map);
    report->SetBox(box);
    map->sigPosChanged.connect(report, &CPositionReport::Moved);
}

GALLERY_PAGE(140, "scroll box", BuildScrollBoxPage)

} // namespace gallery
