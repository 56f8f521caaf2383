#pragma once

#include <mirelfrw7/core/base_control.h>

#include <mirel7/headless/headless_system.h>
#include <mirel7/headless/headless_window.h>
#include <mirel7/recording_painter.h>

#include <memory>

namespace mirel_test {

// A headless system with one window and a control on it: the ground of element tests. With `record` the
// window paints through a recording painter, else through the drawing backend.
class CControlFixture {
public:
    explicit CControlFixture(mirel7::size<int> clientSize = {200, 100}, bool record = true);
    ~CControlFixture();
    CControlFixture(CControlFixture const&) = delete;
    CControlFixture& operator=(CControlFixture const&) = delete;

    mirelfrw7::CVisualElement* Root() const { return control->GetContent(); }
    mirelfrw7::CBaseControlImp* Imp() const { return control->GetImp(); }
    // The recording painter, null when painting for real.
    mirel7::CRecordingPainter* Recorder() const;
    // Runs the pending paint, if one is pending.
    bool Paint() { return window->Paint(); }

    mirel7::headless::CHeadlessSystem system;
    std::unique_ptr<mirel7::headless::CHeadlessWindow> window;
    std::unique_ptr<mirelfrw7::CBaseControl> control;
};

} // namespace mirel_test
