#include <mirelfrw7/header/delimiters.h>
#include <mirelfrw7/header/simple_header.h>
#include <mirelfrw7/header/simple_header_model.h>
#include <mirelfrw7/items/default_column_view_model.h>

#include "support/control_fixture.h"
#include "support/probe_element.h"
#include "support/repaint_property.h"
#include "support/test_elements.h"

#include <gtest/gtest.h>

namespace {

using namespace mirelfrw7;
using mirel_test::Journal;
using Order = std::vector<int>;

class CCaptions : public CSimpleHeaderModel {
public:
    int GetItemCount() override { return int(GetOrder().size()); }
    std::string GetItemText(int index) const override { return "col" + std::to_string(GetModelIndex(index)); }
    int GetItemTextAlign(int) const override { return IPainter::AlignLeft | IPainter::AlignVCenter; }
};

TEST(SimpleHeaderModel, KeepsTheOrderAndTranslatesTheLastMove) {
    CCaptions model;
    model.InitStartOrder(4);
    model.OnMoveSection(nullptr, 1, 3);
    EXPECT_EQ(model.GetOrder(), (Order{0, 2, 3, 1}));
    struct {
        int index, translated;
    } const moves[] = {{0, 0}, {1, 3}, {2, 1}, {3, 2}, {4, 4}};
    for (auto const& m : moves)
        EXPECT_EQ(model.TranslateIndex(m.index, nullptr), m.translated) << m.index;
    model.OnMoveSection(nullptr, 3, 0);
    EXPECT_EQ(model.GetOrder(), (Order{1, 0, 2, 3}));
    EXPECT_EQ(model.TranslateIndex(1, nullptr), 2);
    model.OnMoveSection(nullptr, 0, 4);
    EXPECT_EQ(model.GetOrder(), (Order{1, 0, 2, 3})) << "an invalid end changes nothing";
    model.OnMoveSection(nullptr, 2, 2);
    EXPECT_EQ(model.TranslateIndex(2, nullptr), 2) << "a move in place is recorded";

    model.SetCount(6);
    EXPECT_EQ(model.GetOrder(), (Order{1, 0, 2, 3, 4, 5}));
    model.OnMoveSection(nullptr, 0, 5);
    model.SetCount(7);
    EXPECT_EQ(model.GetOrder(), (Order{0, 2, 3, 4, 5, 1, 6}));
    model.InsertSection(0, 9);
    model.RemoveSection(7);
    EXPECT_EQ(model.ModelIndex2Index(9), 0);
    EXPECT_EQ(model.GetModelIndex(7), -1);
    EXPECT_EQ(model.ModelIndex2Index(6), -1);
}

TEST(SimpleHeaderModel, HeadersWordBreaks) {
    EXPECT_STREQ(GetDelimiters(false), " .\n");
    EXPECT_STREQ(GetDelimiters(true), " .\n<>");
}

// Four sections of 40 pixels under a 200 x 200 control, along the edge under test.
struct SimpleHeader : testing::TestWithParam<Alignment>, tarnkit2::subscriber_base_t {
    SimpleHeader() {
        columns.SetDefaultItemSize(40);
        columns.SetCount(4);
        captions.InitStartOrder(4);
        header.SetViewModel(&columns);
        header.SetModel(&captions);
        captions.ConnectHeader(&header);
        f.control->Rearrange();
        header.sigSectionResized.connect(this, &SimpleHeader::OnResized);
        header.sigSectionClicked.connect(this, &SimpleHeader::OnClicked);
    }
    // A point `along` pixels along the header, in the middle across, in control coordinates.
    point<int> At(int along) const {
        point<double> const p =
            header.MakePoint(along, (header.GetAcross(0, 0) +
                                     header.GetAcross(header.GetBounds().right, header.GetBounds().bottom)) /
                                        2);
        point<int> at{int(p.x), int(p.y)};
        header.ElementToControl(&at);
        return at;
    }
    CSimpleHeader::HitTestResult Hit(int along) {
        point<int> at = At(along);
        header.ControlToElement(&at);
        return header.HitTest(at);
    }
    void OnResized(CSimpleHeader*, int section, int size) {
        journal.push_back("resized " + std::to_string(section) + " " + std::to_string(size));
    }
    void OnClicked(CSimpleHeader*, int section) { journal.push_back("clicked " + std::to_string(section)); }

