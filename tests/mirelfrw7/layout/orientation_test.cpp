#include <mirelfrw7/layout/layout_base.h>
#include <mirelfrw7/layout/layout_manager.h>

#include <gtest/gtest.h>

namespace {

using namespace mirelfrw7;
using mirel7::IPainter;
using P = mirel7::point<double>;
using R = mirel7::rectangle<int>;
using RD = mirel7::rectangle<double>;

TEST(LayoutManager, EveryValueButLeftTopAndRightGivesTheSharedBottomLayout) {
    EXPECT_NE(dynamic_cast<CLeftLayout*>(CLayoutManager::GetLayout(AlignLeft)), nullptr);
    EXPECT_NE(dynamic_cast<CRightLayout*>(CLayoutManager::GetLayout(AlignRight)), nullptr);
    EXPECT_NE(dynamic_cast<CTopLayout*>(CLayoutManager::GetLayout(AlignTop)), nullptr);
    ILayout* const bottom = CLayoutManager::GetLayout(AlignBottom);
    EXPECT_NE(dynamic_cast<CBottomLayout*>(bottom), nullptr);
    for (int value : {int(AlignNone), int(AlignClient), 6, -1})
        EXPECT_EQ(CLayoutManager::GetLayout(static_cast<Alignment>(value)), bottom) << value;
}

// Each orientation with whether the along axis is y, and its image of the six alignment bits (left 1,
// right 2, horizontal centre 4, top 8, bottom 16, vertical centre 32), added to the flags themselves when
// they are kept.
struct SOrientation {
    ILayout const* layout;
    bool vertical, keepsFlags;
    int image[6];
};

TEST(Layout, GeometryTextAlignmentAndFontFollowTheAxis) {
    static CVertLayout const vert;
    static CHorzLayout const horz;
    SOrientation const orientations[] = {
        {CLayoutManager::GetLayout(AlignLeft), true, false, {8, 16, 32, 2, 1, 4}},
        {CLayoutManager::GetLayout(AlignRight), true, false, {8, 16, 32, 1, 2, 4}},
        {CLayoutManager::GetLayout(AlignTop), false, true, {0, 0, 0, 16, 8, 0}},
        {CLayoutManager::GetLayout(AlignBottom), false, true, {}},
        {&vert, true, false, {0, 0, 32, 0, 0, 4}},
        {&horz, false, true, {}},
    };
    for (SOrientation const& o : orientations) {
        ILayout const& l = *o.layout;
        bool const v = o.vertical;
        SCOPED_TRACE(testing::Message() << "vertical " << v << " image " << o.image[0] << o.image[3]);
        EXPECT_EQ(l.GetAlong(10, 20), v ? 20 : 10);
        EXPECT_EQ(l.GetAcross(10, 20), v ? 10 : 20);
        EXPECT_EQ(l.MakePoint(1, 2), v ? P(2, 1) : P(1, 2));
        EXPECT_EQ(l.MakeRect(1, 2, 3, 4), v ? RD(2, 1, 4, 3) : RD(1, 2, 3, 4));
        P p(5, 7);
        EXPECT_EQ(l.IncAcross(l.IncAlong(&p, 3), -2), &p);
        EXPECT_EQ(p, v ? P(3, 10) : P(8, 5));
        int w = 10, h = 20;
        l.GetAlongRef(w, h) = 1;
        l.GetAcrossRef(w, h) += 5;
        EXPECT_EQ(R(w, h, 0, 0), v ? R(15, 1, 0, 0) : R(1, 25, 0, 0));
        double x = 0, y = 0;
        EXPECT_EQ(&l.GetAlongRef(x, y), v ? &y : &x);
        R wide(0, 0, 100, 100), inside(15, 25, 25, 35);
        EXPECT_EQ(l.CutRect(&wide, {10, 20, 30, 40}), &wide);
        EXPECT_EQ(wide, v ? R(0, 20, 100, 40) : R(10, 0, 30, 100));
        EXPECT_EQ(*l.CutRect(&inside, {10, 20, 30, 40}), R(15, 25, 25, 35)) << "never widens";

        for (int flags = 0; flags < 64; ++flags) {
            int expected = o.keepsFlags ? flags : 0;
            for (int bit = 0; bit < 6; ++bit)
                if (flags & (1 << bit)) expected |= o.image[bit];
            EXPECT_EQ(l.ConvTextAlign(flags), expected) << flags;
        }
        EXPECT_EQ((l.ConvTextAlign(IPainter::ClipToRect) & IPainter::ClipToRect) != 0, o.keepsFlags);

        mirel7::font f, turned;
        f.size = 11;
        l.ConvFont(&f);
        EXPECT_EQ(f.extra, v ? 2700 : 0);
        l.ConvFont(&f);
        EXPECT_EQ(f.extra, 0) << "twice restores the font";
        turned.extra = 900;
        l.ConvFont(&turned);
        EXPECT_EQ(turned.extra, 900);
    }
}

TEST(ChangeAlign, OrsTheTargetWhenAnyBitOfTheSourceIsSetAndNeverClears) {
    int result = IPainter::AlignBottom;
    ChangeAlign(IPainter::AlignLeft, &result, IPainter::AlignRight, IPainter::AlignTop);
    EXPECT_EQ(result, IPainter::AlignBottom);
    ChangeAlign(IPainter::AlignLeft | IPainter::AlignTop, &result, IPainter::AlignLeft, IPainter::AlignTop);
    EXPECT_EQ(result, IPainter::AlignBottom | IPainter::AlignTop);
}

} // namespace
