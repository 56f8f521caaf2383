#include "support/control_fixture.h"

namespace mirel_test {

CControlFixture::CControlFixture(mirel7::size<int> clientSize, bool record)
    : window(std::make_unique<mirel7::headless::CHeadlessWindow>(
          system, clientSize,
          record ? std::unique_ptr<mirel7::IWindowPainter>(std::make_unique<mirel7::CRecordingPainter>())
                 : std::unique_ptr<mirel7::IWindowPainter>())),
      control(std::make_unique<mirelfrw7::CBaseControl>(window.get())) {}

CControlFixture::~CControlFixture() {
    // The control goes first: its tree talks to the window while it dies.
    control.reset();
    window.reset();
}

mirel7::CRecordingPainter* CControlFixture::Recorder() const {
    return dynamic_cast<mirel7::CRecordingPainter*>(window->GetPainter());
}

} // namespace mirel_test
