#include <mirel7/painter.h>
#include <mirel7/text_flow.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace mirel7;

// 10 pixels a byte, lines 20 high; counts the bytes measured so that the cost of wrapping stays visible.
class CTenPerByte : public ITextMeasure {
public:
    double LineWidth(std::string_view line) override {
        bytes += line.size();
        return 10.0 * static_cast<double>(line.size());
    }
    double LineHeight() override { return 20; }
    std::size_t bytes = 0;
};

std::vector<std::string> Texts(std::vector<STextLine> const& lines) {
    std::vector<std::string> texts;
    for (STextLine const& line : lines)
        texts.emplace_back(line.text);
    return texts;
}

using Strings = std::vector<std::string>;

TEST(BreakLines, LineFeedsAlwaysBreakCarriageReturnsVanish) {
    CTenPerByte measure;
    EXPECT_EQ(Texts(BreakLines("one\r\ntwo\n\nfour", nullptr, 0, measure)),
              (Strings{"one", "two", "", "four"}));
    EXPECT_EQ(Texts(BreakLines("", nullptr, 0, measure)), Strings{""});
    std::vector<STextLine> const lines = BreakLines("ab\nabcd", nullptr, 0, measure);
    EXPECT_EQ(lines[1].width, 40);
}

TEST(BreakLines, WrapsAtDelimitersKeepingThemOnTheLineTheyClose) {
    CTenPerByte measure;
    // "alpha beta" is 100 wide with the blank trimmed: it fits exactly.
    EXPECT_EQ(Texts(BreakLines("alpha beta gamma", " ", 100, measure)), (Strings{"alpha beta", "gamma"}));
    EXPECT_EQ(Texts(BreakLines("alpha beta gamma", " ", 99, measure)), (Strings{"alpha", "beta", "gamma"}));
    EXPECT_EQ(Texts(BreakLines("left-right/up", "-/", 60, measure)), (Strings{"left-", "right/", "up"}));
    // A word wider than the limit stays whole on its own line rather than vanishing or looping.
    EXPECT_EQ(Texts(BreakLines("a incomprehensibly b", " ", 30, measure)),
              (Strings{"a", "incomprehensibly", "b"}));
    EXPECT_EQ(Texts(BreakLines("one two\nthree four", " ", 65, measure)),
              (Strings{"one", "two", "three", "four"}));
    std::vector<STextLine> const lines = BreakLines("alpha beta gamma", " ", 100, measure);
    EXPECT_EQ(lines[0].width, 100) << "the width of the trimmed line";
    EXPECT_EQ(lines[1].width, 50);
}

TEST(BreakLines, MeasuresALongLineAFewTimesNotOncePerWord) {
    std::string text;
    for (int i = 0; i < 800; ++i)
        text += "ab ";
    CTenPerByte measure;
    std::vector<STextLine> const lines = BreakLines(text, " ", 12000, measure);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].width, 11990) << "400 words less the last blank";
    EXPECT_LT(measure.bytes, 20 * text.size());
}

TEST(AlignBox, EachAxisWithItsPrecedence) {
    rectangle<double> const area{10, 20, 110, 60};
    size<double> const box{40, 10};
    EXPECT_EQ(AlignBox(area, box, 0), (rectangle<double>{10, 20, 50, 30})) << "top left by default";
    EXPECT_EQ(AlignBox(area, box, IPainter::AlignRight | IPainter::AlignVCenter),
              (rectangle<double>{70, 35, 110, 45}));
    EXPECT_EQ(AlignBox(area, box, IPainter::AlignHCenter | IPainter::AlignBottom),
              (rectangle<double>{40, 50, 80, 60}));
    EXPECT_EQ(AlignBox(area, box, IPainter::AlignTop | IPainter::AlignBottom).top, 50)
        << "bottom wins over top";
    EXPECT_EQ(AlignBox(area, {200, 100}, IPainter::AlignHCenter | IPainter::AlignVCenter),
              (rectangle<double>{-40, -10, 160, 90}))
        << "a box larger than the area overflows on both sides";
}

TEST(FlowText, AlignsLinesWithinTheBlockAndTheBlockWithinTheArea) {
    CTenPerByte measure;
    STextBlock const block = FlowText({0, 0, 200, 100}, "abcd\nab",
                                      IPainter::AlignHCenter | IPainter::AlignBottom, nullptr, 0, measure);
    EXPECT_EQ(block.extent, (size<double>{40, 40}));
    EXPECT_EQ(block.place, (rectangle<double>{80, 60, 120, 100}));
    EXPECT_EQ(block.lines[1].offset, 10) << "the short line is centred too";
    EXPECT_EQ(block.LineOrigin(0), (point<double>{80, 60}));
    EXPECT_EQ(block.LineOrigin(1), (point<double>{90, 80}));
    EXPECT_TRUE(block.fits);
    EXPECT_FALSE(FlowText({0, 0, 39, 100}, "abcd", 0, nullptr, 0, measure).fits);
    EXPECT_FALSE(FlowText({0, 0, 100, 19}, "abcd", 0, nullptr, 0, measure).fits);
}

TEST(FlowText, AVerticalEdgeTurnsTheBlockAndWrapsAlongTheHeight) {
    CTenPerByte measure;
    // 2700 runs the text down the screen; its lines follow one another leftwards.
    STextBlock const block = FlowText({0, 0, 100, 60}, "abc def", IPainter::AlignTop, " ", 2700, measure);
    ASSERT_EQ(Texts(block.lines), (Strings{"abc", "def"})) << "wrapped against the height of 60";
    EXPECT_EQ(block.screenSize, (size<double>{40, 30}));
    EXPECT_EQ(block.place, (rectangle<double>{0, 0, 40, 30}));
    EXPECT_EQ(block.LineOrigin(0), (point<double>{40, 0})) << "the first line's top faces right";
    EXPECT_EQ(block.LineOrigin(1), (point<double>{20, 0}));

    // Turned the other way, the end of the text is at the top: bottom alignment puts lines at their start.
    STextBlock const up = FlowText({0, 0, 100, 60}, "ab\nabcd", IPainter::AlignBottom, nullptr, 900, measure);
    EXPECT_EQ(up.lines[1].offset, 0);
    EXPECT_EQ(up.lines[0].offset, 0);
    EXPECT_EQ(up.LineOrigin(0), (point<double>{0, 60}));
}

} // namespace
