#include <mirel7/recording_painter.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace mirel7;
using Strings = std::vector<std::string>;

IPainter::CoordInfo ElementAt(int x, int y, int cx, int cy) {
    return IPainter::CoordInfo::Mapping(0, 0, cx, cy, x, y, cx, cy);
}

TEST(RecordingPainter, LogsASmallSceneInDeviceCoordinates) {
    CRecordingPainter painter({200, 100});
    painter.BeginPaint(IPainter::PaintWindow);
    IPainter::CoordInfo const element = ElementAt(10, 20, 100, 30);
    painter.SetCoordSystem(IPainter::MapElement, &element);
    painter.SetBrush({_color(255, 0, 0)});
    painter.FillRect(0, 0, 99, 29);
    painter.SetPen({_color(0, 0, 0)});
    painter.MoveTo(0, 29);
    painter.LineTo(99, 29);
    painter.SetClipRect(0, 0, 49, 29, false);
    painter.SetTextColor(_color(0, 0, 255));
    painter.DrawString({0, 0, 99, 29}, "OK", IPainter::AlignHCenter | IPainter::AlignVCenter);
    painter.ResetClip();
    painter.EndPaint();

    EXPECT_EQ(painter.Lines(), (Strings{
                                   "BeginPaint 2",
                                   "SetCoordSystem 3 logical=0,0+100,30 device=10,20+100,30",
                                   "SetBrush #ff0000",
                                   "FillRect 10,20,109,49 brush=#ff0000",
                                   "SetPen #000000/1/solid",
                                   "MoveTo 10,49",
                                   "LineTo 10,49-109,49 pen=#000000/1/solid",
                                   "SetClipRect 10,20,59,49",
                                   "SetTextColor #0000ff",
                                   "DrawString \"OK\" 10,20,109,49 flags=0x24 color=#0000ff at=52,27,68,43",
                                   "ResetClip",
                                   "EndPaint",
                               }));
    EXPECT_EQ(painter.Lines({"FillRect", "LineTo"}),
              (Strings{"FillRect 10,20,109,49 brush=#ff0000", "LineTo 10,49-109,49 pen=#000000/1/solid"}));
    EXPECT_EQ(painter.Text().substr(0, 13), "BeginPaint 2\n");
    painter.Clear();
    EXPECT_TRUE(painter.Lines().empty());
}

TEST(RecordingPainter, PaintFrameDecidesWhenAFullRepaintIsNoLongerNeeded) {
    CRecordingPainter painter({50, 50});
    EXPECT_TRUE(painter.NeedsFullRepaint()) << "a new buffer shows nothing yet";
    painter.BeginPaint(IPainter::PaintMeasure);
    EXPECT_TRUE(painter.IsInPaint());
    painter.EndPaint();
    EXPECT_FALSE(painter.IsInPaint());
    EXPECT_TRUE(painter.NeedsFullRepaint()) << "measuring paints nothing";

    painter.BeginPaint(IPainter::PaintWindow);
    painter.BeginPaint(IPainter::PaintMeasure);
    painter.EndPaint();
    EXPECT_TRUE(painter.IsInPaint()) << "nested frames end with the outer one";
    EXPECT_TRUE(painter.NeedsFullRepaint()) << "until the pass ends";
    painter.EndPaint();
    EXPECT_FALSE(painter.NeedsFullRepaint());

    painter.Resize({60, 40});
    EXPECT_TRUE(painter.NeedsFullRepaint());
    EXPECT_EQ(painter.GetBufferSize(), (size<int>{60, 40}));
    painter.EndPaint();
    EXPECT_TRUE(painter.NeedsFullRepaint()) << "an unmatched EndPaint ends no pass";
    EXPECT_EQ(painter.Lines({"Resize"}), Strings{"Resize 60x40"});
}

