#include <mirelfrw7/items/default_column_view_model.h>
#include <mirelfrw7/items/default_discrete_item_view_model.h>
#include <mirelfrw7/scroll/continuous_item_scroll_model.h>
#include <mirelfrw7/scroll/discrete_item_scroll_model.h>
#include <mirelfrw7/scroll/physical_scroll_adapters.h>
#include <mirelfrw7/scroll/scroll_converter.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace mirelfrw7;
using Measure = std::pair<double, int>;

TEST(DiscreteItemScrollModel, CountsInItemsAndScalesByTheDefaultSize) {
    CDefaultDiscreteItemViewModel rows;
    rows.SetCount(50);
    rows.SetViewSize(100, false);
    rows.SetItemSize(3, 40);
    CDiscreteItemScrollModel model(&rows);
    EXPECT_EQ(model.GetFrom(), 0.0);
    EXPECT_EQ(model.GetTo(), 50.0);
    model.SetStart(2.5);
    EXPECT_EQ(rows.GetStartItem(), 3) << "rounds to the nearest item";
    model.SetStart(2.4);
    EXPECT_EQ(rows.GetStartItem(), 2);
    EXPECT_EQ(model.GetStart(), 2.0);
    EXPECT_EQ(model.GetMinScrollDistance(), 20);
    EXPECT_FALSE(model.IsFixedStepSize());
    EXPECT_TRUE(model.IsInseparableStep());
    EXPECT_EQ(model.GetStepSize(3.0), 2.0);
    EXPECT_EQ(model.GetStepSize(4.7), 1.0);
    model.SetStepSize(5.0, 1.5);
    EXPECT_EQ(rows.GetItemSize(5), 30);
    model.SetMeasure({7.0, 7});
    EXPECT_EQ(model.GetMeasure(), (Measure{1.0, 20}));

    model.SetStart(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(rows.GetStartItem(), 0);
    model.SetStart(1e300);
    EXPECT_EQ(rows.GetStartItem(), 46) << "far out of range is clamped like any start";
    rows.SetDefaultItemSize(0);
    EXPECT_EQ(model.GetStepSize(3.0), 1.0) << "no division by a zero default size";
}

TEST(ContinuousItemScrollModel, CountsInPixelsAndTruncates) {
    CDefaultColumnViewModel columns;
    columns.SetCount(10);
    columns.SetViewSize(300, false);
    CContinuousItemScrollModel model(&columns);
    EXPECT_EQ(model.GetTo(), 700.0);
    model.SetStart(2.9);
    EXPECT_EQ(columns.GetOffset(), 2);
    EXPECT_EQ(model.GetStart(), 2.0);
    model.SetStart(-1e300);
    EXPECT_EQ(columns.GetOffset(), 0);
    EXPECT_EQ(model.GetMinScrollDistance(), 4);
    EXPECT_TRUE(model.IsFixedStepSize());
    EXPECT_EQ(model.GetMeasure(), (Measure{1.0, 1}));
    model.SetMeasure({3.0, 3});
    EXPECT_EQ(model.GetMeasure(), (Measure{1.0, 1})) << "pixels stay pixels";

    CContinuousItemScrollModel none;
    none.SetStart(5.0);
    EXPECT_EQ(none.GetTo(), 0.0);
    EXPECT_EQ(none.GetStart(), 0.0);
    EXPECT_EQ(none.GetMinScrollDistance(), 4);
}

// A pane that is a horizontal and a vertical pixel model at once, giving only what the adapters ask for: the
// steps and the scale come from the pixel model.
struct CPixelPane : IHorzPhysicalScrollModel, IVertPhysicalScrollModel {
    double GetHorzFrom() const override { return 40; }
    double GetHorzTo() const override { return 640; }
    void SetHorzStart(double start) override { horz = start; }
    double GetHorzStart() const override { return horz; }
    int GetHorzStepInPixels() const override { return 7; }
    double GetVertFrom() const override { return -10; }
    double GetVertTo() const override { return 90; }
    void SetVertStart(double start) override { vert = start; }
    double GetVertStart() const override { return vert; }
    int GetVertStepInPixels() const override { return 9; }
    double horz = 0, vert = 0;
};

TEST(PhysicalScrollModel, AdaptersAreUniformPixelModelsOffsetByTheirOrigin) {
    CPixelPane pane;
    IScrollModel& horz = static_cast<IHorzPhysicalScrollModel&>(pane);
    IScrollModel& vert = static_cast<IVertPhysicalScrollModel&>(pane);
    horz.SetStart(100);
    vert.SetStart(20);
    EXPECT_EQ(pane.horz, 100.0);
    EXPECT_EQ(pane.vert, 20.0);
    EXPECT_EQ(horz.GetMinScrollDistance(), 7);
    EXPECT_EQ(vert.GetMinScrollDistance(), 9);
    for (IScrollModel* model : {&horz, &vert}) {
        EXPECT_TRUE(model->IsFixedStepSize());
        EXPECT_EQ(model->GetStepSize(3.0), 1.0);
        EXPECT_EQ(model->GetMeasure(), (Measure{1.0, 1}));
        CScrollConverter const converter(model);
        EXPECT_EQ(converter.L2P(55.5), 55.5 - model->GetFrom());
        EXPECT_EQ(converter.P2L(12), 12 + model->GetFrom());
    }
}

} // namespace
