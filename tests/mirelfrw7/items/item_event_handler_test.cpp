#include <mirelfrw7/items/continuous_item_event_handler.h>
#include <mirelfrw7/items/def_list_box_handler.h>
#include <mirelfrw7/items/default_selection_model.h>
#include <mirelfrw7/items/discrete_item_event_handler.h>
#include <mirelfrw7/items/editor_event_handler.h>
#include <mirelfrw7/items/tooltip_event_handler.h>

#include "handler_host.h"
#include "support/control_fixture.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel7::ButtonLeft;
using mirel7::ButtonMiddle;
using mirel7::ButtonRight;
using H = CEventHandlerBase;
constexpr int Shift = mirel7::FlagShift, Ctrl = mirel7::FlagControl;
constexpr int Row = 15; // 200 x 100 pixels: rows 0..5 show, row 6 only in part

// A list of rows on a headless control, with the handler's own models.
template <class Handler = CDiscreteItemEventHandler>
struct CList {
    explicit CList(int count, H::SelectionType type = H::SelectFree) {
        host = new mirel_test::CHandlerHost(f.Root());
        host->first = &handler;
        handler.SetViewer(host);
        handler.SetDirection(H::Vertical);
        handler.SetItemPainter(&painter);
        handler.SetSelectionType(type);
        vm()->SetDefaultItemSize(Row);
        vm()->SetCount(count);
        f.window->InjectResize(200, 100);
        f.Paint();
        host->SetFocus(true);
        f.window->RunPending();
        painter.entries.clear();
    }
    ~CList() { host->first = nullptr; }

    auto* vm() { return handler.GetViewModel(); }
    ISelectionModel* sel() { return handler.GetItemSelectionModel(); }
    void Click(int item, int modifiers = 0, mirel7::MouseButton button = ButtonLeft) {
        int const y = item * Row + 5 - Start();
        f.window->InjectButtonDown(50, y, button, modifiers);
        f.window->InjectButtonUp(50, y, button, modifiers);
    }
    // A paint pass, after which the models forget what was dirty, as a viewer has them do.
    void Paint() {
        f.Paint();
        vm()->OnEndDraw();
        sel()->OnEndDraw();
    }
    void Key(int key, int modifiers = 0) { f.window->InjectKeyDown(key, modifiers); }
    int Start() {
        if constexpr (std::is_same_v<Handler, CDiscreteItemEventHandler>)
            return vm()->GetStartItem() * Row;
        else
            return vm()->GetOffset();
    }
    // "selected items | current".
    std::string State() {
        std::ostringstream out;
        for (int i = -1; sel()->GetNextSelectedItem(i);)
            out << i << " ";
        out << "| " << sel()->GetCurrent();
        return out.str();
    }

    mirel_test::CControlFixture f{{200, 100}};
    Handler handler;
    mirel_test::CItemJournal painter;
    mirel_test::CHandlerHost* host;
};

TEST(ItemEventHandler, ClickSequences) {
    struct Click {
        int item, modifiers;
        mirel7::MouseButton button = ButtonLeft;
    };
    struct Case {
        H::SelectionType type;
        std::vector<Click> clicks;
        std::string state;
    } const cases[] = {
        {H::SelectFree, {{2, 0}}, "2 | 2"},
        {H::SelectFree, {{2, 0}, {5, Shift}}, "2 3 4 5 | 5"},
        {H::SelectFree, {{2, 0}, {5, Shift}, {3, Shift}}, "2 3 | 3"},
        {H::SelectFree, {{4, 0}, {1, Shift}}, "1 2 3 4 | 1"},
        {H::SelectFree, {{2, 0}, {4, Ctrl}}, "2 4 | 4"},
        {H::SelectFree, {{2, 0}, {4, Ctrl}, {5, 0}}, "5 | 5"},
        {H::SelectFree, {{2, 0}, {2, Ctrl}}, "| 2"},
        {H::SelectFree, {{2, 0}, {2, Shift}}, "2 | 2"},
        {H::SelectFree, {{2, 0}, {6, Ctrl}}, "2 | 2"},
        {H::SelectFree, {{2, 0}, {2, 0, ButtonRight}}, "2 | 2"},
        {H::SelectFree, {{2, 0}, {3, 0, ButtonRight}}, "3 | 3"},
        {H::SelectFree, {{2, 0}, {4, Ctrl}, {2, 0, ButtonRight}}, "2 4 | 4"},
        {H::SelectFree, {{2, 0}, {3, 0, ButtonMiddle}}, "2 | 2"},
        {H::SelectOneItem, {{2, 0}, {5, Shift}}, "5 | 5"},
        {H::SelectOneItem, {{2, 0}, {4, Ctrl}}, "4 | 4"},
        {H::SelectNoItems, {{2, 0}, {5, Shift}, {3, Ctrl}}, "| 3"},
    };
    for (auto const& c : cases) {
        CList list(6, c.type);
        for (auto const& click : c.clicks)
            list.Click(click.item, click.modifiers, click.button);
        EXPECT_EQ(list.State(), c.state) << &c - cases;
    }
}

