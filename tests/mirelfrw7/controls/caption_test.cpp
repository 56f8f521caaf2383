#include <mirelfrw7/controls/caption.h>

#include "support/control_fixture.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel_test::CControlFixture;
using Lines = std::vector<std::string>;

// The recording painter measures 8 pixels a character and 16 a line; the extent adds 2 each way.
TEST(Caption, AutoSizeMeasuresAgainAfterEverySetterThatChangesTheText) {
    struct SCase {
        char const* name;
        std::function<void(CCaption&)> set;
        size<int> expected;
    };
    SCase const cases[] = {
        {"caption", [](CCaption& c) { c.SetCaption("abcd"); }, {34, 18}},
        {"html", [](CCaption& c) { c.UseHTML(true); }, {26, 18}},
        {"max width", [](CCaption& c) { c.SetMaxTextWidth(30); }, {66, 34}},
        {"turned", [](CCaption& c) { c.SetTextLayout(true), c.SetAlignment(AlignLeft); }, {18, 82}},
    };
    for (SCase const& test : cases) {
        CControlFixture f;
        CCaption c(f.Root(), {0, 0}, AlignTop);
        c.SetCaption("<b>a</b> b");
        c.SetAutoSize(true);
        test.set(c);
        EXPECT_EQ(c.GetSize(), test.expected) << test.name;
    }
}

TEST(Caption, LinkHitsCountEdgesExceptCollapsedOnesAndSkipEmptyLinks) {
    CCaption::LinkHolder h;
    h.AddLink("abc", 1, {10, 0, 20, 10});
    h.AddLink(nullptr, 0, {30, 0, 30, 10});
    h.AddLink("", 0, {40, 20, 50, 30});
    h.AddLink("far", 3, {0, 5, 5, 8});
    h.SetValid(true);
    struct SCase {
        point<int> p;
        bool isLink;
        std::string link;
    };
    SCase const cases[] = {
        {{20, 10}, true, "a"},
        {{21, 5}, false, ""},
        {{30, 5}, false, ""},
        // An empty link hit first passes on to the next non-empty one, wherever it lies.
        {{45, 25}, true, "far"},
        {{2, 6}, true, "far"},
    };
    for (SCase const& test : cases) {
        EXPECT_EQ(h.IsLink(test.p), test.isLink) << test.p.x << "," << test.p.y;
        EXPECT_EQ(h.GetLink(test.p), test.link) << test.p.x << "," << test.p.y;
    }
    h.SetValid(false);
    EXPECT_TRUE(h.GetLinks().empty());
}

struct SLinkJournal : tarnkit2::subscriber_base_t {
    void OnLink(std::string const& link, bool& taken) {
        links.push_back(link);
        taken = claim;
    }
    std::vector<std::string> links;
    bool claim = false;
};

TEST(Caption, PaintingFindsTheLinksThatAPressFollowsUnlessASlotClaimsIt) {
    CControlFixture f;
    CCaption c(f.Root(), {0, 20}, AlignTop);
    c.UseHTML(true);
    c.SetTextAlign(33);
    c.SetCaption("go <a href=\"x:1\">there</a>");
    f.control->Rearrange();
    f.Paint();
    EXPECT_EQ(f.Recorder()->Lines({"DrawString"}),
              (Lines{"DrawString \"go \" 0,2,24,18 flags=0x9 color=#000000 at=0,2,24,18",
                     "DrawString \"there\" 24,2,64,18 flags=0x9 color=#0066cc at=24,2,64,18"}));
    ASSERT_EQ(c.GetLinkHolder().GetLinks().size(), 1u);
    SLinkJournal journal;
    c.sigLinkClicked.connect(&journal, &SLinkJournal::OnLink);
    f.window->InjectMouseMove(30, 10);
    EXPECT_EQ(c.GetCursor(), 12);
    f.window->InjectMouseMove(10, 10);
    EXPECT_EQ(c.GetCursor(), 1);
    f.window->InjectButtonDown(10, 10);
    f.window->InjectButtonUp(10, 10);
    f.window->InjectButtonDown(30, 10, mirel7::ButtonRight);
    f.window->InjectButtonUp(30, 10, mirel7::ButtonRight);
    EXPECT_TRUE(journal.links.empty());
    f.window->InjectButtonDown(30, 10);
    f.window->InjectButtonUp(30, 10);
    journal.claim = true;
    f.window->InjectButtonDown(30, 10);
    EXPECT_EQ(journal.links, (std::vector<std::string>{"x:1", "x:1"}));
    EXPECT_EQ(f.system.GetOpenedLinks(), (std::vector<std::string>{"x:1"}));
    EXPECT_EQ(c.AsString(), "go there");
    c.SetCaption("none");
    EXPECT_TRUE(c.GetLinkHolder().GetLinks().empty());
}

} // namespace
