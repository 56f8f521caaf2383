#include "mirel7/xpm_pictures.h"
#include "support/allocation_counter.h"
#include "support/assert_capture.h"

#include <mirel7/custom_palette.h>
#include <mirel7/recording_painter.h>
#include <mirel7/system.h>
#include <mirel7/xpm.h>

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace {

using namespace mirel7;
using namespace mirel_test;
using Lines = std::vector<std::string>;

constexpr std::uint32_t None = 0;
constexpr std::uint32_t Word(std::uint32_t rgb) {
    return 0xFF000000u | rgb;
}

XPMImage Decoded(XPMBuf buf, XpmColorConvMap colors = {}, XpmMaskKeysSet mask = {}) {
    XPMImage image(std::move(buf), std::move(colors), std::move(mask));
    image.Init();
    return image;
}

std::map<std::uint32_t, int> Histogram(XPMImage const& image) {
    std::map<std::uint32_t, int> counts;
    for (std::uint32_t word : image.GetPixels()->words)
        ++counts[word];
    return counts;
}

std::uint32_t At(XPMImage const& image, int x, int y) {
    return image.GetPixels()->words[std::size_t(y * image.GetWidth() + x)];
}

TEST(XPMImage, DecodesTheHelpButtonPictures) {
    struct SCase {
        char const* name;
        XPMImage image;
        std::map<std::uint32_t, int> histogram;
        std::uint32_t at7x5;
    } const cases[] = {
        {"normal",
         Decoded(XPMBuf(HelpNormal)),
         {{None, 207},
          {Word(0x000000), 31},
          {Word(0xECECEC), 3},
          {Word(0xFBFBFB), 1},
          {Word(0xE3E3E3), 1},
          {Word(0xF4F4F4), 2},
          {Word(0xFFFFFF), 11}},
         Word(0x000000)},
        {"highlighted",
         Decoded(XPMBuf(HelpHighlighted)),
         {{None, 207}, {Word(0), 31}, {Word(0xFFFF00), 18}},
         Word(0)},
        {"pressed",
         Decoded(XPMBuf(HelpPressed)),
         {{None, 207}, {Word(0), 31}, {Word(0xD2D200), 18}},
         Word(0)},
    };
    for (SCase const& c : cases) {
        SCOPED_TRACE(c.name);
        ASSERT_TRUE(c.image.IsValid());
        EXPECT_EQ(c.image.GetWidth(), 16);
        EXPECT_EQ(c.image.GetHeight(), 16);
        EXPECT_EQ(Histogram(c.image), c.histogram);
        EXPECT_EQ(At(c.image, 0, 0), None);
        EXPECT_EQ(At(c.image, 6, 3), Word(0)) << "the top of the outline";
        EXPECT_EQ(At(c.image, 7, 5), c.at7x5);
    }
    XPMImage const normal = Decoded(XPMBuf(HelpNormal));
    EXPECT_EQ(At(normal, 10, 5), Word(0xECECEC));
    EXPECT_EQ(At(normal, 9, 6), Word(0xFBFBFB));
    EXPECT_EQ(At(normal, 10, 6), Word(0xE3E3E3));
    EXPECT_EQ(At(normal, 7, 11), Word(0xF4F4F4));
}

TEST(XPMImage, ReadsKeysWiderThanOneCharacterOtherVisualsAndConversions) {
    char const* const lines[] = {
        "3 1 3 2 0 0", "   s none c None", "ab m #000000 s ink", "c1 g #808080 c #FF0000", "  abc1",
    };
    EXPECT_EQ(Decoded(XPMBuf(lines)).GetPixels()->words,
              (std::vector<std::uint32_t>{None, Word(0), Word(0xFF0000)}))
        << "c before g before m; a hotspot in the header";

    XpmColorConvMap colors;
    colors.Set("INK", _color(0, 0, 255));
    colors.Set("#ff0000", _color(0, 255, 0));
    EXPECT_EQ(Decoded(XPMBuf(lines), colors).GetPixels()->words,
              (std::vector<std::uint32_t>{None, Word(0x0000FF), Word(0x00FF00)}));
    EXPECT_EQ(Decoded(XPMBuf(lines), {}, {"c1"}).GetPixels()->words,
              (std::vector<std::uint32_t>{None, Word(0), None}));

    std::vector<std::string> owned(std::begin(lines), std::end(lines));
    char const* terminated[] = {lines[0], lines[1], lines[2], lines[3], lines[4], nullptr};
    for (XPMBuf const& buf : {XPMBuf(std::move(owned)), XPMBuf(terminated, true), XPMBuf(terminated, false)})
        EXPECT_EQ(Decoded(buf).GetWidth(), 3);
}

TEST(XPMImage, AMalformedPictureAssertsOnceAndStaysEmpty) {
    std::vector<std::vector<std::string>> const malformed = {
        {},
        {"2 1 1"},
        {"2 1 1 1 7", ". c None", ".."},
        {"2 1 1 1 0 XPMEXT", ". c None", ".."},
        {"x 1 1 1", ". c None", ".."},
        {"2 -1 1 1", ". c None", ".."},
        {"0 1 1 1", ". c None", ""},
        {"99999 99999 1 1", ". c None"},
        {"2 1 1 0", ". c None", ""},
        {"2 1 1 5", ".....  c None", "..........   "},
        {"2 1 0 1", ".."},
        {"2 1 2 1", ". c None", ".."},
        {"2 1 1 1", ". c None"},
        {"2 1 1 1", ". c None", "."},
        {"2 1 1 1", ". c None", "..."},
        {"2 1 1 1", ". c None", ".x"},
        {"2 1 1 2", ". c None", ".."},
        {"2 1 1 1", ". q #000000", ".."},
        {"2 1 1 1", ". c", ".."},
        {"2 1 1 1", ". c #12345", ".."},
        {"2 1 1 1", ". c #12345G", ".."},
        {"2 1 1 1", ". c black", ".."},
        {"2 1 1 1", ". s ink", ".."},
        {"2 1 2 1", ". c None", ". c #000000", ".."},
        {"2 1 1 1", "", ".."},
    };
    for (auto const& lines : malformed) {
        SCOPED_TRACE(lines.empty() ? "(no lines)" : lines[0] + " / " + (lines.size() > 1 ? lines[1] : ""));
        CExpectAssertions asserts;
        XPMImage image{XPMBuf(lines)};
        EXPECT_FALSE(image.Init());
        EXPECT_FALSE(image.Init());
        EXPECT_EQ(asserts.Count(), 1u);
        EXPECT_EQ(image.GetWidth(), 0);
        EXPECT_EQ(image.GetPixels(), nullptr);
        EXPECT_FALSE(image.GetDisabled(nullptr).IsValid());
        CRecordingPainter painter;
        painter.DrawXPM(image, 1, 2, 0, 0, -1, -1);
        EXPECT_EQ(painter.Lines(), Lines{"DrawXPM 1,2 picture=none"});
    }
}

TEST(XPMImage, AHeaderClaimingALargePictureOverShortRowsCostsNoMemory) {
    std::vector<std::string> lines{"8192 2048 1 1", ". c None"};
    lines.resize(lines.size() + 2048);
    XPMImage image{XPMBuf(std::move(lines))};
    CExpectAssertions asserts;
    CCountAllocations allocations;
    EXPECT_FALSE(image.Init());
    EXPECT_LT(allocations.Bytes(), std::size_t(1) << 20);
}

TEST(XPMImage, GreysTowardsThePaletteBackgroundKeepingTransparency) {
    mirel_ptr<ICustomPaletteEx> const palette = CreateCustomPalette();
    palette->SetColor(ISysPalette::ColorElementBackground, _color(200, 100, 0));
    XPMImage const disabled = Decoded(XPMBuf(HelpHighlighted)).GetDisabled(palette.get());
    ASSERT_TRUE(disabled.IsValid());
    // Yellow has a brightness of (255 * 77 + 255 * 150) >> 8 = 226; black 0.
    EXPECT_EQ(Histogram(disabled),
              (std::map<std::uint32_t, int>{{None, 207}, {Word(0x643200), 31}, {Word(0xD5A371), 18}}));
    EXPECT_TRUE(XPMImage(disabled.GetBuf()).Init()) << "the greyed picture is an XPM picture of its own";
    EXPECT_EQ(Histogram(Decoded(XPMBuf(HelpNormal)).GetDisabled(nullptr))[None], 207);
}

TEST(XPMImage, DrawsPartsScaledByTheDisplayScaleOnTheRecordingPainter) {
    XPMImage const image = Decoded(XPMBuf(HelpNormal));
    int const autoScale = GetDPIAutoScale();
    struct SCase {
        double scale;
        int autoScale, srcX, srcY, width, height;
        bool disabled;
        char const* line;
    } const cases[] = {
        {1.0, 1, 0, 0, -1, -1, false, "DrawXPM 10,20,26,36 part=0,0,16,16 picture=16x16"},
        {2.0, 1, 0, 0, -1, -1, true, "DrawXPM 10,20,42,52 part=0,0,16,16 picture=16x16 disabled"},
        {1.5, 1, 4, 2, 5, 100, false, "DrawXPM 10,20,17,41 part=4,2,9,16 picture=16x16"},
        {2.0, 0, 0, 0, 3, 3, false, "DrawXPM 10,20,13,23 part=0,0,3,3 picture=16x16"},
        {1.0, 1, 16, 0, -1, -1, false, "DrawXPM 10,20 picture=none"},
        {1.0, 1, 2, 2, 0x7fffffff, 0x7fffffff, false, "DrawXPM 10,20,24,34 part=2,2,16,16 picture=16x16"},
    };
    for (SCase const& c : cases) {
        SetDPIAutoScale(c.autoScale);
        CRecordingPainter painter({100, 100}, c.scale);
        painter.SetDisabled(c.disabled);
        painter.DrawXPM(image, 10, 20, c.srcX, c.srcY, c.width, c.height);
        EXPECT_EQ(painter.Lines(), Lines{c.line});
    }
    SetDPIAutoScale(autoScale);
}

} // namespace
