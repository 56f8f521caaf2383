// Animation: a spinner on a timer, a progress strip fed by a worker thread that posts each step through
// the window's synchronizer, and buttons that start, stop and destroy them while they run.
#include "gallery.h"
#include "swatch.h"

#include <mirelfrw7/animation/gui_task.h>
#include <mirelfrw7/animation/image.h>
#include <mirelfrw7/animation/runnable_proxy.h>
#include <mirelfrw7/core/control.h>

#include <mirel7/runner.h>
#include <mirel7/sys_window.h>
#include <mirel7/system.h>

#include <atomic>
#include <cmath>
#include <functional>
#include <string>

namespace gallery {

namespace {
using mirel7::_color;
using mirel7::IPainter;
using namespace mirelfrw7;

// Twelve spokes, the leading one dark and the others fading behind it.
class CSpinner : public IAnimation {
public:
    int GetInterval() const override { return 80; }
    void Advance() override { m_step = (m_step + 1) % Spokes; }
    void Draw(IPainter* painter, int x, int y) override {
        double const c = Size / 2.0;
        for (int i = 0; i < Spokes; ++i) {
            int const age = (m_step - i + Spokes) % Spokes;
            int const shade = 40 + age * 200 / Spokes;
            painter->SetPen(mirel7::pen{_color(shade, shade, shade), 5});
            double const a = i * 2 * 3.14159265358979 / Spokes;
            painter->MoveTo(x + c + std::cos(a) * 14, y + c + std::sin(a) * 14);
            painter->LineTo(x + c + std::cos(a) * 28, y + c + std::sin(a) * 28);
        }
    }
    size<int> GetSize() const override { return {Size, Size}; }

private:
    static constexpr int Spokes = 12, Size = 64;
    int m_step = 0;
};

// A strip that fills up as a worker thread does its steps. The worker only counts and sleeps; each step is
// posted back and drawn on the GUI thread.
class CProgressStrip : public CVisualElement {
public:
    explicit CProgressStrip(CVisualElement* parent) : CVisualElement(parent, {0, 48}, AlignTop) {
        SetBkColor(_color(230, 230, 230));
    }
    ~CProgressStrip() override { Stop(); }

    void Start() {
        if (!GetControl() || !GetControl()->GetWindow() || m_runner) return;
        mirel7::ISystem* const system = mirel7::GetCurrentSystem();
        if (!system) return;
        m_runner = system->CreateRunner();
        m_task.SetRunner(m_runner.get());
        m_task.SetSynchronizer(GetControl()->GetWindow()->GetSynchronizer());
        m_task.Execute();
    }
    void Stop() {
        m_task.Stop();
        m_task.SetSynchronizer(nullptr);
        m_runner.reset();
    }
    void HandleControlDestroy() override { Stop(); }
    void DrawContent(IPainter* painter) override {
        rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
        int const done = m_task.steps.load() % (Steps + 1);
        mirel7::brush fill;
        fill.color = _color(0, 114, 178);
        painter->SetBrush(fill);
        if (done > 0) painter->FillRect(b.left, b.top, b.left + (b.right - b.left) * done / Steps, b.bottom);
        painter->SetTextColor(_color(20, 20, 20));
        painter->DrawString(rectangle<double>(b),
                            "worker step " + std::to_string(done) + " of " + std::to_string(Steps),
                            IPainter::AlignHCenter | IPainter::AlignVCenter);
    }

private:
    static constexpr int Steps = 50;

    class CTask : public CGUITask, public tarnkit2::subscriber_base_t {
    public:
        explicit CTask(CProgressStrip& strip) : m_strip(strip) {}
        ~CTask() override { Stop(); }
        bool InternalProcessData() override {
            if (mirel7::IRunner* const runner = GetRunner()) runner->Sleep(60);
            ++steps;
            return true;
        }
        void InitUpdater(CRunnableProxy* proxy) override { proxy->sigRun.connect(this, &CTask::Show); }
        void Show() { m_strip.Update(UpdateLocal); }

        std::atomic<int> steps{0};

    private:
        CProgressStrip& m_strip;
    };

    // Declared before the task: the task stops its worker before the runner goes.
    mirel_ptr<mirel7::IRunner> m_runner;
    CTask m_task{*this};
};

class CActionTile : public CSwatch {
public:
    CActionTile(CVisualElement* parent, std::string name, _color color, std::function<void()> action)
        : CSwatch(parent, AlignLeft, {130, 0}, color, std::move(name)), m_action(std::move(action)) {}
    bool HandleClick(int, int, int, mirel7::MouseButton) override {
        m_action();
        return true;
    }

private:
    std::function<void()> m_action;
};

// The page: it knows its spinner and strip until they are destroyed.
class CAnimationPage : public CVisualElement {
public:
    explicit CAnimationPage(CVisualElement* host) : CVisualElement(host, {}, AlignClient) {
        SetBkColor(_color(245, 245, 245));
        m_report = new CReport(this, "Click the buttons while the spinner turns and the strip fills.");
        auto* buttons = new CVisualElement(this, {0, 44}, AlignTop);
        _color const spinnerColor(0, 158, 115), stripColor(86, 180, 233);
        new CActionTile(buttons, "start spinner", spinnerColor,
                        [this] { Do(m_spinner, &CImage::StartAnimation); });
        new CActionTile(buttons, "stop spinner", spinnerColor,
                        [this] { Do(m_spinner, &CImage::StopAnimation); });
        new CActionTile(buttons, "destroy spinner", spinnerColor, [this] { Destroy(m_spinner, "spinner"); });
        new CActionTile(buttons, "start strip", stripColor, [this] { Do(m_strip, &CProgressStrip::Start); });
        new CActionTile(buttons, "stop strip", stripColor, [this] { Do(m_strip, &CProgressStrip::Stop); });
        new CActionTile(buttons, "destroy strip", stripColor, [this] { Destroy(m_strip, "strip"); });

        m_strip = new CProgressStrip(this);
        m_spinner = new CImage(this, {}, AlignClient);
        m_spinner->SetBkColor(_color(245, 245, 245));
        m_spinner->SetAnimation(new CSpinner);
        m_spinner->StartAnimation();
        m_strip->Start();
    }
    void DrawContent(IPainter* painter) override {
        rectangle<int> const b = GetBounds();
        painter->FillRect(b.left, b.top, b.right, b.bottom);
    }

private:
    template <class T>
    void Do(T* element, void (T::*action)()) {
        if (!element) return m_report->Say("that one was destroyed");
        (element->*action)();
        m_report->Say("done");
    }
    template <class T>
    void Destroy(T*& element, char const* name) {
        if (!element) return m_report->Say(std::string(name) + " is already gone");
        delete element;
        element = nullptr;
        m_report->Say(std::string("the ") + name + " was destroyed while it ran");
    }

    CReport* m_report;
    CImage* m_spinner;
    CProgressStrip* m_strip;
};

} // namespace

void BuildAnimationPage(CVisualElement* host) {
    new CAnimationPage(host);
}

GALLERY_PAGE(80, "animation", BuildAnimationPage)

} // namespace gallery