TEST(ItemEventHandler, ShiftWithoutAnAnchorStartsAtTheCurrentItem) {
    CList list(6);
    list.sel()->SetSelectionRange(0, 1);
    list.sel()->SetCurrent(3);
    list.Click(5, Shift);
    EXPECT_EQ(list.State(), "3 4 5 | 5");
    EXPECT_EQ(list.handler.GetAnchor(), 3);
}

TEST(ItemEventHandler, KeysAtBothEnds) {
    struct Case {
        int current, start, key, modifiers;
        std::string state;
        int newStart;
    } const cases[] = {
        {5, 3, mirel7::KeyHome, 0, "0 | 0", 0},
        {5, 3, mirel7::KeyEnd, 0, "49 | 49", 44},
        {5, 3, mirel7::KeyHome, Shift, "0 1 2 3 4 5 | 0", 0},
        {0, 0, mirel7::KeyUp, 0, "| 0", 0},
        {49, 44, mirel7::KeyDown, 0, "| 49", 44},
        {3, 3, mirel7::KeyUp, 0, "2 | 2", 2},
        {8, 3, mirel7::KeyDown, 0, "9 | 9", 4},
        {8, 3, mirel7::KeyDown, Shift, "8 9 | 9", 4},
        {8, 3, mirel7::KeyDown, Ctrl, "| 9", 4},
        {20, 3, mirel7::KeyDown, 0, "21 | 21", 21},
        {5, 3, mirel7::KeyPageDown, 0, "11 | 11", 9},
        {5, 3, mirel7::KeyPageUp, 0, "2 | 2", 0},
        {20, 20, mirel7::KeyPageUp, 0, "14 | 14", 14},
        {47, 44, mirel7::KeyPageDown, 0, "49 | 49", 44},
        {5, 3, mirel7::KeyLeft, 0, "| 5", 3},
        {5, 3, mirel7::KeySpace, 0, "5 | 5", 3},
    };
    for (auto const& c : cases) {
        CList list(50);
        list.vm()->SetStartItem(c.start);
        list.sel()->SetCurrent(c.current);
        list.Key(c.key, c.modifiers);
        EXPECT_EQ(list.State(), c.state) << &c - cases;
        EXPECT_EQ(list.vm()->GetStartItem(), c.newStart) << &c - cases;
    }
}

TEST(ItemEventHandler, KeysOnAnEmptyListDoNothing) {
    CList list(0);
    for (int key : std::initializer_list<int>{mirel7::KeyHome, mirel7::KeyDown, mirel7::KeyPageDown,
                                              mirel7::KeySpace, int('A')}) {
        list.Key(key, key == 'A' ? Ctrl : 0);
        EXPECT_EQ(list.State(), "| -1") << key;
    }
    CList<CContinuousItemEventHandler> columns(0);
    columns.Key(mirel7::KeyHome);
    EXPECT_EQ(columns.State(), "| -1");
}

TEST(ItemEventHandler, CtrlASelectsEverythingAsOneRun) {
    CList list(50);
    list.Key('A', Ctrl);
    EXPECT_EQ(list.sel()->GetSelectedCount(), 50);
    EXPECT_FALSE(list.sel()->IsItemSelected(50));
}

