#include <mirelfrw7/chart/axis.h>
#include <mirelfrw7/chart/unit_converter.h>

#include "mirelfrw7/chart/ruler_fixture.h"
#include "mirelfrw7/scroll/test_scroll_model.h"
#include "support/control_fixture.h"
#include "support/repaint_property.h"
#include "support/test_elements.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel_test::CTestScrollModel;

using Ruler = mirel_test::TRuler<CAxis>;
using mirel_test::SLabel;
using mirel_test::Texts;

struct SWorked {
    Alignment edge;
    double from, to, start, unitsPerPixel;
    double step;
    int subdivisions;
    std::vector<double> majors;
    std::vector<std::string> labels;
};

// 200 pixels along; a character is 8 pixels.
TEST(Axis, WorkedTicksAndLabels) {
    SWorked const cases[] = {
        // "1000" needs 5 nines and the 10 pixel gap: 50 units, so a step of 100 with 10 subdivisions.
        {AlignBottom, 0, 1000, 0, 1, 100, 10, {0, 100}, {"0", "100"}},
        // 4 units a pixel: "1000" takes 200 units, a step of 1000 leaves room for twice as many labels;
        // the last label slides back against the end.
        {AlignTop, 0, 1000, 250, 4, 500, 5, {500, 1000}, {"500", "1000"}},
        {AlignLeft, 0, 1000, 250, 4, 500, 5, {500, 1000}, {"500", "1000"}},
        // Hundredths of a unit a pixel: "-1.0" turned needs 0.5 units; the zero that the minor steps sum to
        // lies just below 0 and reads without a sign.
        {AlignRight, -1, 1, -1, 0.01, 1, 10, {-1, 0}, {"-1.0", "0.0"}},
        // A backward range draws the same values, counted from its far end.
        {AlignBottom, 1000, 0, 0, 1, 100, 10, {0, 100}, {"0", "100"}},
        {AlignBottom, 1000, 0, 45, 1, 100, 10, {100, 200}, {"100", "200"}},
    };
    for (SWorked const& c : cases) {
        Ruler r(200, c.edge, c.from, c.to, c.start, c.unitsPerPixel);
        std::vector<SLabel> const labels = r.Draw();
        SCOPED_TRACE(testing::Message() << "edge " << c.edge << " from " << c.from << " start " << c.start);
        EXPECT_EQ(r.axis.GetStep(), c.step);
        EXPECT_EQ(r.axis.GetSubdivisions(), c.subdivisions);
        EXPECT_THAT(r.axis.GetMajorValues(), testing::Pointwise(testing::DoubleNear(1e-9), c.majors));
        EXPECT_EQ(Texts(labels), c.labels);
        ASSERT_FALSE(r.axis.GetMinorValues().empty());
        EXPECT_GE(r.axis.GetMinorValues().front(), std::min(c.start, c.from)) << "no tick before the view";
    }
}

TEST(Axis, ALabelPastTheEndSlidesBackRightAligned) {
    Ruler r(200, AlignBottom, 0, 1000, 250, 4);
    std::vector<SLabel> const labels = r.Draw();
    ASSERT_EQ(labels.size(), 2u);
    EXPECT_EQ(labels[1].right, 199) << "ends at the axis's end";
    EXPECT_NE(r.f.Recorder()->Text().find("\"1000\""), std::string::npos);
}

struct SText {
    double value, step;
    char const* text;
};

TEST(Axis, LabelTexts) {
    CAxis axis(nullptr, {0, 20}, AlignBottom);
    SText const cases[] = {
        {3, 20, "3"},          {3, 5, "3.0"},          {0.25, 0.25, "0.2"},
        {0.5, 0.001, "0.500"}, {1, 0, "1.0000000000"}, {12345.678, 1, "12345.678"},
        {-1e-17, 0.1, "0.0"},  {-0.0, 20, "0"},        {-3, 20, "-3"},
    };
    for (SText const& c : cases)
        EXPECT_EQ(axis.GetLabelText(c.value, c.step), c.text) << c.value;
    struct CMilli : CDefUnitConverter {
        double Convert(double logical) override { return logical * 1000; }
        double ConvertBack(double shown) override { return shown / 1000; }
    } milli;
    axis.SetUnitConverter(&milli);
    EXPECT_EQ(axis.GetLabelText(2, 0.01), "2000");
    EXPECT_EQ(axis.GetLabelText(0.002, 0.001), "2.0") << "the step shows as 1";
}

