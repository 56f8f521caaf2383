#include <mirelfrw7/header/header.h>
#include <mirelfrw7/items/item_utils.h>

#include "support/control_fixture.h"
#include "support/probe_element.h"
#include "support/repaint_property.h"
#include "support/storm.h"
#include "support/test_elements.h"
#include "test_header_model.h"

#include <gtest/gtest.h>

namespace {

using namespace mirelfrw7;
using mirel_test::CTestHeader;
using mirel_test::CTestHeaderItem;
using mirel_test::Journal;

constexpr char Tree[] = "A(a1:50 a2:60 B(b1:40 b2:30)) C:70 D-(d1:40 d2:40)";

// Three levels 20 pixels high: A over a1, a2 and B, B over b1 and b2; C beside A, and D closed into one
// column that stretches to the end.
struct Header : testing::Test, tarnkit2::subscriber_base_t {
    Header() {
        f.control->Rearrange();
        header.sigSectionPressing.connect(this, &Header::OnPressing);
        header.sigSectionPressed.connect(this, &Header::OnPressed);
        header.sigSectionResizing.connect(this, &Header::OnResizing);
        header.sigSectionResized.connect(this, &Header::OnResized);
        header.sigSectionExpanded.connect(this, &Header::OnExpanded);
        header.sigSectionMoved.connect(this, &Header::OnMoved);
    }
    CTestHeaderItem* operator[](char const* name) const { return header.model.Find(name); }
    rectangle<int> Rect(char const* name) const { return rectangle<int>(header.GetItemRect((*this)[name])); }
    void Drag(int x0, int y0, int x1, int y1) {
        f.window->InjectMouseMove(x0, y0);
        f.window->InjectButtonDown(x0, y0);
        f.window->InjectMouseMove(x1, y1);
    }

    void OnPressing(CHeader*, IHeaderItem* item, bool* allow) {
        journal.push_back("pressing " + item->GetText());
        *allow = allowPress;
    }
    void OnPressed(CHeader*, IHeaderItem* item) { journal.push_back("pressed " + item->GetText()); }
    void OnResizing(CHeader*, IHeaderItem* item, int width, bool* allow) {
        journal.push_back("resizing " + item->GetText() + " " + std::to_string(width));
        *allow = width < refuseFrom;
    }
    void OnResized(CHeader*, IHeaderItem* item, int width) {
        journal.push_back("resized " + item->GetText() + " " + std::to_string(width));
    }
    void OnExpanded(CHeader*, IHeaderItem* item, bool on) {
        journal.push_back("expanded " + item->GetText() + (on ? " 1" : " 0"));
    }
    void OnEdge(CHeader*, IHeaderItem* item) { journal.push_back("edge " + item->GetText()); }
    void OnMoved(CHeader*, IHeaderItem* item, int from, int to) {
        journal.push_back("moved " + item->GetText() + " " + std::to_string(from) + " " + std::to_string(to));
    }

