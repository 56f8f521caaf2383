// The XPM reader on any lines: decoding, greying, and drawing on the recording and the Cairo painter.
#include <mirel7/assert.h>
#include <mirel7/recording_painter.h>
#include <mirel7/window_painter.h>
#include <mirel7/xpm.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace {

void Quiet(char const*, char const*, int, char const*) {}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static auto const installed = QUILL_2_18::debug::SetAssertHandler(&Quiet);
    (void)installed;
    std::vector<std::string> lines(1);
    for (std::size_t i = 0; i < size; ++i) {
        if (data[i] == '\n')
            lines.emplace_back();
        else
            lines.back() += char(data[i]);
    }
    mirel7::XpmColorConvMap colors;
    colors.Set("background", mirel7::_color(240, 240, 240));
    mirel7::XPMImage image(mirel7::XPMBuf(std::move(lines)), colors, {"~"});
    if (!image.Init()) return 0;
    mirel7::XPMImage const disabled = image.GetDisabled(nullptr);
    mirel7::CRecordingPainter recording({64, 64});
    recording.DrawXPM(disabled, 1, 2, 1, 1, 5, -1);
    // One surface serves every input: drawing leaves nothing behind but pixels.
    static auto const painter = mirel7::NewWindowPainter({24, 24}, 1.0);
    painter->SetDisabled(false);
    painter->DrawXPM(image, -3, 2, 0, 0, -1, -1);
    painter->SetDisabled(true);
    painter->DrawXPM(image, 4, 4, 2, 1, 7, 9);
    return 0;
}