TEST(ItemEventHandler, DragBeyondTheViewScrollsTickByTickToTheEnd) {
    CList list(10);
    list.f.window->InjectButtonDown(50, 1 * Row + 5);
    list.f.window->InjectMouseMove(50, 40, mirel7::FlagLeftButton);
    EXPECT_EQ(list.State(), "1 2 | 2") << "past the threshold the drag selects";
    list.f.window->InjectMouseMove(50, 150, mirel7::FlagLeftButton);
    EXPECT_EQ(list.handler.GetScrollState(), 1);
    std::vector<std::string> ticks;
    for (int tick = 0; tick < 6; ++tick) {
        list.f.system.Advance(100);
        ticks.push_back(std::to_string(list.vm()->GetStartItem()) + " " + list.State());
    }
    EXPECT_EQ(ticks, (std::vector<std::string>{"1 1 2 3 4 5 | 5", "2 1 2 3 4 5 6 | 6", "3 1 2 3 4 5 6 7 | 7",
                                               "4 1 2 3 4 5 6 7 8 9 | 9", "4 1 2 3 4 5 6 7 8 9 | 9",
                                               "4 1 2 3 4 5 6 7 8 9 | 9"}));
    EXPECT_EQ(list.handler.GetScrollState(), 0) << "the end stops it";
    list.f.window->InjectMouseMove(50, -20, mirel7::FlagLeftButton);
    list.f.system.Advance(100);
    EXPECT_EQ(list.vm()->GetStartItem(), 3);
    EXPECT_EQ(list.State(), "1 2 3 | 3");
    list.f.window->InjectButtonUp(50, -20);
    list.f.system.Advance(500);
    EXPECT_EQ(list.vm()->GetStartItem(), 3) << "the release stops it";
}

// Counts the late notices the application hears.
struct CNotices : tarnkit2::subscriber_base_t {
    explicit CNotices(H& h) { h.sigSelectionChanged.connect(this, &CNotices::On); }
    void On() { ++count; }
    int count = 0;
};

TEST(ItemEventHandler, TheSelectionNoticeComesOnceAfterTheEventOrAfterTheKeysPause) {
    CList list(50);
    list.handler.SetNotification(true);
    CNotices notices(list.handler);
    list.Click(2);
    list.Click(4, Shift);
    EXPECT_EQ(notices.count, 0) << "never inside the event";
    list.f.window->RunPending();
    EXPECT_EQ(notices.count, 1) << "one for both clicks";

    SetSelectionChangeDelay(300);
    for (int i = 0; i < 3; ++i) {
        list.Key(mirel7::KeyDown);
        list.f.system.Advance(200);
        list.f.window->RunPending();
    }
    EXPECT_EQ(notices.count, 1) << "every key restarts the wait";
    list.f.system.Advance(100);
    EXPECT_EQ(notices.count, 2);
    list.Click(list.vm()->GetStartItem());
    list.f.window->RunPending();
    EXPECT_EQ(notices.count, 3) << "a click is told at once";
    SetSelectionChangeDelay(0);
}

TEST(ItemEventHandler, AQueuedNoticeOfADeadHandlerRunsEmpty) {
    CList list(5);
    auto other = std::make_unique<CDiscreteItemEventHandler>();
    other->SetViewer(list.host);
    other->SetNotification(true);
    other->SetSelectionModel(list.sel());
    CNotices notices(*other);
    list.Click(1);
    other.reset();
    EXPECT_EQ(list.f.window->RunPending(), 1);
    EXPECT_EQ(notices.count, 0);
}

TEST(ItemEventHandler, PaintsTheVisibleItemsAndMarksEveryRowWhoseSelectionChanged) {
    CList list(50);
    list.vm()->SetStartItem(44);
    list.Paint();
    EXPECT_EQ(list.painter.entries,
              (std::vector<std::string>{"44:0 dirty", "45:0 dirty", "46:0 dirty", "47:0 dirty", "48:0 dirty",
                                        "49:0 dirty", "empty 90..99"}));
    list.vm()->SetStartItem(0);
    list.Click(1);
    list.Click(4, Shift);
    list.Paint();
    list.painter.entries.clear();
    list.Click(2, Shift);
    list.Paint();
    EXPECT_EQ(list.painter.entries, (std::vector<std::string>{"0:0", "1:1 dirty", "2:3 dirty", "3:0 dirty",
                                                              "4:0 dirty", "5:0", "6:0"}))
        << "the rows given up are dirty";
    CList fresh(50);
    fresh.sel()->SetSelectionRange(1, 3);
    fresh.sel()->SetCurrent(3);
    fresh.Paint();
    fresh.painter.entries.clear();
    fresh.Click(5, Shift);
    fresh.Paint();
    EXPECT_EQ(fresh.painter.entries, (std::vector<std::string>{"0:0", "1:0 dirty", "2:0 dirty", "3:1 dirty",
                                                               "4:1 dirty", "5:3 dirty", "6:0"}))
        << "a run the anchor did not make";
}