// From 20 to 4000 pixels and over ranges from a billionth to a quintillion, neighbouring labels keep apart,
// and a huge value that absorbs the step ends the walk.
TEST(Axis, LabelsNeverTouchAtAnyWidthOrRange) {
    for (int width : {20, 57, 200, 999, 4000})
        for (double range : {1e-9, 3.7e-4, 1.0, 52.0, 1e6, 1e18})
            for (double from : {0.0, -range / 3, 1.7e18 + 5}) {
                Ruler r(width, AlignBottom, from, from + range, from, range / width);
                std::vector<SLabel> const labels = r.Draw();
                SCOPED_TRACE(testing::Message() << width << " px over " << range << " from " << from);
                for (std::size_t i = 1; i < labels.size(); ++i)
                    EXPECT_LT(labels[i - 1].right, labels[i].left)
                        << labels[i - 1].text << " " << labels[i].text;
                EXPECT_LE(r.axis.GetMajorValues().size() + r.axis.GetMinorValues().size(),
                          std::size_t(width + 1));
            }
}

TEST(Axis, SettersRepaintOnlyOnAChange) {
    Ruler r(200, AlignBottom, 0, 1000, 0, 1);
    r.Draw();
    r.axis.SetTickMarksSize(5, 2);
    r.axis.SetAxisOffset(0);
    r.axis.SetLabelOffset(2);
    EXPECT_FALSE(r.f.Paint());
    r.axis.SetTickMarksSize(7, 2);
    EXPECT_TRUE(r.f.Paint());
    EXPECT_NE(r.f.Recorder()->Text().find("LineTo 0,"), std::string::npos);
}

// A pane owning the models that four axes around it follow.
struct CPlot : mirel_test::CFilledElement {
    explicit CPlot(CVisualElement* parent) : CFilledElement(parent, {0, 0}, AlignClient) {}
    CTestScrollModel horz{0, 1000, 0}, vert{500, -500, 0};
    std::vector<CAxis*> axes;
};

TEST(Axis, IncrementalPaintsWhileZoomingAndScrollingEqualAFullPaint) {
    mirel_test::SRepaintScenario scenario;
    // The plot of each control, found again by its actions.
    static std::map<CBaseControl*, CPlot*> plots;
    scenario.build = [](CBaseControl& control) {
        CVisualElement* const root = control.GetContent();
        auto* const plot = plots[&control] = new CPlot(root);
        for (Alignment edge : {AlignTop, AlignBottom, AlignLeft, AlignRight}) {
            auto* const axis = new CAxis(root, {30, 30}, edge);
            axis->SetCentralPane(plot);
            axis->SetHorzScroll(&plot->horz);
            axis->SetVertScroll(&plot->vert);
            plot->axes.push_back(axis);
        }
    };
    scenario.act = [](CBaseControl& control, mirel7::headless::CHeadlessWindow&, std::mt19937& random) {
        CPlot* const plot = plots[&control];
        CTestScrollModel& model = mirel_test::Uniform(random, 0, 1) ? plot->horz : plot->vert;
        if (mirel_test::Uniform(random, 0, 1))
            model.measure = {std::pow(10.0, mirel_test::Uniform(random, -20, 20) / 10.0), 1};
        else
            model.start = mirel_test::Uniform(random, -500, 1000);
        for (CAxis* axis : plot->axes)
            axis->Update(UpdateLocal);
    };
    for (unsigned seed = 1; seed <= 10; ++seed)
        EXPECT_TRUE(mirel_test::IncrementalPaintEqualsFullPaint(scenario, seed));
}

} // namespace
