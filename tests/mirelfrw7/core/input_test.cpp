#include <mirelfrw7/core/base_control.h>

#include "support/control_fixture.h"
#include "support/probe_element.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

using namespace mirelfrw7;
using mirel7::FlagControl;
using mirel7::FlagShift;
using mirel_test::CControlFixture;
using mirel_test::CProbe;
using mirel_test::Journal;

// A (10,10)-(150,90) in the root; inside it B at (10,10)-(60,40) and C at (70,10)-(120,40), so that B spans
// control pixels 20..70 and C 80..130, both from y 20 to 50.
struct Input : testing::Test {
    CControlFixture f;
    Journal journal;
    CProbe a{f.Root(), journal, "A"}, b{&a, journal, "B"}, c{&a, journal, "C"};

    void SetUp() override {
        f.control->Rearrange();
        a.SetPos({10, 10, 150, 90}, false);
        b.SetPos({10, 10, 60, 40}, false);
        c.SetPos({70, 10, 120, 40}, false);
    }
    void Only(std::vector<std::string> const& kinds) {
        for (CProbe* p : {&a, &b, &c})
            p->filter = kinds;
    }
    void Click(int x, int y) {
        f.window->InjectMouseMove(x, y);
        f.window->InjectButtonDown(x, y);
        f.window->InjectButtonUp(x, y);
    }
};

TEST_F(Input, DownAndUpRunFromTheDeepestChildUpTheTree) {
    Only({"sigButtonDown", "HandleButtonDown", "sigButtonUp", "HandleButtonUp", "sigClick", "HandleClick"});
    Click(30, 30);
    EXPECT_EQ(journal, (Journal{"B:sigButtonDown", "B:HandleButtonDown 10,10", "A:sigButtonDown",
                                "A:HandleButtonDown 20,20", "B:sigClick", "B:sigButtonUp",
                                "B:HandleClick 10,10", "B:HandleButtonUp 10,10", "A:sigClick",
                                "A:sigButtonUp", "A:HandleClick 20,20", "A:HandleButtonUp 20,20"}));

    journal.clear();
    b.handleMouse = true;
    Click(30, 30);
    EXPECT_EQ(journal, (Journal{"B:sigButtonDown", "B:HandleButtonDown 10,10", "A:sigButtonDown",
                                "B:sigClick", "B:sigButtonUp", "B:HandleClick 10,10",
                                "B:HandleButtonUp 10,10", "A:sigClick", "A:sigButtonUp"}))
        << "a handled child suppresses the parent's handlers, not its signals";
}

TEST_F(Input, ADisabledChildTracksTheMouseButBlocksItsSiblingsOnAPress) {
    c.SetPos({40, 10, 100, 40}, false); // overlaps B from control x 50 to 70
    b.SetEnabled(false);
    b.SetCursor(12);
    Only({"sigButtonDown", "HandleButtonDown", "HandleMouseHover"});
    f.window->InjectMouseMove(55, 30);
    EXPECT_EQ(f.control->GetMouseElement(), &b);
    EXPECT_NE(f.window->GetCursor(), 12) << "a disabled element's hover leaves the cursor alone";
    f.window->InjectButtonDown(55, 30);
    EXPECT_EQ(journal,
              (Journal{"B:HandleMouseHover from null", "A:sigButtonDown", "A:HandleButtonDown 45,20"}));
}

TEST_F(Input, LeavingAfterThePressMeansNoClick) {
    Only({"sigClick", "HandleMouseLeave"});
    f.window->InjectMouseMove(30, 30);
    f.window->InjectButtonDown(30, 30);
    f.window->InjectMouseMove(90, 30);
    f.window->InjectButtonUp(90, 30);
    EXPECT_EQ(journal, (Journal{"B:HandleMouseLeave to C", "A:sigClick"}))
        << "B lost its press on leaving; A, still under the pointer, was pressed and clicks";
}

TEST_F(Input, TheWheelGoesToTheOutermostElementThatWantsIt) {
    Only({"sigWheel", "HandleWheel"});
    f.window->InjectWheel(30, 30, 1);
    EXPECT_EQ(journal, (Journal{"A:sigWheel", "A:HandleWheel 1", "B:sigWheel", "B:HandleWheel 1"}));
    journal.clear();
    a.handleWheel = true;
    f.window->InjectWheel(30, 30, -1);
    EXPECT_EQ(journal, (Journal{"A:sigWheel", "A:HandleWheel -1"}));
}