TEST(RecordingPainter, StoredClipFollowsIncludesOnly) {
    CRecordingPainter painter;
    IPainter::CoordInfo const element = ElementAt(10, 20, 100, 30);
    painter.SetCoordSystem(IPainter::MapElement, &element);

    painter.SetClipRect(0, 0, 49, 29, false);
    EXPECT_EQ(painter.GetClipRect(), (rectangle<double>{10, 20, 60, 50}))
        << "inclusive in, exclusive device out";
    EXPECT_EQ(painter.GetClip().include, (rectangle<int>{10, 20, 60, 50}));

    painter.SetClipRect(5, 5, 9, 9, true);
    EXPECT_EQ(painter.GetClipRect(), (rectangle<double>{10, 20, 60, 50})) << "an exclusion is not stored";
    EXPECT_EQ(painter.GetClip().excluded, (std::vector<rectangle<int>>{{15, 25, 20, 30}}));

    painter.SimpleSetClipRect({30.5, 40, 12, 45}, false);
    EXPECT_EQ(painter.GetClipRect(), (rectangle<double>{30.5, 40, 12, 45})) << "kept as given";
    EXPECT_EQ(painter.GetClip().include, (rectangle<int>{12, 40, 31, 45})) << "every pixel touched stays";
    EXPECT_TRUE(painter.GetClip().excluded.empty()) << "an include replaces the clip in force";

    painter.ResetClip();
    EXPECT_FALSE(painter.GetClip().active);
    EXPECT_EQ(painter.GetClipRect(), (rectangle<double>{30.5, 40, 12, 45})) << "its owner clears it";
    painter.ClearStoredClip();
    EXPECT_TRUE(painter.GetClipRect().IsAllZero());
}

TEST(RecordingPainter, ColoursShowWhatTakesEffect) {
    CRecordingPainter painter;
    painter.SetBrush({_color(1, 2, 3, 128)});
    painter.FillRect(0, 0, 1, 1);
    painter.SetBrush({});
    painter.FillRect(0, 0, 1, 1);
    brush hollow{_color(9, 9, 9)};
    hollow.style = brush::Hollow;
    painter.SetBrush(hollow);
    painter.SetPen({_color(0, 0, 0), 2, pen::Dot});
    painter.Rectangle(0, 0, 5, 5);
    painter.SetBrush({_color(255, 255, 255)});
    painter.SetColorSubstitution(_color(0, 128, 0), true);
    painter.FillRect(0, 0, 1, 1);
    painter.SetColorSubstitution(_color(0, 128, 0), false);
    painter.FillRect(0, 0, 1, 1);
    painter.SetPixel(1, 1, _color(255, 0, 0, 10));

    EXPECT_EQ(painter.Lines({"FillRect", "Rectangle", "SetPixel"}),
              (Strings{
                  "FillRect 0,0,1,1 brush=#01020380",
                  "FillRect 0,0,1,1 brush=none",
                  "Rectangle 0,0,5,5 pen=#000000/2/dot brush=none",
                  "FillRect 0,0,1,1 brush=#008000",
                  "FillRect 0,0,1,1 brush=#ffffff",
                  "SetPixel 1,1 #ff0000",
              }));
}

TEST(RecordingPainter, FixedMetricsScaleWithFontTurnAndMapping) {
    CRecordingPainter painter;
    EXPECT_EQ(painter.GetTextSize("Hello"), (size<double>{40, 16}));
    EXPECT_EQ(painter.GetTextSize("Hello\nyou"), (size<double>{40, 32}));
    EXPECT_EQ(painter.GetTextSize("Hello\nyou", 0, -1, false), (size<double>{72, 16})) << "one line";
    EXPECT_EQ(painter.GetTextSize("Hello", 0, 2), (size<double>{16, 16}));
    EXPECT_EQ(painter.GetTextSize("\xc3\xa9t\xc3\xa9"), (size<double>{24, 16})) << "characters, not bytes";

    font f;
    f.size = 16;
    painter.SetFont(f);
    EXPECT_EQ(painter.GetTextSize("Hi"), (size<double>{32, 32}));
    f.size = 0;
    f.scale = 1.5;
    f.extra = 2700;
    painter.SetFont(f);
    EXPECT_EQ(painter.GetTextSize("Hi"), (size<double>{24, 24 * 1}));
    EXPECT_EQ(painter.GetTextSize("Hello"), (size<double>{24, 60})) << "screen axes";
    fontmetrics metrics;
    painter.GetFontMetrics(&metrics);
    EXPECT_EQ(metrics.ascent + metrics.descent + metrics.externalLeading, 24);

    painter.SetFont({});
    IPainter::CoordInfo info = ElementAt(0, 0, 50, 50);
    info.width = 100;
    info.height = -50;
    painter.SetCoordSystem(IPainter::MapElement, &info);
    EXPECT_EQ(painter.GetTextSize("Hello"), (size<double>{80, -16})) << "logical units, flips included";
    EXPECT_EQ(painter.GetTextSize("Hello", 0, -1, true, false), (size<double>{40, 16}));
}

