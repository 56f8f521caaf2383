// Chart: a plot of antialiased curves with a numeric axis on every edge, zoomed by the wheel and panned by
// dragging through its two scroll models; below it a categorical axis of months and a section bar of a
// project's phases, which can be selected (Shift, Ctrl), resized at their borders and dragged elsewhere.
#include "gallery.h"

#include <mirelfrw7/antialiasing/draw_line.h>
#include <mirelfrw7/chart/axis.h>
#include <mirelfrw7/chart/bar.h>
#include <mirelfrw7/chart/caption_source.h>
#include <mirelfrw7/chart/categorical_axis.h>
#include <mirelfrw7/core/control.h>
#include <mirelfrw7/scroll/scroll_model.h>

#include <mirel7/system.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace gallery {

namespace {
using mirel7::_color;
using mirel7::IPainter;
using mirel7::point;
using namespace mirelfrw7;

// A range of logical units shown at a scale the page sets; steps of `widths` when given, else of one.
class CRangeModel : public IScrollModel {
public:
    CRangeModel(double from, double to, double start, double unitsPerPixel)
        : m_from(from), m_to(to), m_start(start), m_measure(unitsPerPixel, 1) {}

    double GetFrom() const override { return m_from; }
    double GetTo() const override { return m_to; }
    void SetStart(double start) override { m_start = start; }
    double GetStart() const override { return m_start; }
    int GetMinScrollDistance() const override { return 1; }
    bool IsFixedStepSize() const override { return widths.empty(); }
    double GetStepSize(double step) const override {
        std::size_t const i = std::size_t(std::max(0.0, step));
        return i < widths.size() ? widths[i] : 1.0;
    }
    void SetStepSize(double, double) const override {}
    void SetMeasure(std::pair<double, int> measure) override { m_measure = measure; }
    std::pair<double, int> GetMeasure() const override { return m_measure; }

    double UnitsPerPixel() const { return m_measure.first / m_measure.second; }

    std::vector<double> widths;

private:
    double m_from, m_to, m_start;
    std::pair<double, int> m_measure;
};

// Curves over the two models: the wheel zooms about the pointer, a drag pans.
class CPlot : public CVisualElement {
public:
    explicit CPlot(CVisualElement* parent) : CVisualElement(parent, {0, 0}, AlignClient) {
        SetBkColor(_color(252, 252, 250));
    }

    void DrawContent(IPainter* painter) override {
        mirel7::rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        double const ux = horz.UnitsPerPixel(), uy = vert.UnitsPerPixel();
        auto const at = [&](double x, double y) {
            return point<double>{b.left + (x - horz.GetStart()) / ux, b.bottom - (y - vert.GetStart()) / uy};
        };
        painter->SetPen({_color(215, 215, 220), 1});
        DrawLine(painter, at(horz.GetStart(), 0), at(horz.GetStart() + b.Width() * ux, 0), CAP_NONE,
                 CAP_NONE);
        struct {
            _color color;
            double (*f)(double);
        } const curves[] = {
            {_color(30, 60, 140), [](double x) { return std::sin(x); }},
            {_color(200, 70, 40), [](double x) { return 0.6 * std::cos(1.7 * x); }},
            {_color(20, 130, 90), [](double x) { return std::sin(x) * std::exp(-0.05 * x * x); }}};
        for (auto const& c : curves) {
            painter->SetPen({c.color, 2});
            double const x0 = horz.GetStart();
            point<double> last = at(x0, c.f(x0));
            for (int px = 3; px <= b.Width(); px += 3) {
                double const x = x0 + px * ux;
                point<double> const p = at(x, c.f(x));
                DrawLine(painter, last, p, CAP_NONE, CAP_NONE);
                last = p;
            }
        }
    }

    bool HandleWheel(int x, int y, int, MouseButton, int delta) override {
        double const factor = delta > 0 ? 1 / 1.25 : 1.25;
        Zoom(horz, x, factor);
        Zoom(vert, GetBounds().Height() - y, factor);
        Refresh();
        return true;
    }
    bool HandleButtonDown(int x, int y, int, MouseButton) override {
        m_last = {x, y};
        if (m_control) m_control->SetCapture(this);
        return true;
    }
    bool HandleMouseMove(int x, int y, int flags, MouseButton) override {
        if (!(flags & mirel7::FlagLeftButton)) return false;
        horz.SetStart(horz.GetStart() - (x - m_last.x) * horz.UnitsPerPixel());
        vert.SetStart(vert.GetStart() + (y - m_last.y) * vert.UnitsPerPixel());
        m_last = {x, y};
        Refresh();
        return true;
    }
    bool HandleButtonUp(int, int, int, MouseButton) override {
        ReleaseMouse();
        return true;
    }

