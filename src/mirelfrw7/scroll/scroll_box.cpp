#include <mirelfrw7/core/control.h>
#include <mirelfrw7/scroll/scroll_box.h>
#include <mirelfrw7/scroll/scroll_converter.h>

#include <mirel7/sys_window.h>
#include <mirel7/window_painter.h>

#include <cmath>

namespace mirelfrw7 {

using mirel7::CScrollEvent;

namespace {
// Sets a re-entrancy flag for its life. A slot may end the event with an exception: the flag must not
// outlive it.
class CFlagScope {
public:
    explicit CFlagScope(bool& flag) : m_flag(flag) { m_flag = true; }
    ~CFlagScope() { m_flag = false; }
    CFlagScope(CFlagScope const&) = delete;
    CFlagScope& operator=(CFlagScope const&) = delete;

private:
    bool& m_flag;
};
} // namespace

void CScrollBox::CScrollContainer::DrawContent(IPainter*) {}

void CScrollBox::CScrollContainer::SetPos(rectangle<int> const& newRect, bool) {
    CVisualElement::SetPos(newRect, true);
}

CScrollBox::CScrollBox(CVisualElement* parent, size<int> const& elementSize, Alignment alignment)
    : CScrollableElement(parent, elementSize, alignment), m_rightStrip(this, {0, 0}, AlignRight),
      m_bottomStrip(this, {0, 0}, AlignBottom), m_corner(&m_rightStrip, {0, 0}, AlignBottom),
      m_vertBarHost(&m_rightStrip, {0, 0}, AlignClient), m_horzBarHost(&m_bottomStrip, {0, 0}, AlignClient) {
    m_rightStrip.SetVisible(false);
    m_bottomStrip.SetVisible(false);
    m_vertElement.sigScroll.connect(this, &CScrollBox::VertScroll);
    m_horzElement.sigScroll.connect(this, &CScrollBox::HorzScroll);
    CreateScrollbars(GetControl());
}

CScrollBox::~CScrollBox() {
    ReleaseScrollbars();
}

void CScrollBox::SetPos(rectangle<int> const& newRect, bool force) {
    bool const changed = newRect != m_bounds;
    CScrollableElement::SetPos(newRect, force);
    if (changed || force) RefreshScroll();
}

void CScrollBox::SetEnabled(bool enabled) {
    CScrollableElement::SetEnabled(enabled);
    m_vertElement.SetBarEnabled(enabled);
    m_horzElement.SetBarEnabled(enabled);
    if (enabled) {
        RefreshScroll();
        return;
    }
    if (m_vertBar) m_vertBar->SetEnabled(false);
    if (m_horzBar) m_horzBar->SetEnabled(false);
}

bool CScrollBox::IsFullRepainted() const {
    return m_centralPane && m_centralPane->IsFullRepainted();
}

void CScrollBox::DrawContent(IPainter*) {}

bool CScrollBox::ScrollContent(int, int) {
    return false;
}

void CScrollBox::ProcessSetControl(IControl* control) {
    CScrollableElement::ProcessSetControl(control);
    CreateScrollbars(control);
}

bool CScrollBox::HandleWheel(int, int, int, MouseButton, int delta) {
    int step = 1;
    sigWheelStep(this, step);
    CScrollEvent::ScrollAction const action = delta < 1 ? CScrollEvent::LineDown : CScrollEvent::LineUp;
    if (m_vertScroll && m_vertElement.IsScrollBarVisible()) {
        double const old = m_vertScroll->GetStart();
        VertScroll(action, old - double(step) * delta);
        if (m_vertScroll->GetStart() != old) RefreshScroll();
        return true;
    }
    if (m_horzScroll && m_horzElement.IsScrollBarVisible()) {
        double const old = m_horzScroll->GetStart();
        HorzScroll(action, old - double(step) * delta);
        if (m_horzScroll->GetStart() != old) RefreshScroll();
        return true;
    }
    return false;
}

void CScrollBox::HandleControlDestroy() {
    CScrollableElement::HandleControlDestroy();
    ReleaseScrollbars();
}

void CScrollBox::SetCentralPane(CVisualElement* pane) {
    if (!pane || pane == m_centralPane) return;
    CScrollableElement::SetCentralPane(pane);
    RefreshScroll();
}

void CScrollBox::SetVertScroll(IScrollModel* model) {
    CScrollableElement::SetVertScroll(model);
    m_vertWrapper.SetWrapped(model);
    RefreshScroll();
}

void CScrollBox::SetHorzScroll(IScrollModel* model) {
    CScrollableElement::SetHorzScroll(model);
    m_horzWrapper.SetWrapped(model);
    RefreshScroll();
}

void CScrollBox::CreateScrollbars(IControl* control) {
    ReleaseScrollbars();
    mirel7::ISysWindow* const window = control ? control->GetWindow() : nullptr;
    if (!window) return;
    m_vertBar = window->CreateScrollBar(mirel7::ISysWindow::ScrollVertical);
    m_horzBar = window->CreateScrollBar(mirel7::ISysWindow::ScrollHorizontal);
    m_vertBarHost.SetNativeControl(m_vertBar.get());
    m_vertBarHost.FitWidth();
    m_rightStrip.SetWidth(m_vertBarHost.GetSize().cx, false);
    m_horzBarHost.SetNativeControl(m_horzBar.get());
    m_horzBarHost.FitHeight();
    m_bottomStrip.SetHeight(m_horzBarHost.GetSize().cy, false);
    m_corner.SetWidth(m_vertBarHost.GetSize().cx, false);
    m_corner.SetHeight(m_horzBarHost.GetSize().cy, false);
    m_vertElement.SetBar(m_vertBar.get());
    m_horzElement.SetBar(m_horzBar.get());
}

void CScrollBox::ReleaseScrollbars() {
    m_vertElement.SetBar(nullptr);
    m_horzElement.SetBar(nullptr);
    m_vertBarHost.SetNativeControl(nullptr);
    m_horzBarHost.SetNativeControl(nullptr);
    m_vertBar = nullptr;
    m_horzBar = nullptr;
}

void CScrollBox::ConnectElement(CScrollableElement* element, int type, bool own) {
    if (!element) return;
    if (own) {
        SetCentralPane(element);
        if (type & ConnectHorz) SetHorzScroll(element->GetHorzScroll());
        if (type & ConnectVert) SetVertScroll(element->GetVertScroll());
    } else {
        element->SetCentralPane(m_centralPane);
    }
    if (type & ConnectHorz) element->SetHorzScroll(&m_horzWrapper);
    if (type & ConnectVert) element->SetVertScroll(&m_vertWrapper);
}

void CScrollBox::RefreshScroll() {
    if (m_inRefresh) {
        m_refreshAgain = true;
        return;
    }
    CFlagScope const refreshing(m_inRefresh);
    // A refresh asked for from inside one runs after it, a bounded number of times: a model that corrects
    // itself differently on every call cannot hang the box.
    for (int round = 0; round < 3; ++round) {
        m_refreshAgain = false;
        RefreshOnce();
        if (!m_refreshAgain) break;
    }
}

namespace {
bool Wants(CScrollElement const& element, IScrollModel* model, int page) {
    switch (element.GetBarMode()) {
    case CScrollElement::BarAlways:
        return true;
    case CScrollElement::BarNever:
        return false;
    default:
        return model && CScrollElement::Overflows(model, page);
    }
}
} // namespace

void CScrollBox::RefreshOnce() {
    if (!m_centralPane) {
        UpdateCorner();
        return;
    }
    bool const vertWas = m_rightStrip.IsVisible();
    bool const horzWas = m_bottomStrip.IsVisible();
    int const barWidth = m_rightStrip.GetSize().cx;
    int const barHeight = m_bottomStrip.GetSize().cy;
    // The sizes without bars come first, so that content that fits there gets none, whatever showed before.
    rectangle<int> const b = m_centralPane->GetBounds();
    int const fullHeight = b.bottom - b.top + (horzWas ? barHeight : 0);
    int const fullWidth = b.right - b.left + (vertWas ? barWidth : 0);
    bool vert = false;
    bool horz = false;
    for (int i = 0; i < 2; ++i) {
        vert = Wants(m_vertElement, m_vertScroll, fullHeight - (horz ? barHeight : 0));
        horz = Wants(m_horzElement, m_horzScroll, fullWidth - (vert ? barWidth : 0));
    }
    m_vertElement.Recalculate(m_vertScroll, fullHeight - (horz ? barHeight : 0));
    m_horzElement.Recalculate(m_horzScroll, fullWidth - (vert ? barWidth : 0));
    if (m_vertBar) vert = m_vertElement.IsScrollBarVisible();
    if (m_horzBar) horz = m_horzElement.IsScrollBarVisible();
    m_rightStrip.SetVisible(vert);
    m_bottomStrip.SetVisible(horz);
    if (vert != vertWas || horz != horzWas) OnRearrange(this);
    UpdateCorner();
}

void CScrollBox::UpdateCorner() {
    bool const bothShown = m_rightStrip.IsVisible() && m_bottomStrip.IsVisible();
    m_corner.SetVisible(bothShown || m_cornerAlways);
}

void CScrollBox::SetCornerAlways(bool always) {
    m_cornerAlways = always;
    UpdateCorner();
}

void CScrollBox::SetBarMode(CScrollElement::BarMode vert, CScrollElement::BarMode horz) {
    m_vertElement.SetBarMode(vert);
    m_horzElement.SetBarMode(horz);
    RefreshScroll();
}

int CScrollBox::ScrollImp(IScrollModel* model, double value) {
    if (!model || m_inScroll) return 0;
    CFlagScope const scrolling(m_inScroll);
    double const oldStart = model->GetStart();
    model->SetStart(value);
    double const newStart = model->GetStart();
    if (!m_scrollPixels) return 0;
    CScrollConverter const converter(model);
    int const d = int(std::floor(converter.L2P(newStart) + 0.5 - converter.L2P(oldStart)));
    return model->GetTo() < model->GetFrom() ? -d : d;
}

void CScrollBox::VertScroll(CScrollEvent::ScrollAction, double value) {
    int const d = ScrollImp(m_vertScroll, value);
    if (d == 0) return;
    Scroll(0, -d, false);
    RepaintAtOnce();
}

void CScrollBox::HorzScroll(CScrollEvent::ScrollAction, double value) {
    int const d = ScrollImp(m_horzScroll, value);
    if (d == 0) return;
    Scroll(-d, 0, false);
    RepaintAtOnce();
}

void CScrollBox::RepaintAtOnce() {
    mirel7::ISysWindow* const window = m_control ? m_control->GetWindow() : nullptr;
    if (!m_repaintAtOnce || !window) return;
    screen_rectangle<int> client;
    window->GetClientRect(client);
    window->Invalidate(client);
    // A paint cannot start inside another: there the invalidation is all that can be done.
    mirel7::IWindowPainter* const painter = window->GetPainter();
    if (!painter || !painter->IsInPaint()) window->PaintNow();
}

} // namespace mirelfrw7
