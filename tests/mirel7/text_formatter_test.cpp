#include <mirel7/recording_painter.h>
#include <mirel7/text_formatter.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace mirel7;
using Strings = std::vector<std::string>;

constexpr char HTMLDelimiters[] = " .\n<>";
constexpr int TopLeft = IPainter::AlignLeft | IPainter::AlignTop;

struct SLink {
    std::string link;
    rectangle<int> rect;
    friend bool operator==(SLink const&, SLink const&) = default;
};

std::ostream& operator<<(std::ostream& out, SLink const& l) {
    return out << l.link << "@" << l.rect.left << "," << l.rect.top << "," << l.rect.right << ","
               << l.rect.bottom;
}

class CLinkJournal : public CHTMLTextFormatter {
public:
    std::vector<SLink> links;

protected:
    void OwnerDrawLink(char const* link, int length, rectangle<int> const& rect) override {
        links.push_back({std::string(link, std::size_t(length)), rect});
    }
};

TEST(RemoveLinks, StripsTagsAndDecodesEntitiesLeavingTheRestAsText) {
    struct SCase {
        char const* html;
        char const* plain;
    } const cases[] = {
        {"plain", "plain"},
        {"<a href=\"x\">link</a> text", "link text"},
        {"<B>bold</b> <i>it</i> <u>u</u> <font color=\"#FF0000\">red</font>", "bold it u red"},
        {"a<br>b<br/>c<BR />d", "a\nb\nc\nd"},
        {"&lt;&gt;&amp;&quot;&nbsp;&#65;&#8364;", "<>&\"\xC2\xA0"
                                                  "A\xE2\x82\xAC"},
        {"&unknown; &#0; &#55296; &#1114112; &#x41; &amp", "&unknown; &#0; &#55296; &#1114112; &#x41; &amp"},
        {"<p>x</p> <b/> </b x> <a> <font>", "<p>x</p> <b/> </b x>  "},
        {"<b", "<b"},
        {"x <", "x <"},
        {"a < b > c", "a < b > c"},
        {"<b <i>x</i>", "<b x"},
        {"<a href=\"x>y\">z</a>", "<a href=\"x>y\">z"},
        {"<a href='a&amp;b' title=t>x</a>", "x"},
        {"<a href=\"unclosed>x", "<a href=\"unclosed>x"},
    };
    for (auto const& c : cases)
        EXPECT_EQ(RemoveLinks(c.html), c.plain) << c.html;
}

struct SLayout {
    char const* text;
    rectangle<double> rect;
    int flags;
    size<double> taken;
};

TEST(HTMLTextFormatter, LaysOutRunsOfOneStyleAndReportsLinkRectangles) {
    // The recording painter's font: 8 pixels a character, 16 a line; the default link colour is #0066cc.
    struct SLayoutCase {
        SLayout in;
        Strings drawn;
        std::vector<SLink> links;
    } const cases[] = {
        {{"Go <a href=\"http://x\">here</a> now.", {10, 20, 109, 99}, TopLeft, {96, 16}},
         {"DrawString \"Go \" 10,20,34,36 flags=0x9 color=#000000 at=10,20,34,36",
          "DrawString \"here\" 34,20,66,36 flags=0x9 color=#0066cc at=34,20,66,36",
          "DrawString \" now.\" 66,20,106,36 flags=0x9 color=#000000 at=66,20,106,36"},
         {{"http://x", {34, 20, 66, 36}}}},
        // Wrapped and centred.
        {{"Go <a href=\"http://x\">here</a> now.", {0, 0, 40, 99}, IPainter::AlignHCenter, {32, 48}},
         {"DrawString \"Go\" 12,0,28,16 flags=0x9 color=#000000 at=12,0,28,16",
          "DrawString \"here\" 4,16,36,32 flags=0x9 color=#0066cc at=4,16,36,32",
          "DrawString \"now.\" 4,32,36,48 flags=0x9 color=#000000 at=4,32,36,48"},
         {{"http://x", {4, 16, 36, 32}}}},
        // A link over two lines.
        {{"<a href=\"L\">aa bb</a>", {0, 0, 20, 99}, TopLeft, {16, 32}},
         {"DrawString \"aa\" 0,0,16,16 flags=0x9 color=#0066cc at=0,0,16,16",
          "DrawString \"bb\" 0,16,16,32 flags=0x9 color=#0066cc at=0,16,16,32"},
         {{"L", {0, 0, 16, 16}}, {"L", {0, 16, 16, 32}}}},
        // Nested links replace each other.
        {{"<a href=a>x <a href=b>y</a> z</a>", {0, 0, 200, 99}, TopLeft, {40, 16}},
         {"DrawString \"x \" 0,0,16,16 flags=0x9 color=#0066cc at=0,0,16,16",
          "DrawString \"y\" 16,0,24,16 flags=0x9 color=#0066cc at=16,0,24,16",
          "DrawString \" z\" 24,0,40,16 flags=0x9 color=#000000 at=24,0,40,16"},
         {{"a", {0, 0, 16, 16}}, {"b", {16, 0, 24, 16}}}},
        // Styles, colours, breaks and entities.
        {{"<b>B</b><i>I</i><u>U</u><font color=\"#FF0000\">R&amp;</font><br>&lt;p&gt;\nx",
          {0, 0, 200, 99},
          TopLeft,
          {40, 48}},
         {"DrawString \"B\" 0,0,8,16 flags=0x9 color=#000000 at=0,0,8,16",
          "DrawString \"I\" 8,0,16,16 flags=0x9 color=#000000 at=8,0,16,16",
          "DrawString \"U\" 16,0,24,16 flags=0x9 color=#000000 at=16,0,24,16",
          "DrawString \"R&\" 24,0,40,16 flags=0x9 color=#ff0000 at=24,0,40,16",
          "DrawString \"<p>\" 0,16,24,32 flags=0x9 color=#000000 at=0,16,24,32",
          "DrawString \"x\" 0,32,8,48 flags=0x9 color=#000000 at=0,32,8,48"},
         {}},
        // Clipped to the rectangle.
        {{"abcdefgh ij", {0, 0, 39, 20}, TopLeft | IPainter::ClipToRect, {64, 32}},
         {"DrawString \"abcdefgh\" 0,0,39,16 flags=0x109 color=#000000 at=0,0,64,16 overflows",
          "DrawString \"ij\" 0,16,16,20 flags=0x109 color=#000000 at=0,16,16,32 overflows"},
         {}},
        // Measured only.
        {{"<a href=x>link</a> text", {0, 0, 200, 99}, TopLeft | IPainter::MeasureOnly, {72, 16}}, {}, {}},
    };
    for (SLayoutCase const& c : cases) {
        SCOPED_TRACE(c.in.text);
        CRecordingPainter painter({300, 200});
        painter.SetTextColor(_color(0, 0, 0));
        CLinkJournal formatter;
        size<double> const taken =
            painter.DrawStringEx(c.in.rect, c.in.text, c.in.flags, -1, HTMLDelimiters, &formatter);
        EXPECT_EQ(painter.Lines({"DrawString", "DrawStringEx"}), c.drawn);
        EXPECT_EQ(formatter.links, c.links);
        EXPECT_EQ(taken, c.in.taken);
        EXPECT_EQ(painter.GetFont(), font{}) << "the painter's font comes back";
        EXPECT_EQ(painter.GetTextColor(), _color(0, 0, 0));
        EXPECT_EQ(painter.GetElementFlag(), (c.in.flags & IPainter::ClipToRect) ? 1 : 0);
    }
}