TEST_F(Input, KeysBubbleToTheParentsSignalsButOnlyUnhandledToTheirHandlers) {
    Only({"sigKeyDown", "HandleKeyDown"});
    f.Imp()->SetFocusedElement(&b, false);
    b.handleKeys = true;
    mirel7::CKeyboardEvent const handled = f.window->InjectKeyDown('A');
    EXPECT_EQ(journal, (Journal{"B:sigKeyDown 65", "B:HandleKeyDown 65", "A:sigKeyDown 65"}));
    EXPECT_TRUE(handled.handled);

    journal.clear();
    b.handleKeys = false;
    mirel7::CKeyboardEvent const unhandled = f.window->InjectKeyDown('A');
    EXPECT_EQ(journal,
              (Journal{"B:sigKeyDown 65", "B:HandleKeyDown 65", "A:sigKeyDown 65", "A:HandleKeyDown 65"}));
    EXPECT_FALSE(unhandled.handled);

    a.handleKeys = true;
    EXPECT_TRUE(f.window->InjectKeyDown('A').handled) << "handled by the focused element's parent";
}

TEST_F(Input, ATooltipRectangleComesInControlCoordinates) {
    c.SetTooltip("tip");
    f.window->InjectMouseMove(90, 30);
    mirel7::CTooltipEvent const tip = f.window->InjectTooltip(90, 30);
    EXPECT_EQ(tip.text, "tip");
    EXPECT_EQ(tip.rect, (mirel7::rectangle<int>{80, 20, 130, 50}));
}

// A delegate sees the key first, once; one below a child too: the key climbs from it to the delegating
// element, which goes on with it itself instead of handing it down again.
TEST_F(Input, AKeyIsHandedToAFocusDelegateOnlyOnce) {
    CProbe inner(&b, journal, "I");
    Only({"sigKeyDown", "HandleKeyDown"});
    f.Imp()->SetFocusedElement(&a, false);
    for (CProbe* delegate : {&b, &inner}) {
        journal.clear();
        a.SetFocusDelegate(delegate);
        f.window->InjectKeyDown('X');
        Journal expected{"B:sigKeyDown 88", "B:HandleKeyDown 88", "A:sigKeyDown 88", "A:HandleKeyDown 88"};
        if (delegate == &inner) expected.insert(expected.begin(), {"I:sigKeyDown 88", "I:HandleKeyDown 88"});
        EXPECT_EQ(journal, expected);
    }
}

TEST_F(Input, SetFocusedElementReadsTheFocusAgainAfterTheLostFocusHandlers) {
    Only({"sigGetFocus", "sigLostFocus", "HandleGetFocus", "HandleLostFocus"});
    f.Imp()->SetFocusedElement(&a, false);
    journal.clear();
    a.onFocus = [&](std::string const& what) {
        if (what == "lost") f.Imp()->SetFocusedElement(&c, false);
    };
    f.Imp()->SetFocusedElement(&b, false);
    EXPECT_EQ(journal, (Journal{"A:sigLostFocus", "A:HandleLostFocus to B", "B:sigLostFocus",
                                "B:HandleLostFocus to C", "C:sigGetFocus", "C:HandleGetFocus from B",
                                "C:sigGetFocus", "C:HandleGetFocus from A"}));
    EXPECT_EQ(f.control->GetFocusedElement(), &c);
}

TEST_F(Input, CopyToClipboardTakesCtrlCButNotCtrlShiftC) {
    Only({"sigKeyDown"});
    f.control->SetCopyToClipboard(true);
    b.text = "copied";
    b.copyEnabled = true;
    f.Imp()->SetFocusedElement(&b, false);
    f.window->InjectKeyDown('C', FlagControl);
    EXPECT_EQ(f.system.GetClipboard()->GetText(), "copied");
    EXPECT_TRUE(journal.empty()) << "a copy ends the key";

    f.system.GetClipboard()->SetText("before");
    f.window->InjectKeyDown('C', FlagControl | FlagShift);
    EXPECT_EQ(f.system.GetClipboard()->GetText(), "before");
    EXPECT_EQ(journal, (Journal{"B:sigKeyDown 67", "A:sigKeyDown 67"}));
}

