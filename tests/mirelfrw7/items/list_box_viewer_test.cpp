#include <mirelfrw7/items/list_box_viewer.h>

#include <mirelfrw7/scroll/scroll_box.h>

#include "support/control_fixture.h"
#include "support/repaint_property.h"
#include "support/test_elements.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;

struct CTexts : IItemsModelEx {
    int GetItemCount() override { return int(texts.size()); }
    std::string GetItemText(int index) const override { return texts[index]; }
    std::vector<std::string> texts{"alpha", "beta", "gamma"};
};

struct ListBoxViewerTest : testing::Test, tarnkit2::subscriber_base_t {
    ListBoxViewerTest() {
        list = new CListBoxViewer(f.Root(), {0, 0}, AlignClient);
        list->SetAutoRowHeight(false);
        list->GetRowViewModel()->SetDefaultItemSize(20);
        list->SetModel(&texts);
        list->sigItemActivated.connect(this, &ListBoxViewerTest::Activated);
        f.window->InjectResize(200, 100);
        f.Paint();
        list->SetFocus(true);
        f.window->RunPending();
    }
    void Activated(int item) { activated.push_back(item); }
    // Each caption with the colour it is drawn in, in row order.
    std::vector<std::string> Captions() {
        f.Recorder()->Clear();
        list->Update(UpdateLocal);
        f.Paint();
        std::vector<std::string> out;
        for (std::string const& line : f.Recorder()->Lines({"DrawString"}))
            out.push_back(line.substr(line.find('"'), line.find(' ', line.find('"')) - line.find('"')) + " " +
                          line.substr(line.find("color=") + 6, 7));
        return out;
    }
    mirel_test::CControlFixture f;
    CTexts texts;
    CListBoxViewer* list;
    std::vector<int> activated;
};

TEST_F(ListBoxViewerTest, HotRowWinsOverTheSelection) {
    list->SetCurrentItem(0);
    std::vector<std::string> const selected = Captions();
    f.window->InjectMouseMove(50, 45);
    EXPECT_EQ(list->GetHotItem(), 2);
    std::vector<std::string> const hot = Captions();
    EXPECT_EQ(selected,
              (std::vector<std::string>{"\"alpha\" #ffffff", "\"beta\" #99b4d1", "\"gamma\" #99b4d1"}));
    EXPECT_EQ(hot, (std::vector<std::string>{"\"alpha\" #99b4d1", "\"beta\" #99b4d1", "\"gamma\" #ffffff"}));
}

TEST_F(ListBoxViewerTest, ReturnAndClicksActivate) {
    f.window->InjectKeyDown(mirel7::KeyReturn);
    f.window->InjectMouseMove(50, 25);
    f.window->InjectButtonDown(50, 25);
    f.window->InjectButtonUp(50, 25);
    EXPECT_EQ(activated, (std::vector<int>{-1, 1}));
    EXPECT_EQ(list->GetCurrentItem(), 1);
    EXPECT_EQ(list->GetRowSelectionModel()->GetSelectedCount(), 1);
    texts.texts.push_back("delta");
    texts.sigItemsChanged();
    EXPECT_EQ(list->GetRowViewModel()->GetCount(), 4);
}

// Texts wider than the view, scrolled both ways in a box, with the pointer and the selection moving, and a
// panel coming and going over the list, which must then draw its rows although none of them changed.
TEST(ListBoxViewerRepaint, IncrementalPaintsEqualAFullPaintOverScrollsBothWays) {
    static CTexts texts;
    texts.texts.clear();
    for (int i = 0; i < 40; ++i)
        texts.texts.push_back(std::to_string(i) + std::string(size_t(i % 7 * 6), 'w') + " end");
    mirel_test::SRepaintScenario scenario;
    scenario.build = [](CBaseControl& control) {
        auto* const box = new CScrollBox(control.GetContent(), {0, 0}, AlignClient);
        auto* const list = new CListBoxViewer(box, {0, 0}, AlignClient);
        list->SetModel(&texts);
        list->GetHorzViewModel().SetItemSize(0, 400);
        box->ConnectElement(list, CScrollBox::ConnectHorz | CScrollBox::ConnectVert, true);
        auto* const panel = new mirel_test::CFilledElement(control.GetContent(), {0, 0}, AlignNone);
        panel->SetBkColor(mirel7::_color(200, 40, 40));
        panel->SetPos({20, 20, 90, 50}, false);
        panel->SetVisible(false);
        control.Rearrange();
    };
    scenario.act = [](CBaseControl& control, mirel7::headless::CHeadlessWindow& window,
                      std::mt19937& random) {
        auto* const box = static_cast<CScrollBox*>(control.GetContent()->GetChildren()->GetItem(0));
        CVisualElement* const panel = control.GetContent()->GetChildren()->GetItem(1);
        switch (mirel_test::Uniform(random, 0, 4)) {
        case 4:
            panel->SetVisible(!panel->IsVisible());
            break;
        case 0:
            box->GetWrappedHorzScroll()->SetStart(mirel_test::Uniform(random, 0, 300));
            break;
        case 1:
            box->GetWrappedVertScroll()->SetStart(mirel_test::Uniform(random, 0, 40));
            break;
        case 2:
            window.InjectMouseMove(mirel_test::Uniform(random, 0, 140), mirel_test::Uniform(random, 0, 100));
            break;
        default:
            static_cast<CListBoxViewer*>(box->GetCentralPane())
                ->SetCurrentItem(mirel_test::Uniform(random, 0, 39));
        }
        control.GetImp()->RearrangeInt();
    };
    for (unsigned seed = 1; seed <= 6; ++seed)
        EXPECT_TRUE(mirel_test::IncrementalPaintEqualsFullPaint(scenario, seed));
}

} // namespace
