#include <mirelfrw7/layout/layout_base.h>
#include <mirelfrw7/layout/layout_manager.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel7::font;
using mirel7::IPainter;
using P = mirel7::point<double>;
using R = mirel7::rectangle<int>;
using RD = mirel7::rectangle<double>;

TEST(LayoutManager, EveryValueButLeftTopAndRightGivesTheBottomLayout) {
    ILayout* const left = CLayoutManager::GetLayout(AlignLeft);
    ILayout* const right = CLayoutManager::GetLayout(AlignRight);
    ILayout* const top = CLayoutManager::GetLayout(AlignTop);
    ILayout* const bottom = CLayoutManager::GetLayout(AlignBottom);
    EXPECT_NE(dynamic_cast<CLeftLayout*>(left), nullptr);
    EXPECT_NE(dynamic_cast<CRightLayout*>(right), nullptr);
    EXPECT_NE(dynamic_cast<CTopLayout*>(top), nullptr);
    EXPECT_NE(dynamic_cast<CBottomLayout*>(bottom), nullptr);
    for (int value : {int(AlignNone), int(AlignClient), 6, -1, 1000})
        EXPECT_EQ(CLayoutManager::GetLayout(static_cast<Alignment>(value)), bottom) << value;
    EXPECT_EQ(CLayoutManager::GetLayout(AlignLeft), left) << "the instances are shared";
}

// Each orientation once, named for the failure messages; the edge tells which axis is along.
struct SOrientation {
    std::string name;
    ILayout const* layout;
    bool vertical;
};

std::vector<SOrientation> Orientations() {
    static CVertLayout const vert;
    static CHorzLayout const horz;
    return {{"left", CLayoutManager::GetLayout(AlignLeft), true},
            {"right", CLayoutManager::GetLayout(AlignRight), true},
            {"top", CLayoutManager::GetLayout(AlignTop), false},
            {"bottom", CLayoutManager::GetLayout(AlignBottom), false},
            {"vert", &vert, true},
            {"horz", &horz, false}};
}

TEST(LayoutGeometry, AlongIsYOnVerticalEdgesAndXOnHorizontalOnes) {
    for (SOrientation const& o : Orientations()) {
        SCOPED_TRACE(o.name);
        ILayout const& l = *o.layout;
        EXPECT_EQ(l.GetAlong(10, 20), o.vertical ? 20 : 10);
        EXPECT_EQ(l.GetAcross(10, 20), o.vertical ? 10 : 20);

        // Only MakePoint and MakeRect take along first.
        EXPECT_EQ(l.MakePoint(1, 2), o.vertical ? P(2, 1) : P(1, 2));
        EXPECT_EQ(l.MakeRect(1, 2, 3, 4), o.vertical ? RD(2, 1, 4, 3) : RD(1, 2, 3, 4));

        P p(5, 7);
        EXPECT_EQ(l.IncAlong(&p, 3), &p);
        EXPECT_EQ(p, o.vertical ? P(5, 10) : P(8, 7));
        EXPECT_EQ(l.IncAcross(&p, -2), &p);
        EXPECT_EQ(p, o.vertical ? P(3, 10) : P(8, 5));
    }
}

TEST(LayoutGeometry, ReferencesAssignToTheChosenArgument) {
    for (SOrientation const& o : Orientations()) {
        SCOPED_TRACE(o.name);
        ILayout const& l = *o.layout;
        int w = 10, h = 20;
        l.GetAlongRef(w, h) = 1;
        l.GetAcrossRef(w, h) += 5;
        EXPECT_EQ(w, o.vertical ? 15 : 1);
        EXPECT_EQ(h, o.vertical ? 1 : 25);

        double x = 0.5, y = 1.5;
        EXPECT_EQ(&l.GetAlongRef(x, y), o.vertical ? &y : &x);
        EXPECT_EQ(&l.GetAcrossRef(x, y), o.vertical ? &x : &y);
    }
}

TEST(LayoutGeometry, ARectangleTakenApartIntoAlongAndAcrossIsRebuiltByMakeRect) {
    R const r(3, 5, 40, 90);
    for (SOrientation const& o : Orientations()) {
        ILayout const& l = *o.layout;
        EXPECT_EQ(l.MakeRect(l.GetAlong(r.left, r.top), l.GetAcross(r.left, r.top),
                             l.GetAlong(r.right, r.bottom), l.GetAcross(r.right, r.bottom)),
                  RD(r))
            << o.name;
    }
}

