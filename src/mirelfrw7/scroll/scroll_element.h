#pragma once

#include <mirelfrw7/core/signal.h>
#include <mirelfrw7/export.h>
#include <mirelfrw7/scroll/scroll_converter.h>

#include <mirel7/scroll_bar.h>

namespace mirelfrw7 {

class IScrollModel;

// Ties one native scroll bar to one scroll model: the model's range, page and start become the bar's
// record, and the user's gestures on the bar come back as logical values through sigScroll. The bar never
// reports what code set on it, so a value sent here cannot echo back.
class MIRELFRW7_API CScrollElement : public mirel7::CScrollBarNotify {
public:
    // 0 shown while the content overflows, 1 always shown, 2 never shown.
    enum BarMode { BarAuto = 0, BarAlways = 1, BarNever = 2 };

    tarnkit2::signal_t<mirel7::CScrollEvent::ScrollAction, double> sigScroll;

    // Brings the bar in line with `model` over a view of `page` pixels; may correct the model's start.
    void Recalculate(IScrollModel* model, int page);
    // Whether `model` needs a bar over `page` pixels: the fit test alone, with no effect on anything.
    static bool Overflows(IScrollModel* model, int page);
    void SetVal(double value);
    double GetVal() const;
    void ScrollBarOnScroll(mirel7::CScrollEvent* event) override;

    // Not owned; subscribes to it and leaves the previous one.
    void SetBar(mirel7::IScrollBar* bar);
    mirel7::IScrollBar* GetBar() const { return m_bar; }
    bool IsScrollBarVisible() const { return m_barVisible; }
    void SetBarEnabled(bool enabled) { m_barEnabled = enabled; }
    bool IsBarEnabled() const { return m_barEnabled; }
    void SetBarMode(BarMode mode) { m_barMode = mode; }
    BarMode GetBarMode() const { return m_barMode; }

private:
    mirel7::IScrollBar* m_bar = nullptr;
    CScrollConverter m_converter;
    bool m_barVisible = false;
    bool m_barEnabled = true;
    BarMode m_barMode = BarAuto;
};

} // namespace mirelfrw7
