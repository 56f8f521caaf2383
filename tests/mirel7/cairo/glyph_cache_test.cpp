#include <mirel7/cairo/pango_text.h>

#include <gtest/gtest.h>

#include <cstring>

namespace {

using namespace mirel7;
using mirel7::cairo::CPangoText;

constexpr int Width = 160, Height = 48;

struct SCase {
    char const* name;
    char const* text;
    font face;
    double scale;
    point<double> origin;
    double angle;
    bool clip;
    bool direct;
};

font Font(int family, int style = 0, int size = 0, std::string face = {}) {
    font f;
    f.face = std::move(face);
    f.family = family;
    f.style = style;
    f.size = size;
    return f;
}

// One surface drawn by `show` with the state a text call sets up: a colour with some transparency, an
// optional clip through the glyphs, the line's origin and turn.
std::vector<unsigned char> Draw(SCase const& c, CPangoText& text, bool cached) {
    cairo_surface_t* const surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, Width, Height);
    cairo_t* const cr = cairo_create(surface);
    cairo_set_source_rgb(cr, 1, 1, 1);
    cairo_paint(cr);
    if (c.clip) {
        cairo_rectangle(cr, 10.5, 4, 47, 30);
        cairo_clip(cr);
    }
    cairo_set_source_rgba(cr, 0.2, 0.4, 0.8, 0.75);
    cairo_translate(cr, c.origin.x, c.origin.y);
    cairo_rotate(cr, c.angle);
    text.Select(c.face, c.scale);
    cached ? text.Show(cr, 0, 0, c.text) : text.ShowLayout(cr, 0, 0, c.text);
    cairo_destroy(cr);
    cairo_surface_flush(surface);
    unsigned char const* const data = cairo_image_surface_get_data(surface);
    std::vector<unsigned char> pixels(data, data + cairo_image_surface_get_stride(surface) * Height);
    cairo_surface_destroy(surface);
    return pixels;
}

// Glyphs drawn from the cache land on the very pixels the layout's renderer gives; what glyphs cannot draw
// exactly (decorations, missing glyphs) goes through the renderer.
TEST(GlyphCache, CachedLinesDrawThePixelsOfTheRenderer) {
    SCase const cases[] = {
        {"digits", "1234567890", Font(4), 1, {3, 2}, 0, false, true},
        {"kerned words", "AVAWAY To Wa", Font(4), 1, {2, 5}, 0, false, true},
        {"serif bold", "Total: 42.50", Font(1, font::StyleBold), 1, {4, 1}, 0, false, true},
        {"mono italic", "x = f(y);", Font(3, font::StyleItalic), 1, {0, 0}, 0, false, true},
        {"named face at scale 2", "Grid 2x", Font(4, 0, 0, "DejaVu Serif"), 2, {1, 3}, 0, false, true},
        {"larger size", "Big 123", Font(4, 0, 14), 1, {5, 5}, 0, false, true},
        {"fractional origin", "12.345", Font(4), 1, {3.3, 2.7}, 0, false, true},
        {"quarter turn", "Side", Font(4), 1, {20, 45}, -1.5707963267948966, false, true},
        {"tenth turn", "Leaning", Font(4), 2, {10, 30}, -0.3, false, true},
        {"clipped", "Clipped text runs out", Font(4), 1, {2, 8}, 0, true, true},
        {"right to left in a line",
         "abc \xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d 12",
         Font(4),
         1,
         {2, 2},
         0,
         false,
         true},
        {"combining marks", "e\xcc\x81\xcc\xa7 a\xcc\x8a", Font(4), 2, {2, 2}, 0, false, true},
        {"invalid bytes",
         "ab\xff\xfe"
         "cd",
         Font(4),
         1,
         {2, 2},
         0,
         false,
         true},
        {"underlined", "Underlined", Font(4, font::StyleUnderline), 1, {2, 2}, 0, false, false},
        {"missing glyphs", "\xe4\xb8\xad\xe6\x96\x87", Font(4), 1, {2, 2}, 0, false, false},
        {"empty", "", Font(4), 1, {2, 2}, 0, false, true},
    };
    CPangoText text;
    for (SCase const& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<unsigned char> const expected = Draw(c, text, false);
        text.Select(c.face, c.scale);
        EXPECT_EQ(text.Shaped(c.text).direct, c.direct);
        EXPECT_TRUE(Draw(c, text, true) == expected) << "first drawing";
        EXPECT_TRUE(Draw(c, text, true) == expected) << "drawn again from the cache";
    }
}

// A line is measured and shaped once per font: the cache keys both, and forgets the oldest past its bound.
TEST(GlyphCache, LinesAreKeptPerFontAndTheOldestGoFirst) {
    mirel7::cairo::CGlyphRunCache cache(2, 100);
    int faceA = 0, faceB = 0;
    auto line = [](double width) {
        mirel7::cairo::SShapedLine l;
        l.width = width;
        return l;
    };
    cache.Insert(&faceA, "x", line(1));
    cache.Insert(&faceB, "x", line(2));
    EXPECT_EQ(cache.Find(&faceA, "x")->width, 1);
    EXPECT_EQ(cache.Find(&faceB, "x")->width, 2);
    cache.Find(&faceA, "x");
    cache.Insert(&faceA, "y", line(3));
    EXPECT_EQ(cache.Find(&faceB, "x"), nullptr) << "least recently used";
    ASSERT_NE(cache.Find(&faceA, "x"), nullptr);
    EXPECT_EQ(cache.Size(), 2u);

    mirel7::cairo::SShapedLine many = line(4);
    many.runs.emplace_back().glyphs.resize(101);
    cache.Insert(&faceB, "z", std::move(many));
    EXPECT_EQ(cache.Size(), 1u) << "the glyph bound evicts as well";
}

} // namespace
