#include <mirel7/headless/headless_system.h>
#include <mirel7/locked_value.h>
#include <mirel7/palette.h>
#include <mirel7/system.h>

#include <gtest/gtest.h>

namespace {

using namespace mirel7;
using mirel7::headless::CHeadlessSystem;

TEST(CurrentSystem, ASystemInstallsItselfAndLeavesWhenItDies) {
    EXPECT_EQ(GetCurrentSystem(), nullptr);
    EXPECT_EQ(GetSysPalette(), nullptr);
    EXPECT_EQ(GetDefaultGUIFont(), font{}) << "without a system, a font of defaults";
    {
        CHeadlessSystem system;
        EXPECT_EQ(GetCurrentSystem(), &system);
        EXPECT_EQ(GetSysPalette(), GetDefaultPalette());
        EXPECT_EQ(GetDefaultGUIFont().face, "DejaVu Sans");
        {
            CHeadlessSystem replacement;
            EXPECT_EQ(GetCurrentSystem(), &replacement);
        }
        EXPECT_EQ(GetCurrentSystem(), nullptr) << "the replacement was current when it died";
        SetCurrentSystem(&system);
    }
    EXPECT_EQ(GetCurrentSystem(), nullptr);
}

TEST(HeadlessSystem, CursorClipboardLocksAndScaledMetrics) {
    CHeadlessSystem system;
    EXPECT_EQ(GetDPIAutoScale() & 1, 1) << "on by default";
    EXPECT_TRUE(system.CreateLock().counted());
    system.SetCursorPosition({120, 80});
    EXPECT_EQ(system.GetCursorState()->GetPosition(), (point<int>{120, 80}));
    system.GetClipboard()->SetText("copied");
    EXPECT_EQ(system.GetClipboard()->GetText(), "copied");
    EXPECT_EQ(system.GetMetric(ISystem::MetricCheckSize), 13);
    system.SetDPIScale(1.5);
    EXPECT_EQ(system.GetDPIScale(), 1.5);
    EXPECT_EQ(system.GetMetric(ISystem::MetricCheckSize), 19) << "13 * 1.5, truncated";
    EXPECT_EQ(system.GetMetric(99), 0);
}

TEST(HeadlessSystem, APaletteOfItsOwn) {
    struct CRed : ISysPalette {
        _color GetColor(SysColor) const override { return {255, 0, 0}; }
    } red;
    CHeadlessSystem system;
    system.SetPalette(&red);
    EXPECT_EQ(GetSysPalette()->GetColor(ISysPalette::ColorHighlight), (_color{255, 0, 0}));
    system.SetPalette(nullptr);
    EXPECT_EQ(GetSysPalette(), GetDefaultPalette());
}

TEST(DefaultPalette, HasEveryRoleButNone) {
    ISysPalette* const palette = GetDefaultPalette();
    for (int i = 0; i < ISysPalette::SysColorCount; ++i) {
        bool const none = i == ISysPalette::ColorNone;
        EXPECT_EQ(palette->GetColor(static_cast<ISysPalette::SysColor>(i)).empty, none) << i;
    }
    EXPECT_TRUE(palette->GetColor(static_cast<ISysPalette::SysColor>(ISysPalette::SysColorCount)).empty);
    EXPECT_NE(palette->GetColor(ISysPalette::ColorHighlight),
              palette->GetColor(ISysPalette::ColorHighlightText));
    EXPECT_NE(palette->GetColor(ISysPalette::ColorElementBackground),
              palette->GetColor(ISysPalette::ColorElementForeground));
    auto const brightness = [&](ISysPalette::SysColor i) {
        _color const c = palette->GetColor(i);
        return c.r + c.g + c.b;
    };
    EXPECT_GT(brightness(ISysPalette::ColorLight), brightness(ISysPalette::ColorElementBackground))
        << "a raised edge shows against the face";
}

} // namespace