// The tab chain over a tree with a plain element, a group with disabled, invisible and composite members,
// and an invisible one: forward and back, never wrapping and never cycling.
TEST(TabChain, ForwardAndBackwardSkipWhatCannotHaveTheFocus) {
    CControlFixture f;
    Journal journal;
    auto make = [&](CVisualElement* parent, char const* name, bool focusable) {
        auto* p = new CProbe(parent, journal, name, AlignTop, {0, 10});
        p->SetFocusable(focusable);
        return p;
    };
    CProbe* p1 = make(f.Root(), "P1", true);
    CProbe* group = make(f.Root(), "G", false);
    CProbe* g1 = make(group, "G1", true);
    make(group, "G2", true)->SetEnabled(false);
    make(group, "G3", true)->SetVisible(false);
    CProbe* g4 = make(group, "G4", true);
    make(f.Root(), "P2", true)->SetVisible(false);
    CProbe* p3 = make(f.Root(), "P3", true);
    CProbe* x = make(f.Root(), "X", true);
    CProbe* x1 = make(x, "X1", true);
    CProbe* x2 = make(x, "X2", true);
    f.control->Rearrange();
    f.window->InjectFocusIn();
    EXPECT_EQ(f.control->GetFocusedElement(), p1) << "the window's focus goes to the first element";

    std::vector<CVisualElement*> forward;
    for (int i = 0; i < 7; ++i) {
        f.window->InjectKeyDown(mirel7::KeyTab);
        forward.push_back(f.control->GetFocusedElement());
    }
    EXPECT_EQ(forward, (std::vector<CVisualElement*>{g1, g4, p3, x, x1, x2, x2}))
        << "Tab enters a focused composite and stops at the end";

    std::vector<CVisualElement*> backward;
    for (int i = 0; i < 7; ++i) {
        f.window->InjectKeyDown(mirel7::KeyTab, FlagShift);
        backward.push_back(f.control->GetFocusedElement());
    }
    EXPECT_EQ(backward, (std::vector<CVisualElement*>{x1, p3, g4, g1, p1, p1, p1}));
}

TEST(TabChain, ShiftTabWithNothingFocusedReachesAnOnlyFocusableFirstChild) {
    CControlFixture f;
    Journal journal;
    auto* only = new CProbe(f.Root(), journal, "only", AlignTop, {0, 10});
    only->SetFocusable(true);
    (new CProbe(f.Root(), journal, "plain", AlignTop, {0, 10}))->SetFocusable(false);
    f.control->Rearrange();
    ASSERT_EQ(f.control->GetFocusedElement(), nullptr);
    f.window->InjectKeyDown(mirel7::KeyTab, FlagShift);
    EXPECT_EQ(f.control->GetFocusedElement(), only);
}

// P1, P2 and a group G of G1, G2: the group answers the chain while the focus is inside it, never after.
// A Tab that moved the focus ends there; one at the end of the chain goes on to the window's own handling.
TEST(TabChain, TheTabHandlerLapsesWithTheFocusAndOnlyAnUnmovedTabGoesOn) {
    CControlFixture f;
    Journal journal;
    auto make = [&](CVisualElement* parent, char const* name) {
        auto* p = new CProbe(parent, journal, name, AlignTop, {0, 10});
        p->SetFocusable(true);
        return p;
    };
    CProbe* p1 = make(f.Root(), "P1");
    CProbe* p2 = make(f.Root(), "P2");
    CProbe* group = make(f.Root(), "G");
    group->SetFocusable(false);
    CProbe* g1 = make(group, "G1");
    CProbe* g2 = make(group, "G2");
    f.control->Rearrange();
    f.window->InjectFocusIn();
    g1->SetFocus(true);
    f.Imp()->SetTabHandler(group);
    p1->SetFocus(true);
    EXPECT_FALSE(f.window->InjectKeyDown(mirel7::KeyTab).passToBase) << "a Tab that moved the focus ends";
    EXPECT_EQ(f.control->GetFocusedElement(), p2) << "the group no longer answers for P1";
    g2->SetFocus(true);
    EXPECT_TRUE(f.window->InjectKeyDown(mirel7::KeyTab).passToBase) << "the chain ended: the focus stayed";
    EXPECT_EQ(f.control->GetFocusedElement(), g2);
}

