#include <mirelfrw7/controls/button.h>
#include <mirelfrw7/controls/deferred_delete.h>

#include "support/control_fixture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel_test::CControlFixture;
using Lines = std::vector<std::string>;

// Journals the stages and the clicks of a button, in one line each.
struct CJournalButton : CButton {
    using CButton::CButton;
    void ProcessStageChange(ClickStage stage) override {
        journal += std::to_string(stage);
        CButton::ProcessStageChange(stage);
    }
    void ProcessClick() override {
        journal += 'C';
        CButton::ProcessClick();
    }
    std::string journal;
};

// The button covers the top 30 pixels of a 200 by 100 window.
struct SButton {
    SButton() { f.control->Rearrange(); }
    CControlFixture f;
    CJournalButton button{f.Root(), {0, 30}, AlignTop};
};

TEST(Button, StagesFollowTheMouseAndAPressThatLeavesClicksNothing) {
    struct SCase {
        char const* name;
        std::string input; // i in, o out, d down, u up, r right down and up, k Space, n Return
        std::string journal;
        bool enabled = true;
    };
    SCase const cases[] = {
        {"click", "idu", "12C1"},    {"leave while pressed", "idoiu", "1201"},
        {"right button", "ir", "1"}, {"space", "k", "12C1"},
        {"return", "n", "C"},        {"disabled", "idukn", "", false},
    };
    for (SCase const& test : cases) {
        SButton s;
        s.button.SetEnabled(test.enabled);
        s.button.SetFocus(false);
        auto* w = s.f.window.get();
        for (char c : test.input) {
            switch (c) {
            case 'i':
                w->InjectMouseMove(10, 10);
                break;
            case 'o':
                w->InjectMouseMove(100, 80);
                break;
            case 'd':
                w->InjectButtonDown(10, 10);
                break;
            case 'u':
                w->InjectButtonUp(10, 10);
                break;
            case 'r':
                w->InjectButtonDown(10, 10, mirel7::ButtonRight);
                w->InjectButtonUp(10, 10, mirel7::ButtonRight);
                break;
            case 'k':
                w->InjectKeyDown(32);
                EXPECT_EQ(s.button.GetStage() == CClickHandler::StagePressed, test.enabled) << test.name;
                w->InjectKeyUp(32);
                break;
            case 'n':
                w->InjectKeyDown(13);
                break;
            }
        }
        EXPECT_EQ(s.button.journal, test.journal) << test.name;
    }
}

TEST(Button, ARepeatButtonClicksEveryIntervalWhileHeldAndOnceAtTheRelease) {
    SButton s;
    s.button.SetAutoRepeat(true);
    s.f.window->InjectMouseMove(10, 10);
    s.f.window->InjectButtonDown(10, 10);
    s.f.system.Advance(650);
    s.f.window->InjectButtonUp(10, 10);
    s.f.system.Advance(400);
    EXPECT_EQ(s.button.journal, "12CCCC1");
    s.button.journal.clear();
    s.f.window->InjectButtonDown(10, 10);
    s.f.system.Advance(200);
    s.f.window->InjectMouseMove(100, 80);
    s.f.system.Advance(400);
    EXPECT_EQ(s.button.journal, "2C0");
}

TEST(Button, NativeLookCarriesTheStateBitsAndTheFocus) {
    SButton s;
    s.f.window->InjectFocusIn();
    s.button.SetFocus(true);
    auto native = [&] {
        s.f.Recorder()->Clear();
        s.f.Paint();
        return s.f.Recorder()->Lines({"DrawControlElement", "FocusRect"});
    };
    native();
    EXPECT_EQ(native(), Lines{});
    s.f.window->InjectMouseMove(10, 10);
    EXPECT_EQ(native(),
              (Lines{"DrawControlElement 7 0,0,199,30 state=6", "FocusRect 3,3,196,27 color=#000000"}));
    s.f.window->InjectButtonDown(10, 10);
    EXPECT_EQ(native().front(), "DrawControlElement 7 0,0,199,30 state=10");
}

struct SDeleter : tarnkit2::subscriber_base_t {
    void OnClick(CButton* button) {
        ++clicks;
        if (later)
            DeleteLater(button);
        else
            delete button;
    }
    int clicks = 0;
    bool later = false;
};

// Under the address sanitizer this is the test that the click path lets go of a button deleted in it.
TEST(Button, ASlotMayDeleteItsButtonAtOnceOrLater) {
    for (bool later : {false, true}) {
        CControlFixture f;
        auto* button = new CButton(f.Root(), {0, 30}, AlignTop);
        f.control->Rearrange();
        SDeleter deleter;
        deleter.later = later;
        button->sigButtonClick.connect(&deleter, &SDeleter::OnClick);
        f.window->InjectMouseMove(10, 10);
        f.window->InjectButtonDown(10, 10);
        f.window->InjectButtonUp(10, 10);
        EXPECT_EQ(f.Root()->GetChildren()->GetCount(), later ? 1 : 0);
        f.window->RunPending();
        EXPECT_EQ(f.Root()->GetChildren()->GetCount(), 0);
        EXPECT_EQ(deleter.clicks, 1);
    }
}

TEST(Button, APressOnALinkFollowsItWithoutPressingTheButton) {
    SButton s;
    s.button.UseHTML(true);
    s.button.SetCaption("<a href=\"x:2\">go</a>");
    s.f.Paint();
    s.f.window->InjectMouseMove(100, 15);
    s.f.window->InjectButtonDown(100, 15);
    s.f.window->InjectButtonUp(100, 15);
    EXPECT_EQ(s.button.journal, "1");
    EXPECT_EQ(s.f.system.GetOpenedLinks(), (std::vector<std::string>{"x:2"}));
}

} // namespace
