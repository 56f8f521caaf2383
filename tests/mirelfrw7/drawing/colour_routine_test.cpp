#include <mirelfrw7/core/attr_binder.h>
#include <mirelfrw7/core/bk_fg_routine.h>
#include <mirelfrw7/core/element_list.h>
#include <mirelfrw7/core/palette_routine.h>

#include <mirel7/custom_palette.h>
#include <mirel7/headless/headless_system.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace {

using namespace mirelfrw7;
using mirel7::ICustomPaletteEx;

constexpr _color Red{255, 0, 0}, Green{0, 255, 0}, Blue{0, 0, 255}, Yellow{255, 255, 0};

// A system palette whose colours a test changes, the default palette's where it did not.
class CTestPalette : public ISysPalette {
public:
    _color GetColor(SysColor index) const override {
        auto const found = colors.find(index);
        return found != colors.end() ? found->second : mirel7::GetDefaultPalette()->GetColor(index);
    }
    std::map<SysColor, _color> colors;
};

// Writes its name into a journal whenever one of its attributes changes.
class CJournalElement : public CVisualElement {
public:
    CJournalElement(CVisualElement* parent, std::string name, std::vector<std::string>& journal)
        : CVisualElement(parent, {10, 10}, AlignNone), m_name(std::move(name)), m_journal(journal) {}
    void AttributeChanged() override {
        m_journal.push_back(m_name);
        CVisualElement::AttributeChanged();
    }

private:
    std::string m_name;
    std::vector<std::string>& m_journal;
};

// An element whose colours come from a palette of its own.
class CPalettedElement : public CVisualElement, public IPaletteSupport {
public:
    CPalettedElement() : CVisualElement(nullptr, {10, 10}, AlignNone) {}
    void SetCustomPaletteEx(mirel_ptr<ICustomPaletteEx> const& palette) override {
        m_palette = palette;
        AttributeChanged();
    }
    mirel_ptr<ICustomPaletteEx> GetCustomPaletteEx() const override { return m_palette; }
    mirel7::ICustomPalette* GetCustomPalette() const override { return m_palette.get(); }

private:
    mirel_ptr<ICustomPaletteEx> m_palette;
};

class ColourRoutines : public testing::Test {
protected:
    ColourRoutines() { system.SetPalette(&palette); }

    CTestPalette palette;
    mirel7::headless::CHeadlessSystem system;
    CVisualElement element{nullptr, {10, 10}, AlignNone};
};

// Normal colours are those of the time an element joined; coming back binds them to no palette index.
// Empty flash colours take the highlight colours.
TEST_F(ColourRoutines, FlashThenNormal) {
    CVisualElement plain{nullptr, {10, 10}, AlignNone};
    palette.colors[ISysPalette::ColorElementForeground] = Red;
    palette.colors[ISysPalette::ColorHighlightText] = Yellow;
    palette.colors[ISysPalette::ColorHighlight] = Green;
    _color const bk = element.GetBkColor();
    CBkFgRoutine routine;
    routine.AddElement(&element, Green, Blue);
    routine.AddElement(nullptr, Red, Blue);
    routine.AddElement(&plain, {}, {});
    ASSERT_EQ(routine.GetElements().size(), 2u);
    palette.colors[ISysPalette::ColorElementForeground] = Blue;
    EXPECT_EQ(element.GetFgColor(), Blue) << "still bound to the palette";

    for (SBkFgElement const& e : routine.GetElements())
        e.ProcessFlashed();
    EXPECT_EQ(element.GetFgColor(), Green);
    EXPECT_EQ(element.GetBkColor(), Blue);
    EXPECT_EQ(plain.GetFgColor(), Yellow);
    EXPECT_EQ(plain.GetBkColor(), Green);

    routine.GetElements()[0].ProcessNormal();
    EXPECT_EQ(element.GetFgColor(), Red);
    EXPECT_EQ(element.GetBkColor(), bk);
    EXPECT_EQ(element.GetFgSysColor(), ISysPalette::ColorNone);
    EXPECT_EQ(element.GetBkSysColor(), ISysPalette::ColorNone);
    palette.colors[ISysPalette::ColorElementBackground] = Yellow;
    EXPECT_EQ(element.GetBkColor(), bk);
}

