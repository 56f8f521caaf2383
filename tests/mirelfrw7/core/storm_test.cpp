#include "support/storm.h"
#include "support/test_elements.h"

#include <gtest/gtest.h>

namespace {

using namespace mirelfrw7;

// A composite that repaints as a whole: it claims the updates of everything inside it.
struct CClaimingElement : mirel_test::CFilledElement {
    using CFilledElement::CFilledElement;
    void ProcessChange(CVisualElement** sender) override { *sender = this; }
};

// The plain brick of the element core: filled elements of every alignment and size, some focusable, some
// claiming the updates of their insides.
CVisualElement* MakeFilled(CVisualElement* parent, std::mt19937& random) {
    auto const draw = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    mirel7::size<int> const wanted{draw(0, 30), draw(0, 30)};
    auto const alignment = static_cast<Alignment>(draw(AlignNone, AlignClient));
    mirel_test::CFilledElement* const e = draw(0, 5) == 0
                                              ? new CClaimingElement(parent, wanted, alignment)
                                              : new mirel_test::CFilledElement(parent, wanted, alignment);
    if (e->GetAlignment() == AlignNone) {
        int const left = draw(-5, 50), top = draw(-5, 40);
        e->SetPos({left, top, left + draw(0, 30), top + draw(0, 30)}, false);
    }
    e->SetBkColor(
        mirel7::_color(std::uint8_t(draw(0, 255)), std::uint8_t(draw(0, 255)), std::uint8_t(draw(0, 255))));
    e->SetFocusable(draw(0, 2) == 0);
    return e;
}

TEST(Storm, TheElementCoreSurvivesRandomInputAndTreeChanges) {
    EXPECT_TRUE(mirel_test::SurvivesStorm(MakeFilled, 1, mirel_test::StormActions(20000, 100000)));
}

} // namespace
