#include <mirel7/border.h>
#include <mirel7/custom_palette.h>
#include <mirel7/recording_painter.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace mirel7;
using Strings = std::vector<std::string>;

// The default palette: face #f0f0f0, light #ffffff, shadow #a0a0a0, dark shadow #696969.
struct SBorder {
    int shape, style;
    double scale;
    bool fill;
    rectangle<double> rect;
};
struct SBorderCase {
    SBorder in;
    Strings fills;
} const Cases[] = {
    {{BorderBox, BorderFlat, 1.0, true, {10, 10, 29, 19}},
     {"FillRect 10,10,29,19 brush=#f0f0f0", "FillRect 10,10,29,10 brush=#a0a0a0",
      "FillRect 10,10,10,19 brush=#a0a0a0", "FillRect 10,19,29,19 brush=#a0a0a0",
      "FillRect 29,10,29,19 brush=#a0a0a0"}},
    // At scale 2: two pixels a line, corners clear.
    {{BorderSoftBox, BorderRaised, 2.0, true, {9, 9, 0, 0}},
     {"FillRect 2,2,7,7 brush=#f0f0f0", "FillRect 2,0,7,1 brush=#ffffff", "FillRect 0,2,1,7 brush=#ffffff",
      "FillRect 2,8,7,9 brush=#696969", "FillRect 8,2,9,7 brush=#696969", "FillRect 2,6,7,7 brush=#a0a0a0",
      "FillRect 6,2,7,7 brush=#a0a0a0"}},
    {{BorderTop, BorderSunken, 1.0, false, {0, 0, 9, 4}},
     {"FillRect 0,0,9,0 brush=#a0a0a0", "FillRect 0,1,9,1 brush=#696969"}},
    {{BorderBottomRight, BorderRaised, 1.0, false, {0, 0, 9, 9}},
     {"FillRect 0,9,9,9 brush=#696969", "FillRect 9,0,9,9 brush=#696969", "FillRect 0,8,8,8 brush=#a0a0a0",
      "FillRect 8,0,8,8 brush=#a0a0a0"}},
    // An unknown style is flat.
    {{BorderLeft, 5, 1.5, false, {0, 0, 9, 9}}, {"FillRect 0,0,0,9 brush=#a0a0a0"}},
    // A frame one pixel wide keeps its inner line within it.
    {{BorderBox, BorderSunken, 1.0, false, {0, 0, 0, 5}},
     {"FillRect 0,0,0,0 brush=#a0a0a0", "FillRect 0,0,0,5 brush=#a0a0a0", "FillRect 0,5,0,5 brush=#ffffff",
      "FillRect 0,0,0,5 brush=#ffffff"}},
    // Shape 7, shapes above it and negative ones draw nothing.
    {{BorderNone, BorderRaised, 1.0, true, {0, 0, 9, 9}}, {}},
    {{99, BorderRaised, 1.0, true, {0, 0, 9, 9}}, {}},
    {{-1, BorderFlat, 1.0, true, {0, 0, 9, 9}}, {}},
};

TEST(DrawBorder, DrawsTheEdgesOfItsShapeInTheShadesOfItsStyle) {
    for (SBorderCase const& c : Cases) {
        SCOPED_TRACE(testing::Message() << "row " << &c - Cases);
        CRecordingPainter painter({40, 40}, c.in.scale);
        brush const before{_color(1, 2, 3)};
        painter.SetBrush(before);
        painter.Clear();
        DrawBorder(&painter, c.in.rect, static_cast<BorderShape>(c.in.shape),
                   static_cast<BorderStyle>(c.in.style), c.in.fill);
        EXPECT_EQ(painter.Lines({"FillRect"}), c.fills);
        EXPECT_EQ(painter.GetBrush(), before) << "the caller's brush comes back";
    }
    DrawBorder(nullptr, {0, 0, 9, 9}, BorderBox, BorderFlat, true);
}

TEST(DrawBorder, TakesItsColoursFromThePaintersPaletteUntilTheNextPaintPass) {
    CRecordingPainter painter({40, 40});
    painter.BeginPaint(IPainter::PaintWindow);
    painter.SetCustomPalette(CreateCustomPalette(_color(100, 150, 200)));
    DrawBorder(&painter, {0, 0, 9, 9}, BorderTop, BorderSunken, true);
    painter.EndPaint();
    painter.BeginPaint(IPainter::PaintWindow);
    EXPECT_EQ(painter.GetCustomPalette(), nullptr);
    DrawBorder(&painter, {0, 0, 9, 9}, BorderTop, BorderFlat, false);
    EXPECT_EQ(painter.Lines({"FillRect"}), (Strings{
                                               "FillRect 0,0,9,9 brush=#6496c8",
                                               "FillRect 0,0,9,0 brush=#436586",
                                               "FillRect 0,1,9,1 brush=#2c4258",
                                               "FillRect 0,0,9,0 brush=#a0a0a0",
                                           }));
}

TEST(CreateCustomPalette, DerivesTheShadesOfABorderFromOneColour) {
    mirel_ptr<ICustomPaletteEx> const palette = CreateCustomPalette(_color(100, 150, 200));
    EXPECT_EQ(palette->GetColor(ISysPalette::ColorElementBackground), _color(100, 150, 200));
    EXPECT_EQ(palette->GetColor(ISysPalette::ColorLight), _color(193, 213, 233));
    EXPECT_EQ(palette->GetColor(ISysPalette::ColorShadow), _color(67, 101, 134));
    EXPECT_EQ(palette->GetColor(ISysPalette::ColorDarkShadow), _color(44, 66, 88));
    EXPECT_EQ(palette->GetColor(ISysPalette::ColorHighlight),
              GetDefaultPalette()->GetColor(ISysPalette::ColorHighlight))
        << "the rest stays the system's";
    EXPECT_EQ(CreateCustomPalette(_color())->GetColor(ISysPalette::ColorLight),
              GetDefaultPalette()->GetColor(ISysPalette::ColorLight));
}

} // namespace
