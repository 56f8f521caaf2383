#include <mirelfrw7/core/visual_element.h>

#include "support/control_fixture.h"
#include "support/test_elements.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel_test::CControlFixture;
using mirel_test::CFilledElement;

// Journals the update notices it is asked about.
struct CListening : CFilledElement {
    using CFilledElement::CFilledElement;
    bool BeforeProcessChange(CVisualElement* sender, UpdateType type) override {
        heard.emplace_back(sender, type);
        return true;
    }
    std::vector<std::pair<CVisualElement*, UpdateType>> heard;
};

TEST(ReParent, TheOldAncestorsHearOfTheLeavingBeforeTheElementMoves) {
    for (bool sameControl : {true, false}) {
        CControlFixture f;
        CListening outer(f.Root(), {0, 0}, AlignClient);
        CFilledElement inner(&outer, {0, 20}, AlignTop), leaf(&inner, {0, 10}, AlignTop);
        CFilledElement target(sameControl ? f.Root() : nullptr, {0, 10}, AlignTop);
        outer.heard.clear();
        leaf.ReParent(&target, true);
        ASSERT_FALSE(outer.heard.empty());
        EXPECT_EQ(outer.heard.front(), std::make_pair(static_cast<CVisualElement*>(&leaf), UpdateLeaving));
        leaf.ReParent(nullptr, false);
    }
}

} // namespace