TEST_F(ColourRoutines, PalettesFlashAndComeBack) {
    CPalettedElement paletted;
    mirel_ptr<ICustomPaletteEx> const normal = mirel7::CreateCustomPalette();
    normal->SetColor(ISysPalette::ColorElementBackground, Blue);
    paletted.SetCustomPaletteEx(normal);
    mirel_ptr<ICustomPaletteEx> const flash = mirel7::CreateCustomPalette();
    flash->SetColor(ISysPalette::ColorElementBackground, Red);

    CPaletteRoutine routine;
    routine.AddElement(&paletted, flash);
    routine.AddElement(nullptr, flash);
    ASSERT_EQ(routine.GetElements().size(), 1u);
    EXPECT_EQ(routine.GetElements()[0].normal, normal);

    routine.GetElements()[0].ProcessFlashed();
    EXPECT_EQ(paletted.GetBkColor(), Red);
    EXPECT_EQ(paletted.GetBkSysColor(), ISysPalette::ColorElementBackground) << "still bound to its index";
    routine.GetElements()[0].ProcessNormal();
    EXPECT_EQ(paletted.GetCustomPaletteEx(), normal);
    EXPECT_EQ(paletted.GetBkColor(), Blue);
}

TEST_F(ColourRoutines, ACustomPaletteFollowsTheSystemWhereItWasNotTold) {
    mirel_ptr<ICustomPaletteEx> const custom = mirel7::CreateCustomPalette();
    EXPECT_TRUE(custom.counted());
    custom->SetColor(ISysPalette::ColorHighlight, Red);
    palette.colors[ISysPalette::ColorHighlight] = Green;
    palette.colors[ISysPalette::ColorShadow] = Yellow;
    EXPECT_EQ(custom->GetColor(ISysPalette::ColorHighlight), Red);
    EXPECT_EQ(custom->GetColor(ISysPalette::ColorShadow), Yellow);

    custom->SetColor(ISysPalette::ColorHighlight, {});
    EXPECT_EQ(custom->GetColor(ISysPalette::ColorHighlight), Green) << "an empty colour hands it back";

    custom->SetColor(ISysPalette::ColorNone, Red);
    custom->SetColor(ISysPalette::SysColor(99), Red);
    EXPECT_TRUE(custom->GetColor(ISysPalette::ColorNone).empty);
    EXPECT_TRUE(custom->GetColor(ISysPalette::SysColor(99)).empty);
}

// Root, and below it A with B (hidden, with D below) and C.
class AttrBinder : public ColourRoutines {
protected:
    AttrBinder() { b.SetVisible(false); }

    std::vector<std::string> journal;
    CVisualElement root{nullptr, {10, 10}, AlignNone};
    CJournalElement a{&root, "A", journal};
    CJournalElement b{&a, "B", journal};
    CJournalElement d{&b, "D", journal};
    CJournalElement c{&a, "C", journal};
};

TEST_F(AttrBinder, WalksTheSubtreeDepthFirstParentsFirstHiddenOnesToo) {
    journal.clear();
    IChildren* const children = root.GetChildren();
    // The colour is a temporary: the binder keeps a copy.
    std::for_each(ElementsBegin(children), ElementsEnd(children),
                  CAttrBinder<_color const&>(&CVisualElement::SetBkColor, _color(1, 2, 3)));
    std::for_each(
        ElementsBegin(children), ElementsEnd(children),
        CAttrBinder<ISysPalette::SysColor>(&CVisualElement::SetFgColor, ISysPalette::ColorHighlight));
    EXPECT_EQ(journal, (std::vector<std::string>{"A", "B", "D", "C", "A", "B", "D", "C"}));
    for (CVisualElement const* e : {&a, &b, &c, &d}) {
        EXPECT_EQ(e->GetBkColor(), _color(1, 2, 3));
        EXPECT_EQ(e->GetFgSysColor(), ISysPalette::ColorHighlight);
    }
    EXPECT_NE(root.GetBkColor(), _color(1, 2, 3)) << "the list's owner is not part of the walk";

    IChildren* const none = d.GetChildren();
    std::for_each(ElementsBegin(none), ElementsEnd(none),
                  CAttrBinder<_color const&>(&CVisualElement::SetFgColor, Red))(&c);
    EXPECT_EQ(c.GetFgColor(), Red) << "an empty walk gives the binder back as it was";
    EXPECT_EQ(ElementsBegin(nullptr), ElementsEnd(nullptr));
}

TEST_F(AttrBinder, ElementIteratorsServeTheStandardAlgorithms) {
    IChildren* const children = a.GetChildren();
    std::vector<CVisualElement*> const copied(ElementsBegin(children), ElementsEnd(children));
    EXPECT_EQ(copied, (std::vector<CVisualElement*>{&b, &c}));
    // The control's lists hold holes after reduction; the binder steps over them.
    CElementList list;
    list.AddElement(&c);
    list.AddElement(&root);
    list.Reduce();
    std::for_each(ElementsBegin(&list), ElementsEnd(&list),
                  CAttrBinder<_color const&>(&CVisualElement::SetBkColor, Green));
    EXPECT_EQ(c.GetBkColor(), Green);
    EXPECT_EQ(root.GetBkColor(), Green);
}

} // namespace
