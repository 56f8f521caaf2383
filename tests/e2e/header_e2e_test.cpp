// A tree header on a real window: a column resized and another reordered with the pointer of an X server.
#include <mirelfrw7/core/base_control.h>

#include "e2e/sdl_test.h"
#include "mirelfrw7/header/test_header_model.h"
#include "support/test_elements.h"

#include <gtest/gtest.h>

namespace {

using namespace mirelfrw7;
using mirel_test::CTestHeader;
using mirel_test::CTestHeaderItem;

// The application's side: a drop moves the section in the tree.
struct CMover : tarnkit2::subscriber_base_t {
    void OnMoved(CHeader* header, IHeaderItem* item, int from, int to) {
        static_cast<CTestHeader*>(header)->model.Move(static_cast<CTestHeaderItem*>(item), from, to);
    }
};

class HeaderOnX : public mirel_test::CSdlTest {
protected:
    void SetUp() override {
        OpenWindow({400, 120}, [&](mirel7::sdl::CSdlWindow* w) {
            control = std::make_unique<CBaseControl>(w);
            header = new CTestHeader(control->GetContent(), "A(a1:50 a2:60) C:70 D:80");
            new mirel_test::CFilledElement(control->GetContent(), {0, 0}, AlignClient);
            header->sigSectionMoved.connect(&mover, &CMover::OnMoved);
        });
        detach = [&] { control.reset(); };
    }

    CMover mover;
    std::unique_ptr<CBaseControl> control;
    CTestHeader* header = nullptr;
};

TEST_F(HeaderOnX, AColumnResizesAndAnotherMovesUnderThePointer) {
    Xdotool("mousemove " + At(46, 30) + " mousedown 1");
    Xdotool("mousemove " + At(60, 30));
    Xdotool("mousemove " + At(90, 30) + " mouseup 1");
    EXPECT_EQ(header->model.Find("a1")->width, 90);
    EXPECT_EQ(header->GetFullItemsSize(), 300);

    Xdotool("mousemove " + At(180, 30) + " mousedown 1");
    Xdotool("mousemove " + At(170, 30));
    Xdotool("mousemove " + At(10, 30) + " mouseup 1");
    ASSERT_EQ(header->model.top.size(), 3u);
    EXPECT_EQ(header->model.top[0]->text, "C");
    EXPECT_EQ(header->GetItemRect(header->model.Find("C")).left, 0);
}

} // namespace