TEST(LayoutGeometry, CutRectClipsTheAlongExtentOnlyAndNeverWidensIt) {
    R const limit(10, 20, 30, 40);
    for (SOrientation const& o : Orientations()) {
        SCOPED_TRACE(o.name);
        R wide(0, 0, 100, 100);
        EXPECT_EQ(o.layout->CutRect(&wide, limit), &wide);
        EXPECT_EQ(wide, o.vertical ? R(0, 20, 100, 40) : R(10, 0, 30, 100));
        R inside(15, 25, 25, 35);
        o.layout->CutRect(&inside, limit);
        EXPECT_EQ(inside, R(15, 25, 25, 35));
    }
}

// The maps as they are described, one image per incoming alignment bit (left 1, right 2, horizontal centre 4,
// top 8, bottom 16, vertical centre 32), and whether the result starts from the flags themselves.
struct SAlignMap {
    std::string name;
    ILayout const* layout;
    bool keepsFlags;
    int image[6];
};

std::vector<SAlignMap> AlignMaps() {
    auto const o = Orientations();
    return {
        {"left", o[0].layout, false, {8, 16, 32, 2, 1, 4}},
        {"right", o[1].layout, false, {8, 16, 32, 1, 2, 4}},
        {"top", o[2].layout, true, {0, 0, 0, 16, 8, 0}},
        {"bottom", o[3].layout, true, {0, 0, 0, 0, 0, 0}},
        {"vert", o[4].layout, false, {0, 0, 32, 0, 0, 4}},
        {"horz", o[5].layout, true, {0, 0, 0, 0, 0, 0}},
    };
}

int Expected(SAlignMap const& map, int flags) {
    int result = map.keepsFlags ? flags : 0;
    for (int bit = 0; bit < 6; ++bit)
        if (flags & (1 << bit)) result |= map.image[bit];
    return result;
}

TEST(LayoutTextAlign, EveryCombinationOfTheSixBitsMapsAsTabled) {
    for (SAlignMap const& map : AlignMaps())
        for (int flags = 0; flags < 64; ++flags)
            EXPECT_EQ(map.layout->ConvTextAlign(flags), Expected(map, flags)) << map.name << " " << flags;
}

TEST(LayoutTextAlign, DrawingBitsSurviveOnlyOnHorizontalEdges) {
    for (SAlignMap const& map : AlignMaps()) {
        int const converted = map.layout->ConvTextAlign(IPainter::ClipToRect | IPainter::AlignLeft);
        EXPECT_EQ((converted & IPainter::ClipToRect) != 0, map.keepsFlags) << map.name;
    }
}

TEST(LayoutTextAlign, TheDescribedExamples) {
    EXPECT_EQ(CLayoutManager::GetLayout(AlignLeft)->ConvTextAlign(9), 10);
    EXPECT_EQ(CLayoutManager::GetLayout(AlignTop)->ConvTextAlign(8), 24) << "top is added to, never swapped";
}

TEST(LayoutFont, VerticalLayoutsTurnAFontAQuarterAndBackAndLeaveOtherTurnsAlone) {
    for (SOrientation const& o : Orientations()) {
        SCOPED_TRACE(o.name);
        font f;
        f.face = "Sans";
        f.size = 11;
        o.layout->ConvFont(&f);
        EXPECT_EQ(f.extra, o.vertical ? 2700 : 0);
        EXPECT_EQ(f.face, "Sans");
        EXPECT_EQ(f.size, 11);
        o.layout->ConvFont(&f);
        EXPECT_EQ(f.extra, 0) << "twice restores the font";

        font turned;
        turned.extra = 900;
        o.layout->ConvFont(&turned);
        EXPECT_EQ(turned.extra, 900);
    }
}

TEST(ChangeAlign, OrsTheTargetWhenAnyBitOfTheSourceIsSetAndNeverClears) {
    int result = IPainter::AlignBottom;
    ChangeAlign(IPainter::AlignLeft, &result, IPainter::AlignRight, IPainter::AlignTop);
    EXPECT_EQ(result, IPainter::AlignBottom);
    ChangeAlign(IPainter::AlignLeft | IPainter::AlignTop, &result, IPainter::AlignLeft, IPainter::AlignTop);
    EXPECT_EQ(result, IPainter::AlignBottom | IPainter::AlignTop);
    ChangeAlign(0, &result, IPainter::AlignBottom, IPainter::AlignBottom);
    EXPECT_EQ(result, IPainter::AlignBottom | IPainter::AlignTop);
}

} // namespace