TEST(HTMLTextFormatter, SetsTheFontOfEachStyleAndGivesTheCallersBack) {
    CRecordingPainter painter({300, 200});
    font caller;
    caller.size = 10;
    painter.SetFont(caller);
    painter.Clear();
    CHTMLTextFormatter formatter;
    painter.DrawStringEx({0, 0, 300, 100}, "<b>x<i>y</b>z</i>", TopLeft | IPainter::MeasureOnly, -1, "",
                         &formatter);
    Strings const fonts = painter.Lines({"SetFont"});
    Strings const styles = {"style=1", "style=3", "style=2", "style=0"};
    ASSERT_EQ(fonts.size(), styles.size());
    for (std::size_t i = 0; i < fonts.size(); ++i) {
        EXPECT_NE(fonts[i].find(styles[i]), std::string::npos) << fonts[i];
        EXPECT_NE(fonts[i].find("size=10"), std::string::npos) << fonts[i];
    }
    EXPECT_EQ(formatter.GetWords().size(), 3u);
}

TEST(DefTextFormatter, WrapsPlainTextAsThePainterDoes) {
    for (char const* text : {"one two three four five six", "a.b.c.d\n\ne  f", "unbroken", ""}) {
        CRecordingPainter plain({300, 200}), formatted({300, 200});
        CDefTextFormatter formatter;
        size<double> const a = plain.DrawStringEx({0, 0, 70, 199}, text, TopLeft, -1, " .\n", nullptr);
        size<double> const b = formatted.DrawStringEx({0, 0, 70, 199}, text, TopLeft, -1, " .\n", &formatter);
        EXPECT_EQ(a, b) << text;
    }
}

// Counts the characters the formatter has measured and drawn.
class CCountingPainter : public CRecordingPainter {
public:
    using CRecordingPainter::DrawString;
    std::size_t measured = 0, drawn = 0;

    size<double> GetTextSize(std::string const& text, int flags, int length, bool breakLines,
                             bool logical) override {
        measured += text.size();
        return CRecordingPainter::GetTextSize(text, flags, length, breakLines, logical);
    }
    size<double> DrawString(rectangle<double> const& r, char const* text, int flags, int length) override {
        drawn += std::size_t(length);
        return CRecordingPainter::DrawString(r, text, flags, length);
    }
};

TEST(HTMLTextFormatter, MeasuresAndDrawsInProportionToTheTextOnAMillionCharacters) {
    auto const repeat = [](std::string const& piece, std::size_t total) {
        std::string s;
        while (s.size() < total)
            s += piece;
        return s;
    };
    constexpr std::size_t n = 1000000;
    for (std::string const& text :
         {repeat("word ", n), repeat("<", n), repeat("<a href=x ", n) + ">", repeat("&", n), repeat("&#6", n),
          repeat("<b><a href=\"y\">", n), repeat("x", n), repeat("a<br>", n)}) {
        SCOPED_TRACE(text.substr(0, 12));
        CCountingPainter painter;
        CHTMLTextFormatter formatter;
        painter.DrawStringEx({0, 0, 400, 1e9}, text.c_str(), TopLeft, -1, HTMLDelimiters, &formatter);
        EXPECT_LE(painter.measured, 2 * n);
        EXPECT_LE(painter.drawn, 2 * n);
    }
}

} // namespace