TEST(ItemEventHandler, FocusRepaintsSixSelectedItemsOneByOneAndMoreAllAtOnce) {
    for (int last : {5, 6}) {
        CList list(50);
        list.sel()->SetSelectionRange(0, last);
        list.sel()->OnEndDraw();
        list.f.window->InjectFocusOut();
        auto const* updates = &static_cast<CDefaultSelectionModel*>(list.sel())->GetUpdates();
        EXPECT_EQ(updates->GetRanges().size(), last == 5 ? 6u : 1u);
        EXPECT_EQ(updates->GetItemType(last), IDirtyItemSet::DirtyItem);
        EXPECT_EQ(updates->GetItemType(7), last == 5 ? IDirtyItemSet::CleanItem : IDirtyItemSet::DirtyItem);
    }
}

TEST(ItemEventHandler, ColumnsScrollByPixelsAndReachTheirLastItem) {
    CList<CContinuousItemEventHandler> cols(7);
    cols.handler.SetDirection(H::Vertical);
    cols.vm()->SetOffset(5);
    cols.Paint();
    EXPECT_EQ(cols.painter.entries.front(), "0:0 h5 dirty");
    cols.vm()->SetOffset(0);
    cols.Click(6);
    int const last = cols.vm()->GetOffset();
    EXPECT_EQ(last, 7 * Row - cols.vm()->GetViewSize())
        << "forwards, the item comes in at the start, as far as the items go";
    cols.Key(mirel7::KeyUp);
    EXPECT_EQ(cols.vm()->GetOffset(), last) << "still wholly visible";
    cols.Key(mirel7::KeyHome);
    EXPECT_EQ(cols.State(), "0 | 0");
    cols.f.window->InjectButtonDown(50, 5);
    cols.f.window->InjectMouseMove(50, 40, mirel7::FlagLeftButton);
    cols.f.window->InjectMouseMove(50, 150, mirel7::FlagLeftButton);
    for (int tick = 0; tick < 10; ++tick)
        cols.f.system.Advance(100);
    EXPECT_EQ(cols.vm()->GetOffset(), 7 * Row - cols.vm()->GetViewSize()) << cols.State();
    EXPECT_EQ(cols.sel()->GetCurrent(), 6) << "the end reaches the last item";
    EXPECT_TRUE(cols.sel()->IsItemSelected(6));
}

TEST(ItemEventHandler, SettingNoModelGoesBackToTheDefaults) {
    CDiscreteItemEventHandler handler;
    CDefaultSelectionModel mine;
    ISelectionModel* const own = handler.GetItemSelectionModel();
    handler.SetSelectionModel(&mine);
    EXPECT_EQ(handler.GetItemSelectionModel(), &mine);
    handler.SetSelectionModel(nullptr);
    EXPECT_EQ(handler.GetItemSelectionModel(), own);
    mine.SetCurrent(3);
    EXPECT_EQ(mine.sigModelChanged.connection_count(), 0u) << "the old model is let go";
}

TEST(ItemEventHandler, AScrollShiftsPixelsUnlessItMovesAWholeView) {
    CList list(50);
    int const scrolls = list.f.window->GetScrollCount();
    list.vm()->SetStartItem(1);
    EXPECT_EQ(list.f.window->GetScrollCount(), scrolls + 1);
    list.vm()->SetStartItem(8);
    EXPECT_EQ(list.f.window->GetScrollCount(), scrolls + 1) << "a shift as long as the view repaints instead";
    EXPECT_EQ(list.vm()->GetItemType(30), IDirtyItemSet::DirtyItem);
    EXPECT_FALSE(list.handler.ScrollItems(0, 100));
    EXPECT_TRUE(list.handler.ScrollItems(0, 98));
}

// A tooltip link that says "tip" for the viewer.
struct CTips : CTooltipEventHandler {
    void ShowTooltip(mirel7::CTooltipEvent* event) override { event->text = "tip"; }
};

