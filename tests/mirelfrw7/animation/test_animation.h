#pragma once

#include <mirelfrw7/animation/animation.h>
#include <mirelfrw7/animation/animation_process.h>
#include <mirelfrw7/animation/image.h>

#include <mirel7/painter.h>

#include <functional>
#include <string>
#include <vector>

namespace mirel_test {

// An animation whose intervals cycle through a list. It writes "<name> <frame>" into a journal at each
// Advance() and "<name> dies" when it dies, so a test sees frames made after death; it draws its frame as
// a filled square.
class CTestAnimation : public mirelfrw7::IAnimation {
public:
    CTestAnimation(std::vector<int> intervals, std::string name, std::vector<std::string>* journal,
                   mirel7::size<int> frameSize = {32, 32})
        : m_intervals(std::move(intervals)), m_name(std::move(name)), m_journal(journal), m_size(frameSize) {}
    ~CTestAnimation() override {
        if (m_journal) m_journal->push_back(m_name + " dies");
    }

    int GetInterval() const override { return m_intervals[std::size_t(frame) % m_intervals.size()]; }
    void Advance() override {
        ++frame;
        if (m_journal) m_journal->push_back(m_name + " " + std::to_string(frame));
    }
    void Draw(mirel7::IPainter* painter, int x, int y) override {
        painter->FillRect(x, y, x + m_size.cx - 1, y + m_size.cy - 1);
    }
    mirel7::size<int> GetSize() const override { return m_size; }

    int frame = 0;

private:
    std::vector<int> m_intervals;
    std::string m_name;
    std::vector<std::string>* m_journal;
    mirel7::size<int> m_size;
};

// An updater that counts frames and runs a test's action in each.
class CTestUpdater : public mirelfrw7::IAnimationProcess::IUpdater {
public:
    void UpdateAnimation() override {
        ++frames;
        if (onFrame) onFrame();
    }
    bool IsUpdatable() const override { return updatable; }

    int frames = 0;
    bool updatable = true;
    std::function<void()> onFrame;
};

// Counts an image's sigAnimationUpdated.
struct CUpdateCounter : tarnkit2::subscriber_base_t {
    explicit CUpdateCounter(mirelfrw7::CImage* image) {
        image->sigAnimationUpdated.connect(this, &CUpdateCounter::Updated);
    }
    void Updated(mirelfrw7::CImage*) { ++updates; }
    int updates = 0;
};

} // namespace mirel_test