// --- Dragging -------------------------------------------------------------------------------------------

// A slot on the start and over signals that answers as a test sets it.
struct CDragSlots : tarnkit2::subscriber_base_t {
    bool accepted = false, handled = false;
    rectangle<int> limits;
    void Start(CVisualElement*, int, int, DragInfo* info, bool* a, bool* h) {
        *a = accepted;
        *h = handled;
        info->limits = limits;
    }
    void Over(CVisualElement*, CVisualElement*, DragInfo*, bool* a, bool* h) {
        *a = accepted;
        *h = handled;
    }
};

TEST(DragMatrix, AHandlingSlotDecidesOtherwiseTheVirtualRunsAndAnAcceptanceStands) {
    Journal journal;
    CProbe source(nullptr, journal, "S");
    CDragSlots slots;
    source.sigStartDragging.connect(&slots, &CDragSlots::Start);
    source.sigDragOver.connect(&slots, &CDragSlots::Over);
    struct SCase {
        bool accepted, handled, virtualAnswer, answer, virtualRuns;
    };
    for (SCase const& c : {SCase{false, true, true, false, false}, SCase{true, true, false, true, false},
                           SCase{true, false, false, true, true}, SCase{false, false, true, true, true},
                           SCase{false, false, false, false, true}}) {
        slots.accepted = c.accepted;
        slots.handled = c.handled;
        source.startDrag = source.acceptDrop = c.virtualAnswer;
        DragInfo info;
        journal.clear();
        EXPECT_EQ(source.CanStartDragging(&source, 1, 2, info), c.answer);
        EXPECT_EQ(source.DragOver(&source, &source, 3, 4, info), c.answer);
        EXPECT_EQ(journal.size(), c.virtualRuns ? 2u : 0u)
            << "accepted " << c.accepted << " handled " << c.handled << " virtual " << c.virtualAnswer;
    }
}

struct Drag : Input {
    void SetUp() override {
        Input::SetUp();
        Only({"HandleStartDragging", "HandleDragOver", "HandleDropDone", "HandleDragFinished"});
        f.window->InjectMouseMove(30, 30);
        f.window->InjectButtonDown(30, 30);
    }
    bool Dragging() const { return f.Imp()->GetDraggedElement() != nullptr; }
};

TEST_F(Drag, StartsOnlyBeyondTheSensitivityOnEitherAxis) {
    b.startDrag = true;
    f.window->InjectMouseMove(32, 32);
    EXPECT_FALSE(Dragging()) << "two pixels each way stay inside a sensitivity of 2";
    f.window->InjectMouseMove(30, 33);
    EXPECT_TRUE(Dragging());
    EXPECT_EQ(journal.front(), "B:HandleStartDragging 10,10")
        << "asked at the press point, in B's coordinates";
    EXPECT_TRUE(f.window->HasCapture());
}

TEST_F(Drag, ARefusedStartIsNotAskedAgainUntilTheButtonComesUp) {
    f.window->InjectMouseMove(35, 30);
    f.window->InjectMouseMove(40, 30);
    EXPECT_EQ(journal, (Journal{"B:HandleStartDragging 10,10"}));
    f.window->InjectButtonUp(40, 30);
    f.window->InjectButtonDown(30, 30);
    f.window->InjectMouseMove(35, 30);
    EXPECT_EQ(journal.size(), 2u);
}

TEST_F(Drag, TheRectangleFollowsTheMouseInsideItsLimits) {
    CDragSlots slots;
    slots.limits = {0, 0, 20, 20};
    b.sigStartDragging.connect(&slots, &CDragSlots::Start);
    b.startDrag = true;
    f.window->InjectMouseMove(34, 30);
    EXPECT_EQ(f.Imp()->GetDragInfo().rect, (rectangle<int>{4, 0, 14, 10}));
    f.window->InjectMouseMove(60, 30);
    EXPECT_EQ(f.Imp()->GetDragInfo().rect, (rectangle<int>{10, 0, 20, 10})) << "held at the right limit";
    f.window->InjectMouseMove(0, 30);
    EXPECT_EQ(f.Imp()->GetDragInfo().rect, (rectangle<int>{0, 0, 10, 10})) << "held at the left limit";
}

