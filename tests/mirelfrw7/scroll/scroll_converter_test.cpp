#include <mirelfrw7/items/default_column_view_model.h>
#include <mirelfrw7/items/default_discrete_item_view_model.h>
#include <mirelfrw7/scroll/continuous_item_scroll_model.h>
#include <mirelfrw7/scroll/discrete_item_scroll_model.h>
#include <mirelfrw7/scroll/scroll_converter.h>

#include "test_scroll_model.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using namespace mirelfrw7;
using mirel_test::CTestScrollModel;

// Rows of mixed height are linear in rows: the scroll bar is proportional to the row count.
TEST(ScrollConverter, DiscreteModelsRoundTripThroughRowsAndRoundToTheNearest) {
    CDefaultDiscreteItemViewModel rows;
    rows.SetCount(100);
    rows.SetViewSize(200, false);
    rows.SetItemSize(1, 300);
    CDiscreteItemScrollModel model(&rows);
    CScrollConverter converter(&model);
    EXPECT_EQ(converter.L2P(3.0), 60.0);
    EXPECT_EQ(converter.P2L(60), 3.0);
    EXPECT_EQ(converter.P2L(70), 3.5);
    for (int pixel : {0, 29, 30, 31, 1500}) {
        model.SetStart(converter.P2L(pixel));
        EXPECT_EQ(rows.GetStartItem(), (pixel + 10) / 20) << pixel;
    }
}

TEST(ScrollConverter, ContinuousModelsTruncateToThePixel) {
    CDefaultColumnViewModel columns;
    columns.SetCount(10);
    columns.SetViewSize(100, false);
    CContinuousItemScrollModel model(&columns);
    CScrollConverter converter(&model);
    for (int pixel : {0, 37, 600}) {
        EXPECT_EQ(converter.L2P(converter.P2L(pixel)), pixel);
        model.SetStart(converter.P2L(pixel) + 0.9);
        EXPECT_EQ(columns.GetOffset(), pixel);
    }
}

TEST(ScrollConverter, PixelModelsAreOffsetByTheirOrigin) {
    CTestScrollModel model(50, 300);
    CScrollConverter converter(&model);
    EXPECT_EQ(converter.L2P(120.0), 70.0);
    EXPECT_EQ(converter.P2L(70), 120.0);
}

TEST(ScrollConverter, ABackwardModelCountsFromItsSmallerEnd) {
    CTestScrollModel model(100, 0);
    model.measure = {2.0, 10};
    CScrollConverter converter(&model);
    EXPECT_EQ(converter.L2P(model.GetTo()), 0.0);
    EXPECT_EQ(converter.L2P(model.GetFrom()), 500.0);
    EXPECT_EQ(converter.P2L(250), 50.0);
}

// Steps 1, 2, 3, 1, 2, 3... from step 0, two pixels per unit.
TEST(ScrollConverter, OtherModelsWalkTheirSteps) {
    CTestScrollModel model(0, 10);
    model.fixed = false;
    model.measure = {1.0, 2};
    model.stepSize = [](double step) { return double(int(step) % 3 + 1); };
    CScrollConverter converter(&model);
    EXPECT_EQ(converter.L2P(2.5), 2 * (1 + 2 + 0.5 * 3));
    EXPECT_EQ(converter.L2P(0.5), 1.0);
    EXPECT_EQ(converter.L2P(-0.5), -1.0) << "below step 0 the first step's size holds";
    for (double value : {0.0, 0.5, 1.0, 2.5, 4.75, 9.5})
        EXPECT_DOUBLE_EQ(converter.P2L(int(converter.L2P(value))), value) << value;
    EXPECT_EQ(converter.P2L(10000), 11.0) << "past the end: just above the range, no endless walk";

    model.inseparable = true;
    EXPECT_EQ(converter.L2P(2.5), 5.0) << "inseparable steps are linear";

    model.inseparable = false;
    model.stepSize = [](double) { return 0.0; };
    EXPECT_EQ(converter.P2L(-5), 0.0) << "a zero step is never divided by";
    EXPECT_EQ(converter.P2L(5), 11.0);
}

// Steps of size 0 over 2^31 but for a few stored ones, summed from what is stored as a sparse model does:
// walking every step would take minutes.
TEST(ScrollConverter, ALongRunOfEmptyStepsIsPassedFromTheStoredSums) {
    struct CSparse : CTestScrollModel {
        CSparse() : CTestScrollModel(0, 2147483648.0) {
            fixed = false;
            stepSize = [this](double step) { return sizes.count(int(step)) ? sizes.at(int(step)) : 0.0; };
        }
        double GetStepsSize(int from, int to) const override {
            double sum = 0.0;
            for (auto it = sizes.lower_bound(from); it != sizes.end() && it->first < to; ++it)
                sum += it->second;
            return sum;
        }
        std::map<int, double> sizes{{3, 2.0}, {1 << 30, 4.0}, {2147483640, 8.0}};
    } model;
    CScrollConverter converter(&model);
    EXPECT_EQ(converter.P2L(1), 3.5);
    EXPECT_EQ(converter.P2L(3), (1 << 30) + 0.25);
    EXPECT_EQ(converter.P2L(10), 2147483640.5);
}

TEST(ScrollConverter, NormalizingFitsAWideRangeInto31Bits) {
    CTestScrollModel model(0, 2);
    model.measure = {1.0, 2147483647};
    CScrollConverter converter(&model);
    EXPECT_FALSE(converter.IsNormalScale());
    EXPECT_TRUE(converter.NormalizeScale());
    EXPECT_EQ(model.measure.first, 2.0 * 2147483647 / 2147483646.0);
    EXPECT_TRUE(converter.IsNormalScale());
    EXPECT_LT(converter.L2P(2.0), 2147483647.0);
    EXPECT_FALSE(converter.NormalizeScale()) << "already fits";

    CTestScrollModel stubborn(0, 1e12);
    stubborn.acceptsMeasure = false;
    CScrollConverter stubbornConverter(&stubborn);
    EXPECT_TRUE(stubbornConverter.NormalizeScale());
    EXPECT_FALSE(stubbornConverter.IsNormalScale()) << "a model ignoring SetMeasure stays abnormal";

    CTestScrollModel empty(5, 5);
    EXPECT_FALSE(CScrollConverter(&empty).NormalizeScale());
}

TEST(ScrollConverter, AZeroMeasureOrNoModelDividesByNothing) {
    CTestScrollModel model(10, 20);
    for (std::pair<double, int> measure : {std::pair{0.0, 5}, {3.0, 0}}) {
        model.measure = measure;
        CScrollConverter converter(&model);
        EXPECT_EQ(converter.L2P(15.0), 5.0);
        EXPECT_EQ(converter.P2L(5), 15.0);
        EXPECT_TRUE(converter.IsNormalScale());
    }
    CScrollConverter none;
    EXPECT_EQ(none.L2P(3.0), 0.0);
    EXPECT_EQ(none.P2L(3), 0.0);
}

} // namespace
