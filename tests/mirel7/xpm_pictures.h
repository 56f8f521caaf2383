#pragma once

// The three pictures of a help button: a question mark in greys, and its highlighted and pressed forms.
namespace mirel_test {

inline char const* const HelpNormal[] = {
    "16 16 7 1",        ". c None",         "a c #000000",      "b c #ECECEC",      "c c #FBFBFB",
    "d c #E3E3E3",      "e c #F4F4F4",      "f c #FFFFFF",      "................", "................",
    "................", "......aaaa......", ".....affffa.....", "....affaafba....", "....aaa.acda....",
    ".......afea.....", "......affa......", "......afba......", "......aaaa......", "......aeba......",
    "......aaaa......", "................", "................", "................",
};

#define MIREL_HELP_OUTLINE(fill)                                                                             \
    "16 16 3 1", ". c None", "a c #000000", "f c " fill, "................", "................",             \
        "................", "......aaaa......", ".....affffa.....", "....affaaffa....", "....aaa.affa....",  \
        ".......affa.....", "......affa......", "......affa......", "......aaaa......", "......affa......",  \
        "......aaaa......", "................", "................", "................"

inline char const* const HelpHighlighted[] = {MIREL_HELP_OUTLINE("#FFFF00")};
inline char const* const HelpPressed[] = {MIREL_HELP_OUTLINE("#D2D200")};

#undef MIREL_HELP_OUTLINE

} // namespace mirel_test
