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

} // namespace mirel7