    // The vertical model runs backwards, so that values grow upwards on screen from its start at the bottom.
    CRangeModel horz{-100, 100, -2, 0.02};
    CRangeModel vert{100, -100, -2.2, 0.01};
    std::vector<CAxis*> axes;

private:
    // The value under the pointer, `pixel` from the start, stays where it is.
    static void Zoom(CRangeModel& model, int pixel, double factor) {
        double const before = model.UnitsPerPixel(), value = model.GetStart() + pixel * before;
        model.SetMeasure({before * factor, 1});
        model.SetStart(value - pixel * before * factor);
    }
    void Refresh() {
        Update(UpdateLocal);
        for (CAxis* axis : axes)
            axis->Update(UpdateLocal);
    }

    point<int> m_last;
};

struct SMonths : ICaptionSource {
    int GetCount() const override { return 12; }
    std::string GetCaption(int i) const override {
        static char const* const names[] = {"January",   "February", "March",    "April",
                                            "May",       "June",     "July",     "August",
                                            "September", "October",  "November", "December"};
        return names[i];
    }
};

// The phases of a project: the bar announces, the owner changes its data.
class CPhases : public CBar, public ICaptionSource {
public:
    CPhases(CVisualElement* parent, CRangeModel* model) : CBar(parent, {0, 28}, AlignBottom), m_model(model) {
        SetHorzScroll(model);
        SetCaptionSource(this);
        SetResizeFlags(1);
        SetDragFlags(1);
        SetMinSectionSize(12);
        sigSectionResized.connect(this, &CPhases::OnResized);
        sigReorder.connect(this, &CPhases::OnReorder);
    }
    int GetCount() const override { return int(m_names.size()); }
    std::string GetCaption(int i) const override { return m_names[std::size_t(i)]; }

private:
    void OnResized(int index, double size) {
        m_model->widths[std::size_t(index)] = size;
        Update(UpdateLocal);
    }
    void OnReorder(CBar*, int from, int to) {
        auto const move = [from, to](auto& v) {
            auto const item = v[std::size_t(from)];
            v.erase(v.begin() + from);
            v.insert(v.begin() + to, item);
        };
        move(m_names);
        move(m_model->widths);
        Update(UpdateLocal);
    }

    CRangeModel* m_model;
    std::vector<std::string> m_names{"Study", "Design", "Prototype", "Build",
                                     "Test",  "Pilot",  "Launch",    "Review"};
};

// What the bar below answers to.
class CHint : public CVisualElement {
public:
    explicit CHint(CVisualElement* parent) : CVisualElement(parent, {0, 0}, AlignClient) {}
    void DrawContent(IPainter* painter) override {
        mirel7::rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        painter->SetTextColor(_color(90, 90, 100));
        painter->DrawString(
            mirel7::rectangle<double>(b.left + 8, b.top, b.right, b.bottom),
            "Phases: click, Shift or Ctrl click to select; drag a border to resize, a phase to move it",
            IPainter::AlignLeft | IPainter::AlignVCenter);
    }
};

// The page owns its models and sources; they go with the host's last child.
class CChartPage : public CVisualElement {
public:
    explicit CChartPage(CVisualElement* parent) : CVisualElement(parent, {0, 0}, AlignClient) {
        SetBkColor(_color(240, 240, 240));
        auto* const timeline = new CVisualElement(this, {0, 96}, AlignBottom);
        auto* const monthAxis = new CCategoricalAxis(timeline, {0, 34}, AlignTop);
        months.widths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        for (double& w : months.widths)
            w /= 31;
        monthAxis->SetHorzScroll(&months);
        monthAxis->SetCaptionSource(&monthNames);
        phases.widths = {1.5, 2, 1, 3, 1.5, 1, 0.5, 1};
        auto* const bar = new CPhases(timeline, &phases);
        bar->SetSelectedSections({1});
        auto* const gap = new CHint(timeline);
        monthAxis->SetCentralPane(gap);
        bar->SetCentralPane(gap);

        auto* const area = new CVisualElement(this, {0, 0}, AlignClient);
        Alignment const edges[] = {AlignTop, AlignBottom, AlignLeft, AlignRight};
        std::vector<CAxis*> axes;
        for (Alignment edge : edges)
            axes.push_back(new CAxis(area, {56, 30}, edge));
        auto* const plot = new CPlot(area);
        for (CAxis* axis : axes) {
            axis->SetCentralPane(plot);
            axis->SetHorzScroll(&plot->horz);
            axis->SetVertScroll(&plot->vert);
        }
        plot->axes = axes;
        // Pixels grow with the display: the same stretch of every model stays in view.
        mirel7::ISystem* const system = mirel7::GetCurrentSystem();
        double const scale = system ? system->GetDPIScale() : 1.0;
        for (CRangeModel* model : {&months, &phases, &plot->horz, &plot->vert})
            model->SetMeasure({model->UnitsPerPixel() / scale, 1});
    }

    CRangeModel months{-1, 12, -0.5, 1.0 / 90};
    CRangeModel phases{0, 8, 0, 1.0 / 110};
    SMonths monthNames;
};
} // namespace

void BuildChartPage(CVisualElement* host) {
    new CChartPage(host);
}

GALLERY_PAGE(120, "chart", BuildChartPage)

} // namespace gallery