    mirel_test::CControlFixture f{{400, 100}};
    CTestHeader header{f.Root(), Tree};
    mirel_test::CFilledElement pane{f.Root(), {0, 0}, AlignClient};
    Journal journal;
    bool allowPress = true;
    int refuseFrom = 1000;
};

TEST_F(Header, GroupsSpanTheirLeavesAndLeavesReachTheFoot) {
    ASSERT_EQ(header.GetBounds(), (rectangle<int>{0, 0, 399, 60})) << "three levels of a 16 pixel line and 4";
    struct {
        char const* name;
        rectangle<int> rect;
    } const cases[] = {
        {"A", {0, 0, 179, 19}},    {"a1", {0, 20, 49, 60}},    {"a2", {50, 20, 109, 60}},
        {"B", {110, 20, 179, 39}}, {"b1", {110, 40, 149, 60}}, {"b2", {150, 40, 179, 60}},
        {"C", {180, 0, 249, 60}},  {"D", {250, 0, 399, 60}},   {"d1", {0, 0, 0, 0}},
    };
    for (auto const& c : cases)
        EXPECT_EQ(Rect(c.name), c.rect) << c.name;
}

TEST_F(Header, TheColumnsAreTheVisibleLeaves) {
    EXPECT_EQ(header.GetCount(), 6);
    EXPECT_EQ(header.GetFullItemsSize(), 300);
    EXPECT_EQ(header.GetSectionWidth((*this)["A"]), 180);
    EXPECT_EQ(header.GetItemSize(5), 50) << "a closed group is one column of its own width";
    EXPECT_EQ(header.GetItemSize(6), -1);
    EXPECT_EQ(header.GetVisibleIndex((*this)["b1"]), 2);
    EXPECT_EQ(header.GetVisibleIndex((*this)["B"]), -1);
    EXPECT_EQ(header.GetVisibleIndex((*this)["C"]->GetModelIndex()), 4);
    EXPECT_EQ(header.VisibleIndex2ModelIndex(4), (*this)["C"]->GetModelIndex());
    EXPECT_EQ(header.GetHeaderItem(-1), nullptr);

    header.SetSingleColumnWidth(77);
    EXPECT_EQ(header.GetItemSize(0), 50) << "only for exactly one column";
    CTestHeader single(f.Root(), "only:40");
    single.SetSingleColumnWidth(77);
    EXPECT_EQ(single.GetItemSize(0), 77);
    EXPECT_EQ(single.GetFullItemsSize(), 77);
    EXPECT_EQ(single.GetItemsExtent(0, 1), 77);
}

// The view model, the hit test and the rectangles agree at any offset, and the stretched last column keeps
// its end at the view's end.
TEST_F(Header, ScrollingMovesTheLeftEdgeAndAllViewsAgree) {
    header.SetViewSize(200, false);
    header.SetOffset(60);
    EXPECT_EQ(header.GetOffset(), 60);
    EXPECT_EQ(Rect("a1"), (rectangle<int>{-60, 20, -11, 60}));
    EXPECT_EQ(Rect("D").right, 399);
    for (int x : {0, 49, 50, 119, 120, 189, 190, 199}) {
        int const column = Utils::HitTest(header, x);
        CHeader::HitTestResult const hit = header.HitTest(x, 55);
        EXPECT_EQ(header.GetVisibleIndex(hit.item), column) << x;
        EXPECT_EQ(header.GetItemsExtent(0, column) - header.GetOffset(),
                  rectangle<int>(header.GetItemRect(hit.item)).left)
            << x;
    }
}

TEST_F(Header, HitTestFindsTheSectionItsButtonAndItsEdge) {
    struct {
        int x, y;
        int type;
        char const* name;
    } const cases[] = {
        {10, 5, 1, "A"},    {160, 5, 1, "A"},      {172, 5, 3, "A"},    {179, 5, 3, "A"},
        {161, 4, 2, "A"},   {171, 14, 2, "A"},     {10, 59, 1, "a1"},   {42, 30, 3, "a1"},
        {150, 45, 1, "b2"}, {260, 30, 1, "D"},     {-1, 5, 0, nullptr}, {10, 61, 0, nullptr},
        {399, 30, 3, "D"},  {400, 30, 0, nullptr},
    };
    for (auto const& c : cases) {
        CHeader::HitTestResult const hit = header.HitTest(c.x, c.y);
        EXPECT_EQ(hit.type, c.type) << c.x << "," << c.y;
        EXPECT_EQ(hit.item, c.name ? (*this)[c.name] : nullptr) << c.x << "," << c.y;
    }
}

TEST_F(Header, DraggingAGroupEdgeResizesItsLastLeafFromThatLeafsLeftEdge) {
    f.window->InjectMouseMove(176, 5);
    EXPECT_EQ(f.window->GetCursor(), 9);
    Drag(176, 5, 220, 5);
    EXPECT_EQ((*this)["b2"]->width, 70);
    EXPECT_EQ(header.GetFullItemsSize(), 340);
    f.window->InjectMouseMove(100, 5);
    EXPECT_EQ((*this)["b2"]->width, 30) << "never below the minimum";
    f.window->InjectMouseMove(100, 50);
    f.window->InjectButtonUp(100, 50);
    EXPECT_EQ(journal, (Journal{"resizing b2 70", "resized b2 70", "resizing b2 30", "resized b2 30"}));
    EXPECT_EQ(header.GetFullItemsSize(), 300);
    EXPECT_EQ(Rect("A"), (rectangle<int>{0, 0, 179, 19}));
    EXPECT_EQ(header.GetProcessing().type, 0);
}

TEST_F(Header, ARefusedStepEndsTheResize) {
    refuseFrom = 60;
    Drag(45, 30, 55, 30);
    f.window->InjectMouseMove(70, 30);
    f.window->InjectMouseMove(52, 30);
    EXPECT_EQ(journal, (Journal{"resizing a1 55", "resized a1 55", "resizing a1 70"}));
    EXPECT_EQ((*this)["a1"]->width, 55);
    EXPECT_EQ(header.GetProcessing().type, 0);
}

TEST_F(Header, APressClicksUnlessASlotRefusesIt) {
    Drag(200, 30, 201, 30);
    EXPECT_EQ(header.GetVisualisationState((*this)["C"]), 3);
    f.window->InjectButtonUp(201, 30);
    allowPress = false;
    Drag(200, 30, 201, 30);
    EXPECT_EQ(header.GetProcessing().type, 0);
    f.window->InjectButtonUp(201, 30);
    EXPECT_EQ(journal, (Journal{"pressing C", "pressed C", "pressing C"}));
}

// The button came up over another element: the next move ends the press, with no click but a repaint.
TEST_F(Header, APressEndedUnseenRepaintsTheSection) {
    Drag(200, 30, 201, 30);
    header.ReleaseMouse();
    f.window->InjectButtonUp(200, 80);
    while (f.Paint()) {
    }
    f.window->InjectMouseMove(201, 30);
    EXPECT_EQ(header.GetProcessing().type, 0);
    EXPECT_TRUE(f.window->IsPaintPending());
    EXPECT_EQ(journal, (Journal{"pressing C"}));
}

// A second press, the first one's button up unseen, takes the first one's pressed look away.
TEST_F(Header, ASecondPressRepaintsTheFirstPressedSection) {
    Drag(200, 30, 201, 30);
    while (f.Paint()) {
    }
    f.window->InjectButtonDown(46, 30);
    EXPECT_EQ(header.GetProcessing().type, 1) << "a resize of a1";
    EXPECT_NE(header.GetVisualisationState((*this)["C"]), IHeaderItemVisualisation::HeaderSectionPressed);
    EXPECT_TRUE(f.window->IsPaintPending());
}

TEST_F(Header, TheExpandButtonTogglesAGroupAndTheHeightStays) {
    f.window->InjectButtonDown(168, 8);
    f.window->InjectButtonUp(168, 8);
    EXPECT_EQ((*this)["A"]->expandState, HeaderItemCollapsed);
    EXPECT_EQ(header.GetCount(), 3);
    EXPECT_EQ(Rect("A"), (rectangle<int>{0, 0, 49, 60})) << "a closed group is a leaf of its own width";
    header.model.sigChanged();
    f.Paint();
    EXPECT_EQ(header.GetBounds().bottom, 60) << "closed levels still count";
    header.ExpandItem((*this)["D"], true);
    EXPECT_EQ(header.GetCount(), 4);
    EXPECT_EQ(journal, (Journal{"expanded A 0", "expanded D 1"}));
}

TEST_F(Header, ADropStaysAmongTheSiblingsWhateverRowThePointerIsOn) {
    Drag(20, 45, 100, 45);
    f.window->InjectButtonUp(100, 45);
    Drag(120, 50, 160, 5);
    f.window->InjectButtonUp(160, 5);
    Drag(120, 50, 300, 5);
    f.window->InjectButtonUp(300, 5);
    Drag(200, 30, 30, 50);
    f.window->InjectButtonUp(30, 50);
    EXPECT_EQ(journal, (Journal{"pressing a1", "moved a1 0 2", "pressing b1", "moved b1 0 1", "pressing b1",
                                "moved b1 0 2", "pressing C", "moved C 1 0"}));
}

TEST_F(Header, ADragBeyondTheEndScrollsTheHeader) {
    header.SetViewSize(200, false);
    Drag(200, 30, 230, 30);
    f.window->InjectMouseMove(420, 30);
    EXPECT_NE(header.GetScrolling(), 0);
    f.system.Advance(300);
    EXPECT_GT(header.GetOffset(), 0);
    f.window->InjectMouseMove(100, 30);
    EXPECT_EQ(header.GetScrolling(), 0);
    f.window->InjectButtonUp(100, 30);
}

TEST_F(Header, PaintsOnlyTheSectionsInTheClip) {
    header.SetNativeDrawing(true);
    header.SetViewSize(200, false);
    header.SetOffset(100);
    f.Paint();
    EXPECT_EQ(f.Recorder()->Lines({"DrawControlElement"}),
              (std::vector<std::string>{
                  "DrawControlElement 5 -104,0,83,19 state=0", "DrawControlElement 5 -54,20,13,60 state=0",
                  "DrawControlElement 5 6,20,83,39 state=0", "DrawControlElement 5 6,40,53,60 state=0",
                  "DrawControlElement 5 46,40,83,60 state=0", "DrawControlElement 5 76,0,153,60 state=0",
                  "DrawControlElement 5 146,0,403,60 state=0"}))
        << "a1 lies left of the view; each piece is widened by 4 and clipped back";
}

// The caption sits left of the expand button and the marker place; a sorted section's marker points up for
// ascending, and natively the piece with the arrow stands for it.
TEST_F(Header, CaptionsButtonsAndSortMarkers) {
    (*this)["C"]->sorting = SortAscending;
    (*this)["D"]->sorting = SortDescending;
    f.Paint();
    std::vector<std::string> const captions = f.Recorder()->Lines({"DrawStringEx"});
    ASSERT_EQ(captions.size(), 8u);
    EXPECT_EQ(captions[0],
              R"(DrawStringEx "A" 3,0,145,19 flags=0x121 delimiters=" .\n" color=#000000 at=3,2,11,18)");
    EXPECT_EQ(
        captions[7],
        R"(DrawStringEx "D" 253,0,365,60 flags=0x121 delimiters=" .\n" color=#000000 at=253,22,261,38)");
    EXPECT_EQ(
        f.Recorder()->Lines({"Polygon"}),
        (std::vector<std::string>{"Polygon 172,7 172,11 168,9 pen=#000000/1/solid brush=#000000",
                                  "Polygon 172,27 172,31 168,29 pen=#000000/1/solid brush=#000000",
                                  "Polygon 234,32.25 243,32.25 238.5,27.75 pen=#a0a0a0/1/solid brush=#a0a0a0",
                                  "Polygon 369,27.75 378,27.75 373.5,32.25 pen=#a0a0a0/1/solid brush=#a0a0a0",
                                  "Polygon 388,7 388,11 392,9 pen=#000000/1/solid brush=#000000"}))
        << "A and B close to the left, C up, D down, D opens to the right";
    header.SetNativeDrawing(true);
    header.Update(UpdateLocal);
    f.Recorder()->Clear();
    f.Paint();
    std::vector<std::string> const pieces = f.Recorder()->Lines({"DrawControlElement"});
    ASSERT_EQ(pieces.size(), 8u);
    EXPECT_EQ(pieces[6], "DrawControlElement 6 176,0,253,60 state=0");
    EXPECT_EQ(pieces[7], "DrawControlElement 8 246,0,403,60 state=0");
    EXPECT_EQ(f.Recorder()->Lines({"Polygon"}).size(), 3u) << "only the buttons' arrows";
}

TEST_F(Header, AnEdgeDoubleClickOffersTheLastLeafAndItsOptimalWidth) {
    header.sigSectionEdgeDoubleClicked.connect(this, &Header::OnEdge);
    f.window->InjectDoubleClick(176, 5);
    f.window->InjectDoubleClick(100, 5);
    EXPECT_EQ(journal, (Journal{"edge b2", "pressing A", "pressed A"}));
    EXPECT_EQ(header.GetItemOptimalWidth((*this)["a2"]), 16 + 3 + 15 + 4 + 3)
        << "the text, the gap, the marker place, and what the section keeps around its content";
}

TEST_F(Header, HostedElementsSitInTheirSectionsAndHideOutOfView) {
    auto* left = new mirel_test::CFilledElement(&header, {10, 6}, AlignTop);
    auto* over = new mirel_test::CFilledElement(&header, {10, 6}, AlignTop);
    header.SetVisualElement((*this)["a1"], left, AlignLeft);
    header.SetVisualElement((*this)["C"], over, true);
    EXPECT_EQ(left->GetPosition(), (rectangle<int>{0, 37, 10, 43}));
    EXPECT_EQ(over->GetPosition(), (rectangle<int>{180, 0, 245, 60}));
    header.SetViewSize(200, false);
    header.SetOffset(100);
    EXPECT_FALSE(left->IsVisible());
    EXPECT_EQ(over->GetPosition(), (rectangle<int>{80, 0, 145, 60}));
    delete over;
    header.SetOffset(0);
    EXPECT_TRUE(left->IsVisible());
}

// A hosted element that docks, shown while its section is out of view, is hidden again by the header's own
// layout after the other children were docked beside it: they must end where a full layout puts them.
TEST_F(Header, AHostedElementHiddenInTheLayoutLeavesItsSiblingsWhereAFullLayoutPutsThem) {
    auto* hosted = new mirel_test::CFilledElement(&header, {8, 8}, AlignNone);
    header.SetVisualElement((*this)["a1"], hosted, AlignLeft);
    auto* sibling = new mirel_test::CFilledElement(&header, {0, 20}, AlignBottom);
    header.SetViewSize(200, false);
    header.SetOffset(100);
    hosted->SetAlignment(AlignLeft);
    f.Paint();
    hosted->SetVisible(true);
    f.Paint();
    rectangle<int> const incremental = sibling->GetPosition();
    f.control->Rearrange();
    EXPECT_EQ(incremental, sibling->GetPosition());
    EXPECT_FALSE(hosted->IsVisible());
}

TEST_F(Header, AHostedElementFollowsThePressOfItsSection) {
    auto* on = new mirel_test::CFilledElement(&header, {10, 6}, AlignNone);
    header.SetVisualElement((*this)["C"], on, AlignLeft);
    rectangle<int> const rest = on->GetPosition();
    Drag(200, 30, 201, 30);
    EXPECT_EQ(on->GetPosition(),
              (rectangle<int>{rest.left + 1, rest.top + 1, rest.right + 1, rest.bottom + 1}));
    f.window->InjectButtonUp(201, 30);
    EXPECT_EQ(on->GetPosition(), rest);
    Drag(200, 30, 201, 30);
    f.window->InjectMouseMove(300, 30);
    EXPECT_EQ(header.GetProcessing().type, 2) << "a drag";
    EXPECT_EQ(on->GetPosition(), rest);
}

TEST_F(Header, ATreeChangeRebuildsTheColumnsAndTheHeight) {
    auto deep = std::make_unique<CTestHeaderItem>();
    deep->parent = (*this)["b2"];
    deep->text = "deep";
    (*this)["b2"]->children.push_back(std::move(deep));
    header.model.sigChanged();
    f.Paint();
    EXPECT_EQ(header.GetBounds().bottom, 80);
    EXPECT_EQ(header.GetCount(), 6);
    EXPECT_EQ(Rect("deep"), (rectangle<int>{150, 60, 199, 80})) << "b2 became a group as wide as its leaf";
    header.model.Move((*this)["C"], 1, 0);
    EXPECT_EQ(Rect("C"), (rectangle<int>{0, 0, 69, 80}));
}

// Random resizes, drops, expansions and scrolls, each repainted partially, end on the pixels of a full
// paint.
TEST(HeaderRepaint, PartialRepaintsEqualAFullOne) {
    mirel_test::SRepaintScenario scenario;
    scenario.clientSize = {300, 90};
    scenario.build = [](CBaseControl& control) {
        // A neighbour on the left, where sections scrolled off must not show.
        new mirel_test::CFilledElement(control.GetContent(), {20, 0}, AlignLeft);
        auto* header = new CTestHeader(control.GetContent(), Tree);
        header->SetViewSize(300, false);
        new mirel_test::CFilledElement(control.GetContent(), {0, 0}, AlignClient);
    };
    scenario.act = [](CBaseControl& control, mirel7::headless::CHeadlessWindow&, std::mt19937& random) {
        // Repainted with the header, the neighbour shares its clip.
        control.GetContent()->GetChildren()->GetItem(0)->Update(UpdateLocal);
        auto* header = static_cast<CTestHeader*>(control.GetContent()->GetChildren()->GetItem(1));
        int const column = mirel_test::Uniform(random, 0, header->GetCount() - 1);
        switch (mirel_test::Uniform(random, 0, 3)) {
        case 0:
            header->SetItemSize(column, mirel_test::Uniform(random, 30, 120));
            break;
        case 1:
            header->SetOffset(mirel_test::Uniform(random, 0, 200));
            break;
        case 2: {
            auto* item = header->model.Find(mirel_test::Uniform(random, 0, 1) ? "A" : "D");
            header->ExpandItem(item, item->expandState == HeaderItemCollapsed);
            break;
        }
        default: {
            int const from = mirel_test::Uniform(random, 0, 2);
            header->model.Move(header->model.top[from].get(), from, mirel_test::Uniform(random, 0, 3));
            break;
        }
        }
    };
    for (unsigned seed : {1u, 2u, 3u})
        EXPECT_TRUE(mirel_test::IncrementalPaintEqualsFullPaint(scenario, seed));
}

// Headers with elements on their sections, under input that resizes, drags and expands, while the storm
// deletes, hides and moves the elements and the headers.
TEST(HeaderStorm, HostedElementsMayDieAnyTime) {
    auto const make = [](CVisualElement* parent, std::mt19937& random) -> CVisualElement* {
        auto* header = new CTestHeader(parent, Tree);
        header->SetAlignment(mirel_test::Uniform(random, 0, 1) ? AlignTop : AlignBottom);
        for (char const* name : {"a2", "B", "C"})
            header->SetVisualElement(header->model.Find(name),
                                     new mirel_test::CFilledElement(header, {8, 8}, AlignNone),
                                     Alignment(mirel_test::Uniform(random, 0, 5)));
        return header;
    };
    EXPECT_TRUE(mirel_test::SurvivesStorm(make, 11, mirel_test::StormActions(5000, 20000)));
}

} // namespace
