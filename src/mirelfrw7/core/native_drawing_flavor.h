#pragma once

namespace mirelfrw7 {

// A mix-in telling an element to draw itself with the painter's native pieces of controls
// (IPainter::DrawControlElement) instead of its own drawing. The element reads the flag as it paints; a
// change asks for no repaint by itself, so whoever changes it updates the element.
class CNativeDrawingFlavor {
public:
    explicit CNativeDrawingFlavor(bool nativeDrawing = false) : m_nativeDrawing(nativeDrawing) {}

    bool IsNativeDrawing() const { return m_nativeDrawing; }
    void SetNativeDrawing(bool nativeDrawing) { m_nativeDrawing = nativeDrawing; }

protected:
    // Not a base to delete through.
    ~CNativeDrawingFlavor() = default;

    bool m_nativeDrawing;
};

} // namespace mirelfrw7
