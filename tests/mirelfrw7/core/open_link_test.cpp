#include "support/control_fixture.h"

#include <gtest/gtest.h>

namespace {

using Links = std::vector<std::string>;

struct CLinkSlot : tarnkit2::subscriber_base_t {
    void OnLink(mirelfrw7::CBaseControl*, std::string const& link, bool& taken) {
        seen.push_back(link);
        taken = take;
    }
    bool take = false;
    Links seen;
};

TEST(OpenLink, GoesToTheDesktopOnlyWhenNoSlotTakesIt) {
    mirel_test::CControlFixture f;
    mirelfrw7::IControl* const control = f.Imp();
    control->OpenLink("https://example.org/a");
    CLinkSlot slot;
    f.control->sigOpenLink.connect(&slot, &CLinkSlot::OnLink);
    control->OpenLink("https://example.org/b");
    slot.take = true;
    control->OpenLink("https://example.org/c");
    control->OpenLink("");
    EXPECT_EQ(slot.seen, (Links{"https://example.org/b", "https://example.org/c"}));
    EXPECT_EQ(f.system.GetOpenedLinks(), (Links{"https://example.org/a", "https://example.org/b"}));
}

} // namespace
