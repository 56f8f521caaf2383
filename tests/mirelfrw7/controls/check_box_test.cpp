#include <mirelfrw7/controls/check_box.h>
#include <mirelfrw7/controls/radio_group.h>

#include "support/control_fixture.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel_test::CControlFixture;
using Lines = std::vector<std::string>;

TEST(CheckBox, MouseAndSpaceToggleItAndTheImageFollows) {
    CControlFixture f;
    CCheckBox box(f.Root(), {0, 20}, AlignTop);
    box.SetCaption("ab");
    f.control->Rearrange();
    f.window->InjectFocusIn();
    f.window->InjectMouseMove(5, 5);
    f.window->InjectButtonDown(5, 5);
    f.window->InjectButtonUp(5, 5);
    EXPECT_TRUE(box.IsChecked());
    EXPECT_EQ(box.AsString(), "[X] ab");
    f.Recorder()->Clear();
    f.Paint();
    // Focused by the press: the text stands 5 pixels right of the 13-pixel image, the frame around it.
    EXPECT_EQ(
        f.Recorder()->Lines({"DrawControlElement", "DrawStringEx", "FocusRect"}),
        (Lines{"DrawControlElement 1 0,4,13,17 state=6",
               "DrawStringEx \"ab\" 18,0,199,20 flags=0x121 delimiters=\" .\\n\" color=#000000 at=18,2,34,18",
               "FocusRect 16,2,37,18 color=#000000"}));
    f.window->InjectKeyDown(32);
    f.window->InjectKeyUp(32);
    EXPECT_FALSE(box.IsChecked());
    box.SetEnabled(false);
    f.window->InjectButtonDown(5, 5);
    f.window->InjectButtonUp(5, 5);
    EXPECT_FALSE(box.IsChecked());
}

struct SImageClient : tarnkit2::subscriber_base_t {
    void OnGetImage(CCustomCheckBox*, int state, CImageHolder&) { states.push_back(state); }
    std::vector<int> states;
};

TEST(CheckBox, ACustomBoxAsksForEachStateOnceEvenWhenLeftEmpty) {
    CControlFixture f;
    CRadioButton box(f.Root(), {0, 20}, AlignTop);
    SImageClient client;
    box.sigGetImage.connect(&client, &SImageClient::OnGetImage);
    f.control->Rearrange();
    for (bool checked : {false, true, false, true}) {
        box.SetChecked(checked);
        f.Paint();
    }
    EXPECT_EQ(client.states, (std::vector<int>{0, 16}));
    EXPECT_EQ(box.AsString(), "(*) ");
}

struct SCurrentJournal : tarnkit2::subscriber_base_t {
    void OnCurrent(CRadioGroup*, int current) { currents.push_back(current); }
    std::vector<int> currents;
};

TEST(RadioGroup, AddingKeepsAtMostOneOnAndTheCodePathReportsTwice) {
    CControlFixture f;
    CRadioButton a(f.Root(), {0, 10}, AlignTop), b(f.Root(), {0, 10}, AlignTop),
        c(f.Root(), {0, 10}, AlignTop);
    b.SetChecked(true);
    c.SetChecked(true);
    CRadioGroup group;
    SCurrentJournal journal;
    group.sigCurrentChanged.connect(&journal, &SCurrentJournal::OnCurrent);
    for (CRadioButton* r : {&a, &b, &c, &b})
        group.Add(r);
    EXPECT_EQ(group.GetCount(), 3);
    EXPECT_EQ(group.GetCurrent(), 1);
    EXPECT_FALSE(c.IsChecked());
    journal.currents.clear();
    group.SetCurrent(2);
    group.SetCurrent(2);
    EXPECT_EQ(journal.currents, (std::vector<int>{2, 2}));
    group.SetCurrent(7);
    EXPECT_EQ(group.GetCurrent(), -1);
    EXPECT_FALSE(c.IsChecked());
}

// Random clicks, Space keys and deletions: after each, exactly one button is on, the group's current one.
TEST(RadioGroup, ExactlyOneStaysOnUnderRandomClicksKeysAndDeletions) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        std::mt19937 random(seed);
        CControlFixture f;
        CRadioGroup group;
        for (int i = 0; i < 5; ++i)
            group.Add(new CRadioButton(f.Root(), {0, 20}, AlignTop));
        group.SetCurrent(0);
        f.control->Rearrange();
        while (group.GetCount() > 0) {
            int const i = static_cast<int>(random() % static_cast<unsigned>(group.GetCount()));
            int const y = group.GetButton(i)->GetPosition().top + 5;
            switch (random() % 4) {
            case 0:
                delete group.GetButton(i);
                break;
            case 1:
                group.GetButton(i)->SetFocus(true);
                f.window->InjectKeyDown(32);
                f.window->InjectKeyUp(32);
                break;
            default:
                f.window->InjectMouseMove(5, y);
                f.window->InjectButtonDown(5, y);
                f.window->InjectButtonUp(5, y);
            }
            f.control->Rearrange();
            int on = 0;
            for (int k = 0; k < group.GetCount(); ++k)
                on += group.GetButton(k)->IsChecked() ? 1 : 0;
            ASSERT_EQ(on, group.GetCount() > 0 ? 1 : 0) << "seed " << seed;
            if (on) {
                ASSERT_TRUE(group.GetButton(group.GetCurrent())->IsChecked()) << "seed " << seed;
            }
        }
        EXPECT_EQ(group.GetCurrent(), -1);
    }
}

} // namespace
