#include <mirel7/custom_palette.h>

#include <array>

namespace mirel7 {

namespace {

bool IsColorIndex(ISysPalette::SysColor index) {
    return index >= 0 && index < ISysPalette::SysColorCount && index != ISysPalette::ColorNone;
}

class CCustomPalette final : public ICustomPaletteEx {
public:
    _color GetColor(ISysPalette::SysColor index) const override {
        if (!IsColorIndex(index)) return {};
        if (!m_colors[index].empty) return m_colors[index];
        // Read anew each time: the system's colours may change while the palette lives.
        ISysPalette* const system = GetSysPalette();
        return (system ? system : GetDefaultPalette())->GetColor(index);
    }

    void SetColor(ISysPalette::SysColor index, _color const& color) override {
        if (IsColorIndex(index)) m_colors[index] = color;
    }

private:
    std::array<_color, ISysPalette::SysColorCount> m_colors{};
};

} // namespace

mirel_ptr<ICustomPaletteEx> CreateCustomPalette() {
    return new CCustomPalette;
}

mirel_ptr<ICustomPaletteEx> CreateCustomPalette(_color const& face) {
    mirel_ptr<ICustomPaletteEx> palette = CreateCustomPalette();
    if (face.empty) return palette;
    _color const white(255, 255, 255), black(0, 0, 0);
    palette->SetColor(ISysPalette::ColorElementBackground, face);
    palette->SetColor(ISysPalette::ColorLight, MixColors(face, white, 0.6));
    palette->SetColor(ISysPalette::ColorShadow, MixColors(face, black, 0.33));
    palette->SetColor(ISysPalette::ColorDarkShadow, MixColors(face, black, 0.56));
    return palette;
}

} // namespace mirel7
