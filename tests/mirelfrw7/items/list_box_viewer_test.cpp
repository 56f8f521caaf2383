#include <mirelfrw7/items/list_box_viewer.h>

#include "support/control_fixture.h"

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

} // namespace
