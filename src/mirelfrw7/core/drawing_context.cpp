#include <mirelfrw7/core/drawing_context.h>

#include <cstdint>

namespace mirelfrw7 {

IDrawingContext::~IDrawingContext() = default;

unsigned long CDrawingContext::GetPixel(long x, long y) {
    if (!m_painter) return 0xffffff;
    return m_painter->GetPixel(PainterX(x), PainterY(y)).ToWord() & 0xffffff;
}

void CDrawingContext::SetPixel(long x, long y, unsigned long color) {
    if (!m_painter) return;
    auto const byte = [color](int shift) { return static_cast<std::uint8_t>(color >> shift); };
    m_painter->SetPixel(PainterX(x), PainterY(y), mirel7::_color(byte(0), byte(8), byte(16)));
}

} // namespace mirelfrw7