TEST_F(Drag, AnAcceptedDropEndsWithDropDoneThenDragFinished) {
    b.startDrag = true;
    c.acceptDrop = true;
    c.SetCursor(12);
    f.window->InjectMouseMove(90, 30);
    EXPECT_EQ(f.window->GetCursor(), 1) << "an accepting target shows the arrow";
    f.window->InjectButtonUp(90, 30);
    EXPECT_EQ(journal, (Journal{"B:HandleStartDragging 10,10", "C:HandleDragOver B 10,10",
                                "C:HandleDropDone B 10,10", "B:HandleDragFinished on C"}));
    EXPECT_EQ(f.window->GetCursor(), 12) << "the drop shows the target's cursor";
    EXPECT_FALSE(Dragging());
    EXPECT_FALSE(f.window->HasCapture());
    EXPECT_EQ(f.Imp()->GetMouseFlags() & (CBaseControlImp::DragBufferDrop | CBaseControlImp::DragBufferDue),
              CBaseControlImp::DragBufferDrop)
        << "no paint came during the drag: no copy of the window is due";
}

// A drag that begins before the paint that was to drop the last one's copy of the window: that copy goes
// down under the new item first, and the new drag keeps a copy of its own.
TEST_F(Drag, ADragBegunBeforeTheLastOnesCopyWentLaysItAndTakesItsOwn) {
    b.startDrag = true;
    f.window->InjectMouseMove(40, 30);
    f.Paint();
    f.window->InjectButtonUp(40, 30);
    f.window->InjectButtonDown(30, 30);
    f.window->InjectMouseMove(45, 30);
    ASSERT_TRUE(Dragging());
    f.Recorder()->Clear();
    f.Paint();
    EXPECT_EQ(f.Recorder()->Lines({"DrawRasterPicture", "ExtractRasterPicture"}),
              (std::vector<std::string>{"DrawRasterPicture 0,0,200,100 picture=200x100",
                                        "ExtractRasterPicture 0,0,200,100"}));
    f.window->InjectButtonUp(45, 30);
}

// A drag begun in code asks for no repaint; a paint for another reason, with nothing of the tree to draw,
// still takes the copy of the window before the drag item goes on it.
TEST_F(Drag, AFirstPaintWithNothingElseToDrawTakesTheCopyBeforeTheItem) {
    f.window->InjectButtonUp(30, 30);
    f.Paint();
    f.Imp()->StartDragging(&b, DragInfo());
    f.window->Invalidate({0, 0, 1, 1});
    f.Recorder()->Clear();
    f.Paint();
    EXPECT_EQ(f.Recorder()->Lines({"ExtractRasterPicture"}),
              (std::vector<std::string>{"ExtractRasterPicture 0,0,200,100"}));
}

// Deletes the element whose signal it is on.
struct CDeleter : tarnkit2::subscriber_base_t {
    void Delete(CVisualElement* e, int, int, int, mirel7::MouseButton) { delete e; }
};

// On a click, on the button coming up, or between events: the drag ends, and the copy of the window under
// its item goes back at the next paint.
TEST_F(Drag, TheDraggedElementMayDieWhileTheButtonComesUpOrBetweenEvents) {
    for (int way : {0, 1, 2}) {
        auto* dragged = new CProbe(&a, journal, "D");
        dragged->SetPos({10, 50, 60, 70}, false);
        dragged->startDrag = dragged->acceptDrop = true;
        dragged->filter = {"HandleDropDone", "HandleDragFinished"};
        CDeleter deleter;
        (way == 0 ? dragged->sigClick : dragged->sigButtonUp).connect(&deleter, &CDeleter::Delete);
        f.window->InjectButtonUp(30, 30);
        f.window->InjectMouseMove(30, 70);
        f.window->InjectButtonDown(30, 70);
        f.window->InjectMouseMove(40, 75);
        ASSERT_TRUE(Dragging());
        journal.clear();
        if (way == 2) delete dragged;
        f.window->InjectButtonUp(40, 75);
        EXPECT_FALSE(Dragging());
        EXPECT_FALSE(f.window->HasCapture());
        EXPECT_EQ(journal, Journal{}) << "a drag without its source drops nothing";
        EXPECT_NE(f.Imp()->GetMouseFlags() & CBaseControlImp::DragBufferDrop, 0);
    }
}