TEST(TooltipEventHandler, ShowsAndTakesTheTooltipDownOnAKeyOrAMenu) {
    for (bool menu : {false, true}) {
        mirel_test::CControlFixture f{{200, 100}};
        auto* host = new mirel_test::CHandlerHost(f.Root());
        CTips tips;
        tips.SetWindow(f.window.get());
        host->first = &tips;
        f.window->InjectResize(200, 100);
        f.Paint();
        host->SetFocus(true);
        f.window->RunPending();
        f.window->InjectMouseMove(50, 50);
        f.system.Advance(1000);
        ASSERT_TRUE(f.window->IsTooltipShown());
        if (menu)
            f.window->InjectContextMenu(50, 50);
        else
            f.window->InjectKeyDown(mirel7::KeyDown);
        EXPECT_FALSE(f.window->IsTooltipShown()) << menu;
        host->first = nullptr;
    }
}

// A list box's side of the link, journalled.
struct CListBoxLink : CDefListBoxHandler {
    bool SetCurProcessButtonDown(int, int, int, MouseButton, bool*) override { return log += "down;", true; }
    bool HighlightingMouseMove(int, int, int, MouseButton, bool*) override { return log += "hover;", true; }
    bool HighlightingMouseLeave(bool*) override { return log += "leave;", true; }
    bool SetCurProcessKeyDown(int key) override { return log += "key;", key == 13; }
    std::string log;
};

TEST(DefListBoxHandler, PicksWithTheButtonAndHighlightsWithout) {
    struct Case {
        std::function<bool(CDefListBoxHandler&, bool*)> event;
        std::string log;
        bool stop;
    } const cases[] = {
        {[](auto& h, bool* s) { return h.ProcessButtonDown(1, 1, 1, mirel7::ButtonLeft, s); }, "down;",
         false},
        {[](auto& h, bool* s) { return h.ProcessButtonDown(1, 1, 0, mirel7::ButtonRight, s); }, "", true},
        {[](auto& h, bool* s) { return h.ProcessMouseMove(1, 1, 1, mirel7::ButtonLeft, s); }, "", true},
        {[](auto& h, bool* s) { return h.ProcessMouseMove(1, 1, 0, mirel7::ButtonNone, s); }, "hover;",
         false},
        {[](auto& h, bool* s) { return h.ProcessMouseMove(1, 1, 2, mirel7::ButtonNone, s); }, "", false},
        {[](auto& h, bool* s) { return h.ProcessMouseLeave(s); }, "leave;", false},
        {[](auto& h, bool* s) { return h.ProcessKeyDown(0, 13, s); }, "key;", true},
        {[](auto& h, bool* s) { return h.ProcessKeyDown(0, 40, s); }, "key;", false},
    };
    for (auto const& c : cases) {
        CListBoxLink link;
        bool stop = false;
        c.event(link, &stop);
        EXPECT_EQ(link.log, c.log) << &c - cases;
        EXPECT_EQ(stop, c.stop) << &c - cases;
    }
}

// Records the editor's hiding.
struct CEditorNotify : CEditorEventHandler::INotify {
    void OnEditorHidden() override { ++hidden; }
    int hidden = 0;
};

TEST(EditorEventHandler, HidesTheEditorOnceTooLittleShowsAndBringsItBack) {
    mirel_test::CControlFixture f{{200, 100}};
    auto* editor = new CVisualElement(f.Root(), {0, 0}, AlignNone);
    editor->SetPos({10, 10, 60, 40}, false);
    CEditorEventHandler handler;
    CEditorNotify notify;
    handler.SetEditor(editor);
    handler.SetNotify(&notify);
    handler.ProcessResize({}, {0, 0, 200, 100}, false);
    handler.UpdateEditor();
    handler.ProcessScroll(0, -20);
    EXPECT_EQ(editor->GetPosition(), (rectangle<int>{10, 0, 60, 20}));
    handler.ProcessScroll(0, -3);
    EXPECT_FALSE(editor->IsVisible()) << "17 pixels high";
    EXPECT_EQ(notify.hidden, 1);
    handler.ProcessScroll(0, 23);
    EXPECT_TRUE(editor->IsVisible());
    EXPECT_EQ(editor->GetPosition(), (rectangle<int>{10, 10, 60, 40}));
}

} // namespace