    mirel_test::CControlFixture f{{200, 200}};
    CDefaultColumnViewModel columns;
    CCaptions captions;
    CSimpleHeader header{f.Root(), {24, 24}, GetParam()};
    mirel_test::CFilledElement pane{f.Root(), {0, 0}, AlignClient};
    Journal journal;
};

TEST_P(SimpleHeader, SectionsDividersAndTheAreaBehind) {
    struct {
        int along;
        CSimpleHeader::HitTestArea area;
        int section, drop;
    } const cases[] = {
        {0, CSimpleHeader::AreaSection, 0, 0},  {33, CSimpleHeader::AreaSection, 0, 0},
        {34, CSimpleHeader::AreaDivider, 0, 1}, {39, CSimpleHeader::AreaDivider, 0, 1},
        {40, CSimpleHeader::AreaSection, 1, 1}, {159, CSimpleHeader::AreaDivider, 3, 4},
        {160, CSimpleHeader::AreaEmpty, 0, 3},
    };
    for (auto const& c : cases) {
        CSimpleHeader::HitTestResult const hit = Hit(c.along);
        EXPECT_EQ(hit.area, c.area) << c.along;
        EXPECT_EQ(hit.section, c.section) << c.along;
        EXPECT_EQ(hit.dropIndex, c.drop) << c.along;
    }
    columns.SetLastItemExpanded(true);
    EXPECT_EQ(Hit(159).area, CSimpleHeader::AreaSection) << "a stretched last section has no divider";
    EXPECT_EQ(Hit(170).section, 3) << "and reaches the end";
}

TEST_P(SimpleHeader, ADividerDragResizesWithTheCursorOfItsEdge) {
    bool const vertical = GetParam() == AlignLeft || GetParam() == AlignRight;
    point<int> const from = At(78), to = At(100);
    f.window->InjectMouseMove(from.x, from.y);
    EXPECT_EQ(f.window->GetCursor(), vertical ? 7 : 9);
    f.window->InjectButtonDown(from.x, from.y);
    f.window->InjectMouseMove(to.x, to.y);
    f.window->InjectButtonUp(to.x, to.y);
    // A header on the left edge keeps no anchor for a resize: its widths are not checked here.
    if (GetParam() != AlignLeft) {
        EXPECT_EQ(columns.GetItemSize(1), 60);
    }
    EXPECT_EQ(header.GetState(), 0);
}

TEST_P(SimpleHeader, NoResizeWithoutTheStyleBitAndOtherButtonsOnlyRelease) {
    header.SetStyle(6);
    point<int> const edge = At(78), body = At(50);
    f.window->InjectButtonDown(edge.x, edge.y);
    EXPECT_EQ(header.GetState(), 0);
    EXPECT_EQ(header.GetSection(), 1) << "the pressed section is set on every press";
    f.window->InjectButtonUp(edge.x, edge.y);
    f.window->InjectButtonDown(body.x, body.y);
    EXPECT_EQ(header.GetState(), 3);
    f.window->InjectButtonUp(body.x, body.y, mirel7::ButtonRight);
    EXPECT_EQ(header.GetState(), 3) << "another button leaves the state";
    f.window->InjectButtonUp(body.x, body.y);
    EXPECT_EQ(journal, (Journal{"clicked 1"}));
}

TEST_P(SimpleHeader, ADropMovesTheSectionInTheModel) {
    point<int> const from = At(20), over = At(100), behind = At(180);
    f.window->InjectMouseMove(from.x, from.y);
    f.window->InjectButtonDown(from.x, from.y);
    f.window->InjectMouseMove(over.x, over.y);
    f.window->InjectButtonUp(over.x, over.y);
    EXPECT_EQ(captions.GetOrder(), (Order{1, 2, 0, 3}));
    f.window->InjectButtonDown(from.x, from.y);
    f.window->InjectMouseMove(behind.x, behind.y);
    f.window->InjectButtonUp(behind.x, behind.y);
    EXPECT_EQ(captions.GetOrder(), (Order{2, 0, 3, 1})) << "behind the last section is the last place";
}

INSTANTIATE_TEST_SUITE_P(Edges, SimpleHeader, testing::Values(AlignTop, AlignBottom, AlignLeft, AlignRight));

// Simple headers on two edges over one column model: random resizes, scrolls, moves and presses, each
// repainted partially, end on the pixels of a full paint.
TEST(SimpleHeaderRepaint, PartialRepaintsEqualAFullOne) {
    struct CHost : CSimpleHeader {
        CHost(CVisualElement* parent, Alignment alignment) : CSimpleHeader(parent, {24, 24}, alignment) {
            columns.SetDefaultItemSize(50);
            columns.SetCount(8);
            columns.SetViewSize(300, false);
            captions.InitStartOrder(8);
            SetViewModel(&columns);
            SetModel(&captions);
            captions.ConnectHeader(this);
        }
        CDefaultColumnViewModel columns;
        CCaptions captions;
    };
    mirel_test::SRepaintScenario scenario;
    scenario.clientSize = {300, 120};
    scenario.build = [](CBaseControl& control) {
        new CHost(control.GetContent(), AlignTop);
        new CHost(control.GetContent(), AlignLeft);
        new mirel_test::CFilledElement(control.GetContent(), {0, 0}, AlignClient);
        // Laid out before the first action: the pointer finds the same sections whether paints come or not.
        control.Rearrange();
    };
    scenario.act = [](CBaseControl& control, mirel7::headless::CHeadlessWindow& window,
                      std::mt19937& random) {
        auto* host = static_cast<CHost*>(
            control.GetContent()->GetChildren()->GetItem(mirel_test::Uniform(random, 0, 1)));
        int const section = mirel_test::Uniform(random, 0, 7);
        switch (mirel_test::Uniform(random, 0, 3)) {
        case 0:
            host->columns.SetItemSize(section, mirel_test::Uniform(random, 15, 90));
            break;
        case 1:
            host->columns.SetOffset(mirel_test::Uniform(random, 0, 200));
            break;
        case 2:
            host->sigSectionMoved(host, section, mirel_test::Uniform(random, 0, 7));
            break;
        default: {
            int const x = mirel_test::Uniform(random, 30, 290), y = mirel_test::Uniform(random, 0, 110);
            window.InjectMouseMove(x, y);
            window.InjectButtonDown(x, y);
            window.InjectButtonUp(x, y);
        }
        }
    };
    for (unsigned seed : {1u, 2u})
        EXPECT_TRUE(mirel_test::IncrementalPaintEqualsFullPaint(scenario, seed));
}

TEST(SimpleHeaderSettings, TheMinimalWidthIsNeverBelowFifteen) {
    mirel_test::CControlFixture f;
    CSimpleHeader header(f.Root(), {0, 20}, AlignTop);
    header.SetMinimalSectionWidth(4);
    EXPECT_EQ(header.GetMinimalSectionWidth(), 15);
    header.SetMinimalSectionWidth(40);
    EXPECT_EQ(header.GetMinimalSectionWidth(), 40);
    EXPECT_EQ(header.GetSectionCount(), 0);
    EXPECT_EQ(header.GetItemCaption(0), "");
}

} // namespace
