#include <mirel7/types.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace {

using namespace mirel7;

TEST(Rectangle, NormalisesIntersectsAndTellsAllZero) {
    rectangle<int> const flipped{10, 20, 0, 5};
    EXPECT_EQ(flipped.Normalized(), (rectangle<int>{0, 5, 10, 20}));
    EXPECT_EQ(flipped.Width(), -10);

    rectangle<int> const a{0, 0, 10, 10};
    EXPECT_EQ(a.Intersect({5, -5, 20, 5}), (rectangle<int>{5, 0, 10, 5}));
    EXPECT_EQ(a.Intersect({20, 20, 5, 5}), (rectangle<int>{5, 5, 10, 10}))
        << "unnormalised input is normalised";
    EXPECT_EQ(a.Intersect({10, 0, 15, 10}), (rectangle<int>{10, 0, 10, 10}))
        << "touching gives a degenerate one";
    EXPECT_TRUE(a.Intersect({11, 0, 15, 10}).IsAllZero());
    EXPECT_FALSE((rectangle<double>{0, 0, 0, 0.5}).IsAllZero());

    static_assert(!std::is_convertible_v<screen_rectangle<int>, rectangle<int>>);
    EXPECT_EQ(rectangle<int>(screen_rectangle<double>{1.9, -1.9, 3.5, 4.0}), (rectangle<int>{1, -1, 3, 4}));
}

TEST(Color, ComponentsDefaultsWordsAndEquality) {
    _color const none;
    EXPECT_TRUE(none.empty);
    EXPECT_EQ(none.r + none.g + none.b + none.a, 0);
    _color const red(255, 0, 0);
    EXPECT_FALSE(red.empty);
    EXPECT_EQ(red.a, 255);

    // Equality looks at the four bytes only.
    EXPECT_EQ(none, _color(0, 0, 0, 0));
    EXPECT_NE(none, _color(0, 0, 0));

    EXPECT_EQ(_color(0x12, 0x34, 0x56).ToWord(), 0x563412u);
    EXPECT_EQ(_color::FromWord(0x563412u), _color(0x12, 0x34, 0x56));
    EXPECT_EQ(none.ToWord(), 0xFFFFFFFFu);
    EXPECT_TRUE(_color::FromWord(0xFFFFFFFFu).empty);
    EXPECT_NE(_color(255, 255, 255).ToWord(), 0xFFFFFFFFu) << "white must not read as no colour";
}

} // namespace