TEST(RecordingPainter, TextFlagsWrappingClippingAndMeasuring) {
    CRecordingPainter painter;
    painter.SetTextColor(_color(0, 0, 0));

    size<double> const wrapped =
        painter.DrawStringEx({0, 0, 100, 100}, "alpha beta gamma", 0, -1, " ", nullptr);
    EXPECT_EQ(wrapped, (size<double>{80, 32}));
    painter.SetElementFlag(0);
    painter.DrawString({0, 0, 30, 16}, "alpha", IPainter::ClipToRect | IPainter::AlignRight, -1);
    EXPECT_EQ(painter.GetElementFlag(), 1) << "the text did not fit";
    painter.SetElementFlag(0);
    painter.DrawString({0, 0, 40, 16}, "alpha", IPainter::ClipToRect, -1);
    EXPECT_EQ(painter.GetElementFlag(), 0) << "exactly as wide fits";
    painter.DrawString({0, 0, 30, 16}, "alpha", 0, -1);
    EXPECT_EQ(painter.GetElementFlag(), 0) << "only clipped text reports";
    painter.DrawString({0, 0, 100, 20}, "a\"b", IPainter::MeasureOnly | IPainter::AlignBottom, -1);

    EXPECT_EQ(painter.Lines({"DrawString", "DrawStringEx"}),
              (Strings{
                  "DrawStringEx \"alpha beta gamma\" 0,0,100,100 flags=0x0 delimiters=\" \" color=#000000 "
                  "at=0,0,80,32 lines=\"alpha beta\",\"gamma\"",
                  "DrawString \"alpha\" 0,0,30,16 flags=0x102 color=#000000 at=-10,0,30,16 overflows",
                  "DrawString \"alpha\" 0,0,40,16 flags=0x100 color=#000000 at=0,0,40,16",
                  "DrawString \"alpha\" 0,0,30,16 flags=0x0 color=#000000 at=0,0,40,16 overflows",
                  "DrawString \"a\\\"b\" 0,0,100,20 flags=0x1010 at=0,4,24,20",
              }));

    EXPECT_EQ(painter.GetTextRect({0, 0, 100, 20}, {40, 16}, IPainter::AlignRight | IPainter::AlignBottom),
              (rectangle<double>{60, 4, 100, 20}));
}

TEST(RecordingPainter, FormatterFramesTheTextCall) {
    struct CFormatter : IPainter::ITextFormatter {
        void BeforeFormatting(IPainter* p) override {
            calls.push_back("before " + std::to_string(Logged(p)));
        }
        void AfterFormatting(IPainter* p) override { calls.push_back("after " + std::to_string(Logged(p))); }
        static std::size_t Logged(IPainter* p) { return static_cast<CRecordingPainter*>(p)->Lines().size(); }
        Strings calls;
    } formatter;
    CRecordingPainter painter;
    painter.DrawStringEx({0, 0, 10, 10}, "x", 0, -1, nullptr, &formatter);
    EXPECT_EQ(formatter.calls, (Strings{"before 0", "after 1"}));
}

TEST(RecordingPainter, BufferCallsAreLoggedWithoutPixels) {
    CRecordingPainter painter({10, 10});
    EXPECT_EQ(painter.BeginPixelAccess().data, nullptr);
    painter.EndPixelAccess();
    EXPECT_TRUE(painter.GetPixel(1, 1).empty);
    EXPECT_FALSE(painter.SavePng("/nonexistent/x.png"));
    painter.ScrollBuffer(0, -3, {0, 3, 9, 9});
    painter.DrawRasterPicture(nullptr, 0, 0, 16, 16);
    painter.SetDisabled(true);
    painter.DrawControlElement(IPainter::ControlChecked, 0, 0, 12, 12, 0);
    EXPECT_EQ(painter.Lines(), (Strings{
                                   "BeginPixelAccess",
                                   "EndPixelAccess",
                                   "GetPixel 1,1",
                                   "SavePng \"/nonexistent/x.png\"",
                                   "ScrollBuffer 0,-3 0,3,9,9",
                                   "DrawRasterPicture 0,0,16,16 picture=none",
                                   "DrawControlElement 1 0,0,12,12 state=0 disabled",
                               }));
}

} // namespace
