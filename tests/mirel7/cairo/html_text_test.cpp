#include "mirel7/cairo/cairo_fixture.h"

#include <mirel7/text_formatter.h>

#include <cmath>

namespace {

using namespace mirel7;
using namespace mirel_test;

class CLinkBoxes : public CHTMLTextFormatter {
public:
    std::vector<rectangle<int>> boxes;

protected:
    void OwnerDrawLink(char const*, int, rectangle<int> const& rect) override { boxes.push_back(rect); }
};

using HTMLText = CCairoPainterTest;

TEST_F(HTMLText, DrawsTheLinkInItsColourInsideTheRectangleItReports) {
    painter->SetTextColor(_color(0, 0, 0));
    CLinkBoxes formatter;
    painter->DrawStringEx({1, 1, 39, 29}, "ab <a href=x>cd</a>", IPainter::AlignLeft | IPainter::AlignTop, -1,
                          " .\n<>", &formatter);
    ASSERT_EQ(formatter.boxes.size(), 1u);
    rectangle<int> const link = formatter.boxes[0];
    // The link starts where the measured "ab " ends.
    EXPECT_EQ(link.left,
              1 + static_cast<int>(std::round(painter->GetTextSize("ab ", 0, -1, false, false).cx)));
    CPixelImage const shot = Shot();
    int blue = 0, black = 0;
    for (int y = 0; y < Height; ++y)
        for (int x = 0; x < Width; ++x) {
            std::uint32_t const word = shot.At(x, y);
            int const r = int(word >> 16 & 255), b = int(word & 255);
            bool const inLink = x >= link.left && x < link.right && y >= link.top && y < link.bottom;
            if (b > r + 60) {
                ++blue;
                EXPECT_TRUE(inLink) << x << "," << y;
            } else if (r < 100 && b < 100) {
                ++black;
                EXPECT_LT(x, link.left) << y;
            }
        }
    EXPECT_GT(blue, 10);
    EXPECT_GT(black, 10);
}

} // namespace
