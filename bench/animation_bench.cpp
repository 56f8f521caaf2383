// What a frame of an animated image costs on the timer (the tick, the frame's advance, the update and the
// paint of the image's rectangle) against a plain local update and paint of the same element, through the
// recording painter and the drawing backend.
#include <mirelfrw7/animation/image.h>
#include <mirelfrw7/core/base_control.h>

#include <mirel7/headless/headless_system.h>
#include <mirel7/headless/headless_window.h>
#include <mirel7/recording_painter.h>
#include <mirel7/window_painter.h>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace {

using namespace mirelfrw7;

constexpr int Interval = 40;

// Eight 32x32 pictures shown in turn.
class CStripAnimation : public IAnimation {
public:
    CStripAnimation() {
        for (int i = 0; i < 8; ++i)
            m_frames.push_back(mirel7::NewRasterPicture(32, 32));
    }
    int GetInterval() const override { return Interval; }
    void Advance() override { m_frame = (m_frame + 1) % m_frames.size(); }
    void Draw(IPainter* painter, int x, int y) override {
        painter->DrawRasterPicture(m_frames[m_frame].get(), x, y, x + 32, y + 32);
    }
    size<int> GetSize() const override { return {32, 32}; }

private:
    std::vector<mirel_ptr<IRasterPicture>> m_frames;
    std::size_t m_frame = 0;
};

// A control with a row of blocks and one animated 32x32 image among them, painted once.
struct SScene {
    explicit SScene(bool record)
        : window(system, {400, 300},
                 record
                     ? std::unique_ptr<mirel7::IWindowPainter>(std::make_unique<mirel7::CRecordingPainter>())
                     : std::unique_ptr<mirel7::IWindowPainter>()),
          control(&window) {
        for (int i = 0; i < 20; ++i)
            new CVisualElement(control.GetContent(), {16, 0}, AlignLeft);
        image = new CImage(control.GetContent(), {32, 32}, AlignLeft);
        image->SetAnimation(new CStripAnimation);
        image->StartAnimation();
        window.Paint();
    }
    mirel7::headless::CHeadlessSystem system;
    mirel7::headless::CHeadlessWindow window;
    CBaseControl control;
    CImage* image = nullptr;
};

void AnimationFrame(benchmark::State& state) {
    SScene scene(state.range(0) != 0);
    for (auto _ : state) {
        scene.system.Advance(Interval);
        scene.window.Paint();
        if (auto* recorder = dynamic_cast<mirel7::CRecordingPainter*>(scene.window.GetPainter()))
            recorder->Clear();
    }
}
BENCHMARK(AnimationFrame)->ArgName("record")->Arg(1)->Arg(0);

void PlainUpdate(benchmark::State& state) {
    SScene scene(state.range(0) != 0);
    for (auto _ : state) {
        scene.image->Update(UpdateLocal);
        scene.window.Paint();
        if (auto* recorder = dynamic_cast<mirel7::CRecordingPainter*>(scene.window.GetPainter()))
            recorder->Clear();
    }
}
BENCHMARK(PlainUpdate)->ArgName("record")->Arg(1)->Arg(0);

} // namespace

BENCHMARK_MAIN();
