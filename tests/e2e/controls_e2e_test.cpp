// Controls on a real window: xdotool presses a button, follows a link and switches a radio group.
#include <mirelfrw7/controls/check_box.h>
#include <mirelfrw7/controls/radio_group.h>
#include <mirelfrw7/core/base_control.h>

#include "e2e/sdl_test.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;

// A link caption on top, a button under it, then two radio buttons in one group.
class ControlsOnX : public mirel_test::CSdlTest, public tarnkit2::subscriber_base_t {
protected:
    void SetUp() override {
        OpenWindow({300, 160}, [&](mirel7::sdl::CSdlWindow* w) {
            control = std::make_unique<CBaseControl>(w);
            CVisualElement* root = control->GetContent();
            caption = new CCaption(root, {0, 40}, AlignTop);
            caption->UseHTML(true);
            caption->SetCaption("go <a href=\"x:e2e\">there</a>");
            caption->sigLinkClicked.connect(this, &ControlsOnX::OnLink);
            button = new CButton(root, {0, 40}, AlignTop);
            button->SetCaption("press");
            button->sigButtonClick.connect(this, &ControlsOnX::OnClick);
            for (int i = 0; i < 2; ++i) {
                radios[i] = new CRadioButton(root, {0, 40}, AlignTop);
                group.Add(radios[i]);
            }
            group.SetCurrent(0);
        });
        detach = [&] { control.reset(); };
    }

    void OnLink(std::string const& link, bool& taken) {
        links.push_back(link);
        taken = true;
    }
    void OnClick(CButton*) { ++clicks; }

    std::unique_ptr<CBaseControl> control;
    CCaption* caption = nullptr;
    CButton* button = nullptr;
    CRadioButton* radios[2] = {};
    CRadioGroup group;
    std::vector<std::string> links;
    int clicks = 0;
};

TEST_F(ControlsOnX, AButtonClicksALinkIsFollowedAndARadioGroupSwitches) {
    Xdotool("mousemove " + At(150, 60) + " click 1");
    EXPECT_EQ(clicks, 1);
    ASSERT_TRUE(PumpUntil([&] { return !caption->GetLinkHolder().GetLinks().empty(); }));
    rectangle<int> const r = caption->GetLinkHolder().GetLinks().front().rect;
    Xdotool("mousemove " + At((r.left + r.right) / 2, (r.top + r.bottom) / 2) + " click 1");
    EXPECT_EQ(links, (std::vector<std::string>{"x:e2e"}));
    Xdotool("mousemove " + At(20, 140) + " click 1");
    EXPECT_EQ(group.GetCurrent(), 1);
    EXPECT_TRUE(radios[1]->IsChecked());
    EXPECT_FALSE(radios[0]->IsChecked());
}

} // namespace
