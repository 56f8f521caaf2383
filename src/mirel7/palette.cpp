#include <mirel7/palette.h>
#include <mirel7/system.h>

#include <array>

namespace mirel7 {

ISysPalette::~ISysPalette() = default;

namespace {

// A light desktop: grey faces, white text areas, a blue selection.
class CDefaultPalette : public ISysPalette {
public:
    _color GetColor(SysColor index) const override {
        if (index < 0 || index >= SysColorCount || index == ColorNone) return {};
        return m_colors[index];
    }

private:
    std::array<_color, SysColorCount> m_colors{{
        {200, 200, 200}, // scroll bar
        {160, 160, 160}, // border
        {153, 180, 209}, // active caption
        {240, 240, 240}, // element background
        {255, 255, 255}, // window background
        {0, 0, 0},       // window text
        {160, 160, 160}, // shadow
        {255, 255, 255}, // light: lighter than the faces it edges
        {0, 0, 0},       // element foreground
        {0, 120, 215},   // highlight
        {255, 255, 255}, // highlight text
        {109, 109, 109}, // grey text
        {255, 255, 225}, // info background
        {0, 0, 0},       // info text
        {},              // none
        {105, 105, 105}, // dark shadow
        {0, 102, 204},   // hot light
        {191, 205, 219}, // inactive caption
    }};
};

} // namespace

ISysPalette* GetDefaultPalette() {
    static CDefaultPalette palette;
    return &palette;
}

ISysPalette* GetSysPalette() {
    ISystem* const system = GetCurrentSystem();
    return system ? system->GetPalette() : nullptr;
}

} // namespace mirel7