// The window lets the mouse go when the element holding it dies, unless a drag still holds it.
TEST_F(Drag, ACapturingElementThatDiesLetsTheMouseGoUnlessADragHoldsIt) {
    for (bool dragging : {false, true}) {
        b.startDrag = dragging;
        f.window->InjectMouseMove(40, 30);
        auto* const holder = new CProbe(&a, journal, "H");
        holder->CaptureMouse();
        delete holder;
        EXPECT_EQ(f.window->HasCapture(), dragging);
        EXPECT_EQ(Dragging(), dragging);
        f.window->InjectButtonUp(40, 30);
        f.window->InjectButtonDown(30, 30);
    }
}

TEST_F(Drag, ARefusedDropFinishesOnNothingWithTheNoDropCursor) {
    b.startDrag = true;
    f.window->InjectMouseMove(90, 30);
    EXPECT_EQ(f.window->GetCursor(), 13);
    f.window->InjectButtonUp(90, 30);
    EXPECT_EQ(journal, (Journal{"B:HandleStartDragging 10,10", "C:HandleDragOver B 10,10",
                                "B:HandleDragFinished on null"}));
}

TEST_F(Drag, AButtonThatCameUpUnseenEndsTheDragAsADropOnNothing) {
    b.startDrag = true;
    c.acceptDrop = true;
    f.window->InjectMouseMove(90, 30);
    ASSERT_TRUE(Dragging());
    mirel7::CMouseEvent noButton(0, 95, 30, mirel7::ButtonNone);
    f.control->OnMouseMove(&noButton);
    EXPECT_FALSE(Dragging());
    EXPECT_EQ(journal.back(), "B:HandleDragFinished on null");
    EXPECT_FALSE(f.window->HasCapture());
    EXPECT_EQ(f.Imp()->GetClickedElement(), nullptr);
}

} // namespace

namespace {

// Takes every button press and keeps where it landed, in its own coordinates.
struct CTaker : CVisualElement {
    using CVisualElement::CVisualElement;
    bool HandleButtonDown(int x, int y, int, MouseButton) override {
        at = {x, y};
        return true;
    }
    point<int> at{-1, -1};
};

// Points and edges at the ends of int: the sign test and the shift into the child take their differences
// wide, and a shift past the range of int stops at its end.
TEST(InputAtTheEndsOfInt, HitTestsAndShiftsSaturate) {
    constexpr int Min = INT_MIN, Max = INT_MAX;
    struct SCase {
        rectangle<int> bounds;
        point<int> p;
        bool hit;
        point<int> inChild;
    };
    SCase const cases[] = {
        {{Min, Min, Max, Max}, {0, 0}, true, {Max, Max}},
        {{Min, 0, Max, 10}, {Max, 5}, true, {Max, 5}},
        {{Max, 0, Min, 10}, {-1, 5}, true, {Min, 5}},
        {{Max - 10, Max - 10, Max, Max}, {Max, Max}, true, {10, 10}},
        {{0, 0, 10, 10}, {Min, 5}, false, {}},
        {{0, 0, 10, 10}, {5, Max}, false, {}},
        {{Min, Min, Min + 10, Min + 10}, {Max, Min}, false, {}},
    };
    for (SCase const& c : cases) {
        CVisualElement parent(nullptr, {0, 0}, AlignNone);
        CTaker child(&parent, {0, 0}, AlignNone);
        child.SetPos(c.bounds, false);
        SCOPED_TRACE(testing::Message() << c.p.x << "," << c.p.y);
        EXPECT_EQ(parent.FindVisualElement(c.p.x, c.p.y), c.hit ? &child : nullptr);
        EXPECT_EQ(parent.ProcessButtonDown(c.p.x, c.p.y, 0, mirel7::MouseButton(1)), c.hit);
        if (c.hit) {
            EXPECT_EQ(child.at, c.inChild);
        }
    }
}

} // namespace
