#include <mirelfrw7/chart/caption_source.h>
#include <mirelfrw7/chart/categorical_axis.h>

#include "mirelfrw7/chart/ruler_fixture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using Ruler = mirel_test::TRuler<CCategoricalAxis>;

struct CMonths : ICaptionSource {
    int GetCount() const override { return 4; }
    std::string GetCaption(int index) const override { return index == 1 ? "" : "M" + std::to_string(index); }
};

// The along pixel of each tick, from the recording painter's moves.
std::vector<double> Ticks(mirel7::CRecordingPainter const& painter) {
    std::vector<double> out;
    for (std::string const& line : painter.Lines({"MoveTo"}))
        out.push_back(std::stod(line.substr(7)));
    return out;
}

struct SCase {
    double start;
    bool captions;
    bool unequal;
    std::vector<std::string> labels;
    std::vector<double> ticks;
};

// Twenty pixels a category over ten of them, on a 200 pixel bottom edge.
TEST(CategoricalAxis, OneTickAndCaptionPerCategory) {
    SCase const cases[] = {
        {0,
         false,
         false,
         {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"},
         {0, 20, 40, 60, 80, 100, 120, 140, 160, 180}},
        {2.3, false, false, {"3", "4", "5", "6", "7", "8", "9"}, {14, 34, 54, 74, 94, 114, 134}},
        {-2,
         false,
         false,
         {"-1", "0", "1", "2", "3", "4", "5", "6", "7"},
         {20, 40, 60, 80, 100, 120, 140, 160, 180}},
        // The empty caption keeps its width but loses tick and text; widths follow the model's steps.
        {0, true, true, {"M0", "", "M2", "M3", "M4", "M5", "M6"}, {0, 60, 80, 120, 140, 180}},
    };
    for (SCase const& c : cases) {
        Ruler r(200, AlignBottom, 0, 10, c.start, 1.0 / 20);
        CMonths months;
        if (c.captions) r.axis.SetCaptionSource(&months);
        if (c.unequal) {
            r.model.fixed = false;
            r.model.stepSize = [](double step) { return int(step) % 2 ? 2.0 : 1.0; };
        }
        std::vector<mirel_test::SLabel> const labels = r.Draw();
        SCOPED_TRACE(testing::Message() << "start " << c.start);
        EXPECT_EQ(mirel_test::Texts(labels), c.labels);
        EXPECT_EQ(Ticks(*r.f.Recorder()), c.ticks);
        EXPECT_EQ(r.axis.GetLastLabelRect().top, 8.0);
        EXPECT_EQ(r.axis.GetLastLabelRect().bottom, 20 + 16) << "a caption may run past the strip";
    }
}

} // namespace
